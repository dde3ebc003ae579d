#include "Avisos.h"

#include "Mensajes.h"
#include "core/Errores.h"
#include "monitor/EntradasConexion.h"
#include "register/Log.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>

namespace vorimesk::avisos {

std::unique_ptr<QMessageBox> CrearCaja(QWidget* padre, QMessageBox::Icon icono,
                                       const QString& titulo, const QString& texto,
                                       QMessageBox::StandardButtons botones) {
    // The texts keep their CR or CR LF line ends; a label breaks lines at LF.
    QString lineas = texto;
    lineas.replace("\r\n", "\n").replace('\r', '\n');
    auto caja = std::make_unique<QMessageBox>(icono, titulo, lineas, botones, padre);
    // Spanish captions whatever the desktop's language.
    const std::pair<QMessageBox::StandardButton, const char*> nombres[] = {
        {QMessageBox::Yes, "&Si"}, {QMessageBox::No, "&No"}, {QMessageBox::Ok, "&Aceptar"}};
    for (const auto& [boton, nombre] : nombres) {
        if (QAbstractButton* b = caja->button(boton)) {
            b->setText(nombre);
        }
    }
    if (auto* etiqueta = caja->findChild<QLabel*>("qt_msgbox_label")) {
        int ancho = 0;
        for (const QString& linea : lineas.split('\n')) {
            ancho = std::max(ancho, etiqueta->fontMetrics().horizontalAdvance(linea));
        }
        const QScreen* pantalla =
            padre != nullptr ? padre->screen() : QGuiApplication::primaryScreen();
        const int limite =
            pantalla != nullptr ? pantalla->availableGeometry().width() * 3 / 4 : ancho;
        etiqueta->setMinimumWidth(std::min(ancho + 2, limite));
    }
    return caja;
}

QMessageBox::StandardButton Caja(QWidget* padre, QMessageBox::Icon icono, const QString& titulo,
                                 const QString& texto, QMessageBox::StandardButtons botones) {
    return static_cast<QMessageBox::StandardButton>(
        CrearCaja(padre, icono, titulo, texto, botones)->exec());
}

bool PreguntarRecalculo(QWidget* padre) {
    return Caja(padre, QMessageBox::Question, kTituloRecalculo, kTextoRecalculo,
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void ConexionNueva(QWidget* padre) {
    Caja(padre, QMessageBox::Warning, kTituloConexionNueva, kAvisoConexionNueva);
}

void SinModem(QWidget* padre) {
    Caja(padre, QMessageBox::Critical, kTituloSinModem, kTextoSinModem);
}

void MostrarError(QWidget* padre, const QString& texto) {
    Avisar(padre, QMessageBox::Critical, texto);
}

void MostrarError(QWidget* padre, const Error& error) {
    MostrarError(padre, QString::fromStdString(error.what()));
}

void TarifasDesconocidas(QWidget* padre, const RecalculoLog& recalculo) {
    const std::string texto = AvisoTarifasDesconocidas(recalculo);
    if (!texto.empty()) {
        Caja(padre, QMessageBox::Warning, "Tarifas desconocidas", QString::fromStdString(texto));
    }
}

} // namespace vorimesk::avisos
