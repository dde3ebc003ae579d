#pragma once
// The budget alert: it sounds the first time the forecast's projection goes
// above the budget, and not again for the same period and budget however
// often the forecast is worked out afterwards. A new billing period or a
// changed budget arms it again.

#include "PrevisionPeriodo.h"

#include <optional>

namespace vorimesk {

class AvisoPresupuesto {
public:
    // True when the alert fires now.
    bool Comprobar(const PrevisionPeriodo& prevision);

private:
    bool disparado_ = false;
    Fecha inicio_;
    std::optional<double> presupuesto_;
};

} // namespace vorimesk
