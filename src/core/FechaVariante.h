#pragma once
// A date field that may also be empty or null, as the settings file keeps the
// end date of a bundle that has not been given up: an empty line, #NULL# or a
// date, each read back exactly as written.

#include "Fecha.h"

namespace vorimesk {

struct FechaVariante {
    enum class Clase { Vacia, Nula, Fecha };

    Clase clase = Clase::Vacia;
    vorimesk::Fecha fecha;

    static FechaVariante Vacia() { return {}; }
    static FechaVariante Nula() { return {Clase::Nula, {}}; }
    static FechaVariante De(vorimesk::Fecha f) { return {Clase::Fecha, f}; }
    bool TieneFecha() const { return clase == Clase::Fecha; }
    bool operator==(const FechaVariante&) const = default;
};

} // namespace vorimesk
