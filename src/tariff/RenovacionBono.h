#pragma once
// The monthly renewal of the BonoNet bundles, run by the main window's clock:
// a BonoNet month starts on the billing day, and the first look at the clock
// in a month not renewed yet refills the bundles for it (cBono::Reset with
// that day: bundles given up before it get nothing, later ones are left as
// they are). `mesReinicio` is the settings' month of the last renewal.

#include "core/Fecha.h"

#include <cstdint>

namespace vorimesk {

class cBono;

// The BonoNet month that holds `hoy`: the month whose billing day is the last
// one reached, and that day. A day the month lacks carries into the next
// month, as a calendar date does (31 February is 3 March).
struct MesBono {
    int mes = 0; // 1-12, the month the billing day belongs to
    Fecha inicio;
};
MesBono MesBonoDe(Fecha hoy, int diaFactura);

// Renews the ledger when the BonoNet month of `hoy` is not `mesReinicio`, and
// then remembers it. True when it renewed.
bool RenovarBonoMensual(cBono& bono, std::uint8_t& mesReinicio, Fecha hoy);

} // namespace vorimesk
