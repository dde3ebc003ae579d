#include "AvisoPresupuesto.h"

namespace vorimesk {

bool AvisoPresupuesto::Comprobar(const PrevisionPeriodo& p) {
    if (p.Inicio != inicio_ || p.Presupuesto != presupuesto_) {
        inicio_ = p.Inicio;
        presupuesto_ = p.Presupuesto;
        disparado_ = false;
    }
    if (disparado_ || !p.SuperaPresupuesto) {
        return false;
    }
    disparado_ = true;
    return true;
}

} // namespace vorimesk
