#pragma once
// The billing cycle of a connection's own plan: the first and last day of
// the cycle that holds a day. A cycle starts at 00:00 of its first day.
//
// - Monthly from day N: a month without day N starts its cycle on its last
//   day (day 31 starts on 28 or 29 February, then on 31 March).
// - Every N days from a first day, back and forth.
// - A bucket from a first day that never renews: its last day is the
//   largest date a cycle can hold.

#include "PeriodoEnCurso.h"
#include "Planes.h"
#include "core/Fecha.h"

#include <optional>

namespace vorimesk {

// nullopt for a day before a bucket starts: no allowance is there for it.
std::optional<PeriodoFacturacion> CicloEn(const CicloConexion& ciclo, Fecha dia);

// A bucket's last day.
Fecha FinSinRenovar();

} // namespace vorimesk
