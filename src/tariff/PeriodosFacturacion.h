#pragma once
// The billing periods of a register as the period picker and the summary cut
// them, as dates: the whole list up to a day, and the whole period that holds
// a day (up to its billing day, not only up to today).

#include "PeriodoEnCurso.h"
#include "core/Fecha.h"

#include <cstdint>
#include <vector>

namespace vorimesk {

// Every period from `primera` (the first call's day) to `hasta`, oldest
// first; the last one ends on `hasta`. Only the dates count.
std::vector<PeriodoFacturacion>
PeriodosFacturacion(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera, Fecha hasta);

// The period that holds `hoy`: it starts where the summary's current period
// starts and ends on the day before the next boundary (the billing day
// itself for the register's first period). {hoy, hoy} when no period holds it.
PeriodoFacturacion PeriodoCompleto(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera,
                                   Fecha hoy);

} // namespace vorimesk
