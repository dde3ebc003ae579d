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
        Elegir([boton](QMessageBox* caja) -> QAbstractButton* {
            const bool acepta = boton == QMessageBox::Ok || boton == QMessageBox::Yes;
            for (QAbstractButton* b : caja->buttons()) {
                const auto rol = caja->buttonRole(b);
                if (caja->standardButton(b) == boton ||
                    (acepta ? (rol == QMessageBox::AcceptRole || rol == QMessageBox::YesRole)
                            : (rol == QMessageBox::RejectRole || rol == QMessageBox::NoRole))) {
                    return b;
                }
            }
            return nullptr;
        });
    }
    // The next message box gets its button with this text.
    void Pulsar(const QString& texto) {
        Elegir([texto](QMessageBox* caja) -> QAbstractButton* {
            for (QAbstractButton* b : caja->buttons()) {
                if (b->text() == texto) {
                    return b;
                }
            }
            return nullptr;
        });
    }

    const std::vector<CajaVista>& Vistas() const { return vistas_; }
    bool Pendientes() const { return !acciones_.empty(); }

private:
    void Elegir(std::function<QAbstractButton*(QMessageBox*)> cual) {
        acciones_.push_back([cual](QWidget* w) {
            auto* caja = qobject_cast<QMessageBox*>(w);
            if (QAbstractButton* b = caja ? cual(caja) : nullptr) {
                b->click();
                return;
            }
            ADD_FAILURE() << "no hay ese boton en " << w->windowTitle().toStdString();
            QMetaObject::invokeMethod(w, "reject", Qt::QueuedConnection);
        });
    }
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
        ultimo_ = modal;
        if (acciones_.empty()) {
            // Unexpected: close it so the test does not hang, and let it see
            // the box in Vistas().
            QMetaObject::invokeMethod(modal, "reject", Qt::QueuedConnection);
            return;
        }
        auto accion = acciones_.front();
        acciones_.pop_front();
        accion(modal);
    }

    QTimer temporizador_;
    std::deque<std::function<void(QWidget*)>> acciones_;
    std::vector<CajaVista> vistas_;
    QPointer<QWidget> ultimo_;
};

} // namespace vorimesk::prueba
