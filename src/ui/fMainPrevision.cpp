// The main window's side of the tariff comparison and the period's forecast:
// the register tab opens the comparison, the budget watch fills the summary.

#include "Proteger.h"
#include "TabRegistro.h"
#include "TabResumen.h"
#include "VigiaPresupuesto.h"
#include "fComparar.h"
#include "fMain.h"

#include <QStatusBar>

namespace vorimesk {

void fMain::ConstruirPrevision() {
    connect(tabRegistro, &TabRegistro::PedirComparacion, this, Protegido(this, [this] {
                auto* comparar = new fComparar(fComparar::FuenteDe(datos_, listado_), this);
                comparar->setAttribute(Qt::WA_DeleteOnClose);
                comparar->show();
            }));
    presupuesto_ = new VigiaPresupuesto(
        datos_, *sonido_, tabResumen->Prevision(), [this] { return bandeja_; }, this);
    connect(presupuesto_, &VigiaPresupuesto::AvisoPresupuesto, this,
            [this](const QString& texto) { statusBar()->showMessage(texto); });
}

} // namespace vorimesk
