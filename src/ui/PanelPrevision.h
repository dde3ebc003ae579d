#pragma once
// The forecast of the billing period on the summary tab: spent so far, the
// projection at the period's end with the rule it follows, the budget and
// what each day left may cost to stay within it.

#include "register/PrevisionPeriodo.h"

#include <QGroupBox>

class QLabel;

namespace vorimesk {

class PanelPrevision : public QGroupBox {
    Q_OBJECT
public:
    explicit PanelPrevision(QWidget* padre = nullptr);

    void Mostrar(const PrevisionPeriodo& prevision);
    // The budget file could not be read: the forecast goes on without it.
    void PresupuestoIlegible(const QString& motivo);

    QLabel* lGastadoPrev = nullptr;
    QLabel* lProyeccion = nullptr;
    QLabel* lRegla = nullptr;
    QLabel* lPresupuesto = nullptr;
    QLabel* lPorDia = nullptr;
    QLabel* lAvisoPresupuesto = nullptr;
};

} // namespace vorimesk
