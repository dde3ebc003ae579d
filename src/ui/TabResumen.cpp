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
namespace {} // namespace

TabResumen::TabResumen(QWidget* padre) : QWidget(padre) {
    lPeriodo = CifraEnNegrita(this, "lPeriodo");
    lTiempoPer = CifraEnNegrita(this, "lTiempoPer");
    lGastoPer = CifraEnNegrita(this, "lGastoPer");
    lLlamadas = CifraEnNegrita(this, "lLlamadas");
    lDiasQuedanBono = CifraEnNegrita(this, "lDiasQuedanBono");
    lBonoGastado = CifraEnNegrita(this, "lBonoGastado");
    lBonoQueda = CifraEnNegrita(this, "lBonoQueda");

    auto* marcoPeriodo = new QGroupBox("Periodo de facturacion", this);
    auto* cifras = new QFormLayout(marcoPeriodo);
    cifras->addRow("Periodo:", lPeriodo);
    cifras->addRow("Tiempo periodo:", lTiempoPer);
    cifras->addRow("Gasto total periodo:", lGastoPer);
    cifras->addRow("Numero de llamadas:", lLlamadas);
    auto* quedan = new QHBoxLayout;
    quedan->addWidget(new QLabel("Quedan", marcoPeriodo));
    quedan->addWidget(lDiasQuedanBono);
    quedan->addWidget(new QLabel("dias para finalizar.", marcoPeriodo));
    quedan->addStretch();
    cifras->addRow(quedan);

    marcoBono_ = new QGroupBox("BonoNet", this);
    auto* bono = new QFormLayout(marcoBono_);
    bono->addRow("Bono Gastado:", lBonoGastado);
    bono->addRow("Bono Restante:", lBonoQueda);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(marcoPeriodo);
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
    lTiempoPer->setText(r.llamadas == 0 ? QString() : QString::fromStdString(r.tiempo.Valor()));
    lGastoPer->setText(QString::fromStdString(FormatoMiles(r.coste) + " "));
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
