#include "PanelConexion.h"

#include "EtiquetasMedidor.h"
#include "Iconos.h"
#include "PaletaColores.h"
#include "monitor/EntradasConexion.h"
#include "monitor/PantallaMonitor.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

const char* const kAyudaBoton = "Marca la conexion elegida, o cuelga la llamada en curso";

} // namespace

PanelConexion::PanelConexion(QWidget* padre) : QWidget(padre) {
    marcoEstado_ = new QGroupBox("Estado", this);
    shEstado = EtiquetaConNombre({}, "shEstado", marcoEstado_);
    lMsgEstado = EtiquetaConNombre({}, "lMsgEstado", marcoEstado_);
    lFecha = EtiquetaConNombre({}, "lFecha", marcoEstado_);
    lHora = EtiquetaConNombre({}, "lHora", marcoEstado_);
    Label25 = EtiquetaConNombre("Conectado con:", "Label25", marcoEstado_);
    lConectado = EtiquetaConNombre({}, "lConectado", marcoEstado_);
    Label28 = EtiquetaConNombre("Tarifa:", "Label28", marcoEstado_);
    lTarifa2 = EtiquetaConNombre({}, "lTarifa2", marcoEstado_);
    cmdConexion = new QPushButton("Co&nectar", marcoEstado_);
    cmdConexion->setObjectName("cmdConexion");
    cmdConexion->setCheckable(true);
    // As wide as its longer caption, so the panel does not move when it flips.
    cmdConexion->setText("Desco&nectar");
    cmdConexion->setMinimumWidth(cmdConexion->sizeHint().width());
    cmdConexion->setText("Co&nectar");
    connect(cmdConexion, &QPushButton::toggled, this, &PanelConexion::AlPulsar);

    // The call's labels keep their room while hidden: the panel does not
    // jump when a call starts or ends.
    for (QWidget* w : {static_cast<QWidget*>(Label25), static_cast<QWidget*>(Label28),
                       static_cast<QWidget*>(lConectado), static_cast<QWidget*>(lTarifa2)}) {
        QSizePolicy politica = w->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        w->setSizePolicy(politica);
    }
    auto* estado = new QGridLayout(marcoEstado_);
    auto* lampara = new QHBoxLayout;
    lampara->addWidget(shEstado);
    lampara->addWidget(lMsgEstado, 1);
    estado->addLayout(lampara, 0, 0, 1, 2);
    estado->addWidget(lFecha, 0, 2, Qt::AlignRight);
    estado->addWidget(Label25, 1, 0);
    estado->addWidget(lConectado, 1, 1);
    estado->addWidget(lHora, 1, 2, Qt::AlignRight);
    estado->addWidget(Label28, 2, 0);
    estado->addWidget(lTarifa2, 2, 1);
    estado->addWidget(cmdConexion, 2, 2);
    estado->setColumnStretch(1, 1);

    marcoMedidor_ = CrearMedidor();

    listaConexiones = new QListWidget(this);
    listaConexiones->setObjectName("listaConexiones");
    listaConexiones->setToolTip("Doble clic para marcar");
    listaConexiones->setMaximumHeight(listaConexiones->fontMetrics().height() * 4 + 8);
    connect(listaConexiones, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        if (hayEntradas_ && item != nullptr) {
            emit Marcar(item->text());
        }
    });
    // The list stays during a call, only greyed out, so the panel keeps its
    // layout.
    marcoLista_ = new QWidget(this);
    lEntradas_ = new QLabel("Conexiones:", marcoLista_);
    listaConexiones->setParent(marcoLista_);
    auto* lista = new QVBoxLayout(marcoLista_);
    lista->setContentsMargins(0, 0, 0, 0);
    lista->addWidget(lEntradas_);
    lista->addWidget(listaConexiones);
    lista->addStretch();

    auto* todo = new QHBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->addWidget(marcoEstado_, 3);
    todo->addWidget(marcoMedidor_, 2);
    todo->addWidget(marcoLista_, 2);
    Mostrar(PantallaMonitor{});
}

