#pragma once
// Tab 0: the billing period and the days left in it, the totals of the last
// fill of the register grid under the name of the range they sum (the billing
// period, the whole register, a filter), and the BonoNet time spent and left
// of the group chosen on the bono tab.

#include "core/Fecha.h"
#include "core/cTiempo.h"

#include <QWidget>
#include <cstdint>
#include <string>

class QGroupBox;
class QLabel;

namespace vorimesk {
class PanelPrevision;
class PanelUsoPlanes;
} // namespace vorimesk

namespace vorimesk {

struct ResumenPeriodo {
    Fecha inicio; // the billing period, to its last day
    Fecha fin;
    std::string rango; // what the totals sum, in words
    cTiempo tiempo;
    double coste = 0.0;
    std::int16_t llamadas = 0;
    int diasQuedan = 0;
};

class TabResumen : public QWidget {
    Q_OBJECT
public:
    explicit TabResumen(QWidget* padre = nullptr);

    void Mostrar(const ResumenPeriodo& resumen);
    void MostrarBono(const QString& grupo, const std::string& gastado, const std::string& queda);
    // The forecast of the billing period, which the budget watch fills.
    PanelPrevision& Prevision() { return *prevision; }
    // The data plans' use in their cycles.
    PanelUsoPlanes& UsoPlanes() { return *usoPlanes; }

private:
    QLabel* lPeriodo = nullptr;
    QLabel* lRangoTotales = nullptr;
    QLabel* lTiempoPer = nullptr;
    QLabel* lGastoPer = nullptr;
    QLabel* lLlamadas = nullptr;
    QLabel* lDiasQuedanBono = nullptr;
    QLabel* lBonoGastado = nullptr;
    QLabel* lBonoQueda = nullptr;
    PanelPrevision* prevision = nullptr;
    PanelUsoPlanes* usoPlanes = nullptr;

    QGroupBox* marcoBono_ = nullptr;
};

} // namespace vorimesk
