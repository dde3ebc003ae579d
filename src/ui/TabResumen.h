#pragma once
// Tab 0: what the billing period has cost so far (the totals of the last fill
// of the register grid), the days left until the next billing day, and the
// BonoNet time spent and left of the group chosen on the bono tab.

#include "core/Fecha.h"
#include "core/cTiempo.h"

#include <QWidget>
#include <cstdint>
#include <string>

class QGroupBox;
class QLabel;

namespace vorimesk {
class PanelPrevision;
}

namespace vorimesk {

struct ResumenPeriodo {
    Fecha inicio;
    Fecha fin;
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

private:
    QLabel* lPeriodo = nullptr;
    QLabel* lTiempoPer = nullptr;
    QLabel* lGastoPer = nullptr;
    QLabel* lLlamadas = nullptr;
    QLabel* lDiasQuedanBono = nullptr;
    QLabel* lBonoGastado = nullptr;
    QLabel* lBonoQueda = nullptr;
    PanelPrevision* prevision = nullptr;

    QGroupBox* marcoBono_ = nullptr;
};

} // namespace vorimesk
