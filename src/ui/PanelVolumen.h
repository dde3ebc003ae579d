#pragma once
// The "Volumen" part of the tariff editor: the data plan of the selected
// tariff (allowance per cycle, price per MB past it, billing step, least a
// session pays, reduced band free, fee per cycle), or none.

#include "tariff/Planes.h"

#include <QGroupBox>
#include <optional>

class QCheckBox;
class QDoubleSpinBox;
class QSpinBox;

namespace vorimesk {

class PanelVolumen : public QGroupBox {
    Q_OBJECT
public:
    explicit PanelVolumen(QWidget* padre = nullptr);

    // The plan of the tariff, or none; without reporting changes.
    void Mostrar(const PlanDatos* plan);
    // What the fields say for `tarifa`; nullopt when it has no plan.
    std::optional<PlanDatos> Plan(const std::string& tarifa) const;

signals:
    void Cambiado();

private:
    QCheckBox* chkPlan = nullptr;
    QDoubleSpinBox* spnIncluido = nullptr;
    QDoubleSpinBox* spnPrecio = nullptr;
    QSpinBox* spnPaso = nullptr;
    QDoubleSpinBox* spnMinimo = nullptr;
    QCheckBox* chkReducida = nullptr;
    QDoubleSpinBox* spnCuota = nullptr;
    PlanDatos mostrado_; // keeps the keys this window does not edit

    void Habilitar();
};

} // namespace vorimesk