QGroupBox* PanelConexion::CrearMedidor() {
    auto* marco = new QGroupBox("Llamada en curso", this);
    medidor_ = EtiquetasMedidor::Crear(marco, 8, 4);
    lTiempo = medidor_.lTiempo;
    lGasto = medidor_.lGasto;
    lTarifa = medidor_.lTarifa;
    lBono = medidor_.lBono;
    auto* rejilla = new QGridLayout(marco);
    rejilla->addWidget(lTiempo, 0, 0, 1, 2, Qt::AlignCenter);
    rejilla->addWidget(lGasto, 1, 0, 1, 2, Qt::AlignCenter);
    rejilla->addWidget(lTarifa, 2, 0, Qt::AlignLeft);
    rejilla->addWidget(lBono, 2, 1, Qt::AlignRight);
    return marco;
}

void PanelConexion::MostrarEntradas(const std::vector<std::string>& entradas) {
    listaConexiones->clear();
    hayEntradas_ = !entradas.empty();
    if (!hayEntradas_) {
        listaConexiones->addItem(kSinConexiones);
    }
    for (const std::string& e : entradas) {
        listaConexiones->addItem(QString::fromStdString(e));
    }
    if (hayEntradas_) {
        listaConexiones->setCurrentRow(0);
    }
    if (!cmdConexion->isChecked()) {
        cmdConexion->setEnabled(hayEntradas_);
        cmdConexion->setToolTip(hayEntradas_ ? kAyudaBoton : kComoAñadirConexion);
    }
}

QString PanelConexion::EntradaElegida() const {
    const QListWidgetItem* item = listaConexiones->currentItem();
    return hayEntradas_ && item != nullptr ? item->text() : QString();
}

void PanelConexion::Elegir(const QString& entrada) {
    const auto encontrados = listaConexiones->findItems(entrada, Qt::MatchExactly);
    if (!encontrados.isEmpty()) {
        listaConexiones->setCurrentItem(encontrados.first());
    }
}

QList<QWidget*> PanelConexion::Asas() const {
    QList<QWidget*> asas{marcoEstado_, marcoMedidor_, lEntradas_};
    for (QLabel* l : {lMsgEstado, lFecha, lHora, Label25, lConectado, Label28, lTarifa2, lTiempo,
                      lGasto, lTarifa, lBono, shEstado}) {
        asas.append(l);
    }
    return asas;
}

void PanelConexion::Mostrar(const PantallaMonitor& p) {
    const int lado = lMsgEstado->fontMetrics().height() + 4;
    shEstado->setPixmap(PintarLampara(ColorPaleta(p.ColorIndicador), lado));
    lMsgEstado->setText(QString::fromStdString(p.MsgEstado));
    lFecha->setText(QString::fromStdString(p.FechaHoy));
    lHora->setText(QString::fromStdString(p.HoraAhora));
    // The state's text shows also while idle ("Sin conexion.",
    // "Desconectado."), so the figures left in the meter are not taken for
    // a call in progress.
    for (QWidget* w : {static_cast<QWidget*>(Label25), static_cast<QWidget*>(Label28),
                       static_cast<QWidget*>(lConectado), static_cast<QWidget*>(lTarifa2)}) {
        w->setVisible(p.EtiquetasLlamada);
    }
    marcoMedidor_->setTitle(p.EtiquetasLlamada || p.Gasto.empty() || EtiquetasMedidor::Marcando(p)
                                ? "Llamada en curso"
                                : "Ultima llamada");
    lConectado->setText(QString::fromStdString(p.Conectado));
    lTarifa2->setText(QString::fromStdString(p.Tarifa2));
    listaConexiones->setEnabled(p.ListaConexiones);
    shEstado->setToolTip(QString::fromStdString(p.MsgEstado));

    medidor_.Mostrar(p);

    // The monitor presses and releases the button too: that is shown, not
    // acted upon.
    const QSignalBlocker bloqueo(cmdConexion);
    cmdConexion->setChecked(p.BotonConexion);
    cmdConexion->setText(p.BotonConexion ? "Desco&nectar" : "Co&nectar");
    // With nothing to dial the button would only pretend to connect.
    cmdConexion->setEnabled(hayEntradas_ || p.BotonConexion);
    cmdConexion->setToolTip(hayEntradas_ || p.BotonConexion ? kAyudaBoton : kComoAñadirConexion);
}

void PanelConexion::AlPulsar(bool pulsado) {
    cmdConexion->setText(pulsado ? "Desco&nectar" : "Co&nectar");
    if (pulsado) {
        emit Pulsado(EntradaElegida());
    } else {
        emit Colgar();
    }
}

} // namespace vorimesk
