#include "Avisos.h"

#include "core/Errores.h"

#include <QPushButton>

namespace vorimesk::avisos {

QMessageBox::StandardButton Caja(QWidget* padre, QMessageBox::Icon icono, const QString& titulo,
                                 const QString& texto, QMessageBox::StandardButtons botones) {
    // The texts keep their CR or CR LF line ends; a label breaks lines at LF.
    QString lineas = texto;
    lineas.replace("\r\n", "\n").replace('\r', '\n');
    QMessageBox caja(icono, titulo, lineas, botones, padre);
    // Spanish captions whatever the desktop's language.
    if (QAbstractButton* si = caja.button(QMessageBox::Yes)) {
        si->setText("&Si");
    }
    if (QAbstractButton* no = caja.button(QMessageBox::No)) {
        no->setText("&No");
    }
    if (QAbstractButton* aceptar = caja.button(QMessageBox::Ok)) {
        aceptar->setText("&Aceptar");
    }
    return static_cast<QMessageBox::StandardButton>(caja.exec());
}

bool PreguntarRecalculo(QWidget* padre) {
    return Caja(padre, QMessageBox::Question, kTituloRecalculo, kTextoRecalculo,
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

void ConexionNueva(QWidget* padre) {
    Caja(padre, QMessageBox::Warning, kTituloConexionNueva, kTextoConexionNueva);
}

void SinModem(QWidget* padre) {
    Caja(padre, QMessageBox::Critical, kTituloSinModem, kTextoSinModem);
}

void MostrarError(QWidget* padre, const QString& texto) {
    Caja(padre, QMessageBox::Critical, "Vorimesk", texto);
}

void MostrarError(QWidget* padre, const Error& error) {
    MostrarError(padre, QString::fromStdString(error.what()));
}

} // namespace vorimesk::avisos
