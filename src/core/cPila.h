#pragma once
// The program-wide stack through which dialogs receive their parameters and
// hand back their results (billing day, interval, dates...).

#include "Fecha.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace vorimesk {

using ValorPila = std::variant<std::monostate, std::int64_t, double, bool, std::string, Fecha>;

class cPila {
public:
    void Meter(ValorPila valor);
    // Throws ErrorIndice on an empty stack (it would read element -1).
    ValorPila Sacar();
    void Vaciar() { elementos_.clear(); }
    std::int16_t Count() const { return static_cast<std::int16_t>(elementos_.size()); }

private:
    std::vector<ValorPila> elementos_;
};

} // namespace vorimesk
