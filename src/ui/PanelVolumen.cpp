#include "PanelVolumen.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSpinBox>

namespace vorimesk {
namespace {

QDoubleSpinBox* Cantidad(QWidget* padre, const QString& nombre, double maximo, int decimales,
                         const QString& sufijo) {
    auto* s = new QDoubleSpinBox(padre);
    s->setObjectName(nombre);
    s->setRange(0, maximo);
    s->setDecimals(decimales);
    s->setSuffix(sufijo);
    return s;
}

} // namespace

PanelVolumen::PanelVolumen(QWidget* padre) : QGroupBox("Volumen", padre) {
    chkPlan = new QCheckBox("Esta tarifa cobra el volumen (plan de datos)", this);
    chkPlan->setObjectName("chkPlan");
    spnIncluido = Cantidad(this, "spnIncluido", 1e9, 2, " MB");
    spnPrecio = Cantidad(this, "spnPrecio", 1e6, 4, " por MB");
    spnPaso = new QSpinBox(this);
    spnPaso->setObjectName("spnPaso");
    spnPaso->setRange(1, 1 << 30);
    spnPaso->setSuffix(" KB");
    spnMinimo = Cantidad(this, "spnMinimo", 1e6, 4, "");
    chkReducida = new QCheckBox("El trafico en franja reducida no se cuenta ni se cobra", this);
    chkReducida->setObjectName("chkReducida");
    spnCuota = Cantidad(this, "spnCuota", 1e6, 2, "");
    auto* f = new QFormLayout(this);
    f->addRow(chkPlan);
    f->addRow("Incluido en cada ciclo:", spnIncluido);
    f->addRow("Precio pasado lo incluido:", spnPrecio);
    f->addRow("Cada sesion se redondea a:", spnPaso);
    f->addRow("Minimo por sesion cobrada:", spnMinimo);
    f->addRow(chkReducida);
    f->addRow("Cuota de cada ciclo:", spnCuota);
    spnIncluido->setToolTip("Megas de cada ciclo de facturacion (1 MB = 1024 KB)");
    spnCuota->setToolTip("Se suma a los totales, nunca al importe de una llamada");

    connect(chkPlan, &QCheckBox::toggled, this, [this] {
        Habilitar();
        emit Cambiado();
    });
    connect(chkReducida, &QCheckBox::toggled, this, &PanelVolumen::Cambiado);
    for (QDoubleSpinBox* s : {spnIncluido, spnPrecio, spnMinimo, spnCuota}) {
        connect(s, &QDoubleSpinBox::valueChanged, this, &PanelVolumen::Cambiado);
    }
    connect(spnPaso, &QSpinBox::valueChanged, this, &PanelVolumen::Cambiado);
    Mostrar(nullptr);
}

void PanelVolumen::Mostrar(const PlanDatos* plan) {
    const QSignalBlocker b0(chkPlan), b1(spnIncluido), b2(spnPrecio), b3(spnPaso), b4(spnMinimo),
        b5(chkReducida), b6(spnCuota);
    mostrado_ = plan != nullptr ? *plan : PlanDatos{};
    chkPlan->setChecked(plan != nullptr);
    spnIncluido->setValue(mostrado_.IncluidoMB);
    spnPrecio->setValue(mostrado_.PrecioMB);
    spnPaso->setValue(static_cast<int>(mostrado_.PasoKB));
    spnMinimo->setValue(mostrado_.MinimoSesion);
    chkReducida->setChecked(mostrado_.ReducidaGratis);
    spnCuota->setValue(mostrado_.CuotaPeriodo);
    Habilitar();
}

std::optional<PlanDatos> PanelVolumen::Plan(const std::string& tarifa) const {
    if (!chkPlan->isChecked()) {
        return std::nullopt;
    }
    PlanDatos p = mostrado_;
    p.Tarifa = tarifa;
    p.IncluidoMB = spnIncluido->value();
    p.PrecioMB = spnPrecio->value();
    p.PasoKB = spnPaso->value();
    p.MinimoSesion = spnMinimo->value();
    p.ReducidaGratis = chkReducida->isChecked();
    p.CuotaPeriodo = spnCuota->value();
    return p;
}

void PanelVolumen::Habilitar() {
    for (QWidget* w : std::initializer_list<QWidget*>{spnIncluido, spnPrecio, spnPaso, spnMinimo,
                                                      chkReducida, spnCuota}) {
        w->setEnabled(chkPlan->isChecked());
    }
}

} // namespace vorimesk
