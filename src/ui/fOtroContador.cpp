#include "fOtroContador.h"

#include "core/Reloj.h"
#include "monitor/EstadoContador.h"
#include "platform/InstanciaUnica.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace vorimesk {

fOtroContador::fOtroContador(std::filesystem::path carpeta, InstanciaUnica& instancia,
                             const Reloj& reloj, QWidget* padre)
    : QDialog(padre), carpeta_(std::move(carpeta)), instancia_(instancia), reloj_(reloj) {
    setWindowTitle("Vorimesk: otro contador en marcha");
    auto* capa = new QVBoxLayout(this);
    lTitular_ = new QLabel(this);
    lTitular_->setWordWrap(true);
    capa->addWidget(lTitular_);
    lEstado = new QLabel(this);
    lEstado->setWordWrap(true);
    lEstado->setFrameShape(QFrame::StyledPanel);
    lEstado->setMargin(8);
    lEstado->setTextInteractionFlags(Qt::TextSelectableByMouse);
    capa->addWidget(lEstado);
    auto* botones = new QDialogButtonBox(this);
    cmdRelevar =
        botones->addButton("&Detener ese contador y seguir aqui", QDialogButtonBox::AcceptRole);
    cmdSalir = botones->addButton("&Salir", QDialogButtonBox::RejectRole);
    cmdSalir->setDefault(true);
    capa->addWidget(botones);
    connect(cmdRelevar, &QPushButton::clicked, this, &fOtroContador::Relevar);
    connect(cmdSalir, &QPushButton::clicked, this, &QDialog::reject);

    // The other meter rewrites its state file on each event; a call's time
    // moves on between events, so the view is refreshed every second.
    refresco_ = new QTimer(this);
    refresco_->setInterval(1000);
    connect(refresco_, &QTimer::timeout, this, &fOtroContador::Refrescar);
    refresco_->start();
    Refrescar();
    setMinimumWidth(460);
}

void fOtroContador::Refrescar() {
    // The other meter may have stopped by itself meanwhile.
    if (isVisible() && instancia_.Adquirir()) {
        accept();
        return;
    }
    const QString carpeta = QString::fromStdString(carpeta_.string());
    const std::optional<long> pid = instancia_.Titular();
    lTitular_->setText(
        QString("Otro contador de Vorimesk%1 ya vigila las conexiones de la carpeta de datos "
                "%2 (quizas el servicio vorimesk-vigilar). Solo uno puede anotar las llamadas "
                "de una carpeta.")
            .arg(pid ? QString(" (proceso %1)").arg(*pid) : QString(), carpeta));
    const std::optional<EstadoContador> estado = CargarEstadoContador(carpeta_);
    lEstado->setText(estado
                         ? QString::fromStdString(DescribirEstadoContador(*estado, reloj_.Ahora()))
                         : QString("Ese contador no deja ver su estado."));
    cmdRelevar->setEnabled(pid.has_value());
}

void fOtroContador::Relevar() {
    refresco_->stop();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool relevado = instancia_.Relevar(esperaRelevo);
    QApplication::restoreOverrideCursor();
    if (relevado) {
        accept();
        return;
    }
    QMessageBox::warning(this, windowTitle(),
                         "El otro contador no se ha detenido. Se puede detener con "
                         "\"systemctl --user stop vorimesk-vigilar\" si es el servicio.");
    refresco_->start();
    Refrescar();
}

bool ResolverOtroContador(const std::filesystem::path& carpeta, InstanciaUnica& instancia,
                          const Reloj& reloj) {
    fOtroContador dialogo(carpeta, instancia, reloj);
    return dialogo.exec() == QDialog::Accepted;
}

} // namespace vorimesk
