#pragma once
// The billing period the main window totals at start: the last of the periods
// cut from the day of the register's first call to today, with the user's
// billing day and interval.

#include "core/Fecha.h"

#include <cstdint>

namespace vorimesk {

struct PeriodoFacturacion {
    Fecha inicio;
    Fecha fin;
    bool operator==(const PeriodoFacturacion&) const = default;
};

// `primera` is the first call's day (today for an empty register). Only the
// dates count; the period ends today.
PeriodoFacturacion PeriodoEnCurso(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera,
                                  Fecha hoy);

} // namespace vorimesk
