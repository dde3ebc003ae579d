#pragma once
// Answers the modal boxes a window opens while a test drives it: a timer
// looks for the active modal dialog, notes its title and text, and presses
// the button the test chose. Each answer is used once, in order.

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>
#include <gtest/gtest.h>

namespace vorimesk::prueba {

struct CajaVista {
    QString titulo;
    QString texto;
    QString detalle; // the informative text under it
};

class RespuestasDialogo {
public:
    RespuestasDialogo() {
        temporizador_.setInterval(10);
        QObject::connect(&temporizador_, &QTimer::timeout, [this] { Mirar(); });
        temporizador_.start();
    }

    // The next message box gets this button; in a box with buttons of its
    // own, the one of the same role (Ok and Yes accept, No and Cancel
    // reject).
    void Responder(QMessageBox::StandardButton boton) {
        acciones_.push_back([boton](QWidget* w) {
            auto* caja = qobject_cast<QMessageBox*>(w);
            if (caja == nullptr) {
                return false;
            }
            if (QAbstractButton* b = caja->button(boton)) {
                b->click();
                return true;
            }
            const bool acepta = boton == QMessageBox::Ok || boton == QMessageBox::Yes;
            for (QAbstractButton* b : caja->buttons()) {
                const auto rol = caja->buttonRole(b);
                if (acepta ? (rol == QMessageBox::AcceptRole || rol == QMessageBox::YesRole)
                           : (rol == QMessageBox::RejectRole || rol == QMessageBox::NoRole)) {
                    b->click();
                    return true;
                }
            }
            caja->reject();
            return false;
        });
    }
    // The next message box gets its button with this text.
    void Pulsar(const QString& texto) {
        acciones_.push_back([texto](QWidget* w) {
            auto* caja = qobject_cast<QMessageBox*>(w);
            for (QAbstractButton* b : caja ? caja->buttons() : QList<QAbstractButton*>()) {
                if (b->text() == texto) {
                    b->click();
                    return true;
                }
            }
            ADD_FAILURE() << "no hay un boton " << texto.toStdString();
            QMetaObject::invokeMethod(w, "reject", Qt::QueuedConnection);
            return false;
        });
    }

    const std::vector<CajaVista>& Vistas() const { return vistas_; }
    bool Pendientes() const { return !acciones_.empty(); }

private:
    void Mirar() {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr || modal == ultimo_) {
            return;
        }
        if (auto* caja = qobject_cast<QMessageBox*>(modal)) {
            vistas_.push_back({caja->windowTitle(), caja->text(), caja->informativeText()});
        } else {
            vistas_.push_back({modal->windowTitle(), {}, {}});
        }
        if (acciones_.empty()) {
            // Unexpected: close it so the test does not hang, and let it see
            // the box in Vistas().
            ultimo_ = modal;
            QMetaObject::invokeMethod(modal, "reject", Qt::QueuedConnection);
            return;
        }
        auto accion = acciones_.front();
        acciones_.pop_front();
        ultimo_ = modal;
        accion(modal);
    }

    QTimer temporizador_;
    std::deque<std::function<bool(QWidget*)>> acciones_;
    std::vector<CajaVista> vistas_;
    QPointer<QWidget> ultimo_;
};

} // namespace vorimesk::prueba
