#include "PanelPrevision.h"

#include "ControlesDialogo.h"
#include "core/FormatoNumero.h"

#include <QFormLayout>
#include <QLabel>

namespace vorimesk {
namespace {

QString Cantidad(double v) {
    return QString::fromStdString(TextoDinero(v));
}

} // namespace

PanelPrevision::PanelPrevision(QWidget* padre) : QGroupBox("Prevision del periodo", padre) {
    setObjectName("PanelPrevision");
    lGastadoPrev = CifraEnNegrita(this, "lGastadoPrev");
    lProyeccion = CifraEnNegrita(this, "lProyeccion");
    lPresupuesto = CifraEnNegrita(this, "lPresupuesto");
    lPorDia = CifraEnNegrita(this, "lPorDia");
    lRegla = new QLabel(
        QString::fromUtf8(kReglaPrevision.data(), static_cast<int>(kReglaPrevision.size())), this);
    lRegla->setObjectName("lRegla");
    lRegla->setWordWrap(true);
    QFont pequeña = lRegla->font();
    pequeña.setItalic(true);
    lRegla->setFont(pequeña);
    lAvisoPresupuesto = new QLabel(this);
    lAvisoPresupuesto->setObjectName("lAvisoPresupuesto");
    lAvisoPresupuesto->setStyleSheet("color: #b00000; font-weight: bold;");
    lAvisoPresupuesto->setWordWrap(true);

    auto* filas = new QFormLayout(this);
    filas->addRow("Gastado hasta hoy:", lGastadoPrev);
    filas->addRow("Prevision al final:", lProyeccion);
    filas->addRow("Regla:", lRegla);
    filas->addRow("Presupuesto:", lPresupuesto);
    filas->addRow("Por dia restante:", lPorDia);
    filas->addRow(lAvisoPresupuesto);
}

void PanelPrevision::Mostrar(const PrevisionPeriodo& p) {
    lGastadoPrev->setText(QString("%1 (dia %2 de %3)")
                              .arg(Cantidad(p.Gastado))
                              .arg(p.DiasTranscurridos)
                              .arg(p.DiasPeriodo));
    lProyeccion->setText(Cantidad(p.Proyeccion));
    lPresupuesto->setText(p.Presupuesto ? Cantidad(*p.Presupuesto) : QString("sin presupuesto"));
    if (p.PorDiaRestante) {
        lPorDia->setText(QString("%1 en cada uno de los %2 dias que quedan")
                             .arg(Cantidad(*p.PorDiaRestante))
                             .arg(p.DiasQuedan));
    } else {
        lPorDia->setText(p.Presupuesto ? QString("ultimo dia del periodo") : QString("-"));
    }
    lAvisoPresupuesto->setText(
        p.SuperaPresupuesto ? QString("A este ritmo se pasara del presupuesto.") : QString());
}

void PanelPrevision::PresupuestoIlegible(const QString& motivo) {
    lPresupuesto->setText("no se puede leer");
    lPresupuesto->setToolTip(motivo);
}

} // namespace vorimesk
