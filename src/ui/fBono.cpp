#include "fBono.h"

#include "AnchoTitulo.h"
#include "ControlesDialogo.h"
#include "EditorTiempo.h"
#include "FechasQt.h"
#include "Iconos.h"
#include "Mensajes.h"
#include "core/cTiempo.h"
#include "tariff/cBono.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace vorimesk {
fBono::fBono(const BonoGuardado& inicial, bool nuevo, Fecha hoy, QWidget* padre)
    : QDialog(padre), inicial_(inicial), nuevo_(nuevo), hoy_(hoy) {
    setWindowTitle(nuevo ? "Alta de bono BonoNet" : "Modificar bono BonoNet");
    setWindowIcon(IconoPrograma());

    cmbTipo = new QComboBox(this);
    cmbTipo->setObjectName("cmbTipo");
    for (std::int16_t t = 0; t < cBono::kTipos; ++t) {
        cmbTipo->addItem(QString::fromStdString(cBono::NombreTipo(t)));
    }
    cmbTipo->setCurrentIndex(std::clamp<int>(inicial.Tipo, 0, cBono::kTipos - 1));
    cmbTipo->setEnabled(nuevo);
    fecAlta = EditorFecha("fecAlta", this);
    fecAlta->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    fecAlta->setObjectName("fecAlta");
    fecAlta->setDate(AQDate(inicial.Alta));
    chkBaja = new QCheckBox("&Dar de baja", this);
    chkBaja->setObjectName("chkBaja");
    fecBaja = EditorFecha("fecBaja", this);
    fecBaja->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    fecBaja->setObjectName("fecBaja");
    const bool baja = inicial.Baja.TieneFecha();
    fecBaja->setDate(AQDate(baja ? inicial.Baja.fecha : hoy));
    chkBaja->setChecked(baja);
    fecBaja->setEnabled(baja);
    txtTiempo = new EditorTiempo(this);
    txtTiempo->setObjectName("txtTiempo");
    txtTiempo->Tiempo(inicial.tiempo.empty() ? Contenido(inicial.Tipo) : inicial.tiempo);

    cmdAceptar = new QPushButton("&Aceptar", this);
    cmdAceptar->setObjectName("cmdAceptar");
    cmdAceptar->setDefault(true);
    cmdCancelar = new QPushButton("&Cancelar", this);
    connect(cmdAceptar, &QPushButton::clicked, this, &fBono::accept);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(cmbTipo, &QComboBox::currentIndexChanged, this, &fBono::CambioTipo);
    connect(chkBaja, &QCheckBox::toggled, this, &fBono::CambioBaja);

    auto* campos = new QFormLayout;
    campos->addRow("&Tipo:", cmbTipo);
    campos->addRow("A&lta:", fecAlta);
    campos->addRow(QString(), chkBaja);
    campos->addRow("&Baja:", fecBaja);
    campos->addRow("Tiempo &restante:", txtTiempo);
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdAceptar);
    botones->addWidget(cmdCancelar);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(campos);
    todo->addStretch();
    todo->addLayout(botones);
    AjustarAnchoAlTitulo(*this);
}

std::string fBono::Contenido(int tipo) {
    return cBono::NombreTipo(static_cast<std::int16_t>(std::clamp(tipo, 0, 3))).substr(0, 2) == "50"
               ? "50:00:00"
               : "10:00:00";
}

void fBono::CambioTipo(int tipo) {
    if (nuevo_) {
        txtTiempo->Tiempo(Contenido(tipo));
    }
}

void fBono::CambioBaja(bool baja) {
    fecBaja->setEnabled(baja);
    if (baja && !inicial_.Baja.TieneFecha()) {
        fecBaja->setDate(AQDate(hoy_));
    }
}

BonoGuardado fBono::Resultado() const {
    BonoGuardado b;
    b.Tipo = nuevo_ ? static_cast<std::int16_t>(cmbTipo->currentIndex()) : inicial_.Tipo;
    b.Alta = DeQDate(fecAlta->date());
    if (chkBaja->isChecked()) {
        b.Baja = FechaVariante::De(DeQDate(fecBaja->date()));
    } else {
        // A bundle still in use keeps its empty or null mark as read.
        b.Baja = inicial_.Baja.TieneFecha() ? FechaVariante::Vacia() : inicial_.Baja;
    }
    b.tiempo = txtTiempo->Tiempo();
    return b;
}

QString fBono::Problema() const {
    if (!txtTiempo->Completo()) {
        return "Escriba el tiempo restante como horas:minutos:segundos (por ejemplo 05:30:00).";
    }
    const std::string contenido = Contenido(nuevo_ ? cmbTipo->currentIndex() : inicial_.Tipo);
    if (cTiempo(txtTiempo->Tiempo()).EsMayor(contenido)) {
        return QString("El tiempo restante no puede pasar de %1.")
            .arg(QString::fromStdString(contenido));
    }
    if (chkBaja->isChecked() && fecBaja->date() < fecAlta->date()) {
        return "La fecha de baja no puede ser anterior a la de alta.";
    }
    return {};
}

void fBono::accept() {
    const QString problema = Problema();
    if (!problema.isEmpty()) {
        Avisar(this, QMessageBox::Warning, problema);
        return;
    }
    QDialog::accept();
}

} // namespace vorimesk
