#include "TabResumen.h"

#include "ControlesDialogo.h"
#include "PanelPrevision.h"
#include "PanelUsoPlanes.h"
#include "core/FormatoNumero.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace vorimesk {

TabResumen::TabResumen(QWidget* padre) : QWidget(padre) {
    lPeriodo = CifraEnNegrita(this, "lPeriodo");
    lRangoTotales = CifraEnNegrita(this, "lRangoTotales");
    lTiempoPer = CifraEnNegrita(this, "lTiempoPer");
    lGastoPer = CifraEnNegrita(this, "lGastoPer");
    lLlamadas = CifraEnNegrita(this, "lLlamadas");
    lDiasQuedanBono = CifraEnNegrita(this, "lDiasQuedanBono");
    lBonoGastado = CifraEnNegrita(this, "lBonoGastado");
    lBonoQueda = CifraEnNegrita(this, "lBonoQueda");

    auto* marcoPeriodo = new QGroupBox("Periodo de facturacion", this);
    auto* periodo = new QFormLayout(marcoPeriodo);
    periodo->addRow("Periodo:", lPeriodo);
    auto* quedan = new QHBoxLayout;
    quedan->addWidget(new QLabel("Quedan", marcoPeriodo));
    quedan->addWidget(lDiasQuedanBono);
    quedan->addWidget(new QLabel("dias para finalizar.", marcoPeriodo));
    quedan->addStretch();
    periodo->addRow(quedan);

    // The totals are those of the grid, which may list more or less than the
    // billing period: the range they sum is named above them.
    auto* marcoTotales = new QGroupBox("Totales del registro", this);
    auto* cifras = new QFormLayout(marcoTotales);
    cifras->addRow("Llamadas de:", lRangoTotales);
    cifras->addRow("Tiempo:", lTiempoPer);
    cifras->addRow("Gasto total:", lGastoPer);
    cifras->addRow("Numero de llamadas:", lLlamadas);

    marcoBono_ = new QGroupBox("BonoNet", this);
    auto* bono = new QFormLayout(marcoBono_);
    bono->addRow("Bono Gastado:", lBonoGastado);
    bono->addRow("Bono Restante:", lBonoQueda);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(marcoPeriodo);
    todo->addWidget(marcoTotales);
    todo->addWidget(marcoBono_);
    prevision = new PanelPrevision(this);
    todo->addWidget(prevision);
    usoPlanes = new PanelUsoPlanes(this);
    usoPlanes->setObjectName("usoPlanes");
    todo->addWidget(usoPlanes);
    todo->addStretch();
}

void TabResumen::Mostrar(const ResumenPeriodo& r) {
    lPeriodo->setText(QString::fromStdString(r.inicio.TextoCorto() + " - " + r.fin.TextoCorto()));
    lRangoTotales->setText(QString::fromStdString(r.rango));
    lTiempoPer->setText(r.llamadas == 0 ? QString() : QString::fromStdString(r.tiempo.Valor()));
    lGastoPer->setText(r.llamadas == 0 ? QString() : QString::fromStdString(TextoDinero(r.coste)));
    lLlamadas->setText(QString::number(r.llamadas));
    lDiasQuedanBono->setText(QString::number(r.diasQuedan));
}

void TabResumen::MostrarBono(const QString& grupo, const std::string& gastado,
                             const std::string& queda) {
    marcoBono_->setTitle("BonoNet " + grupo);
    lBonoGastado->setText(QString::fromStdString(gastado));
    lBonoQueda->setText(QString::fromStdString(queda));
}

} // namespace vorimesk
