#pragma once
// The one stack through which the windows hand each other parameters and
// results (billing day, interval, dates), and the period picker's result
// code. Both live as long as the program.

#include "core/cPila.h"

#include <cstdint>

namespace vorimesk {

cPila& PilaPrograma();

// Set by the period picker when it closes: kPeriodoElegido when a period was
// picked (its start and end are then on the stack), kPeriodoCancelado else.
inline constexpr std::int16_t kPeriodoElegido = 2;
inline constexpr std::int16_t kPeriodoCancelado = 1;
std::int16_t& ResultadoPeriodos();

// A stack value read as a date: a date, a date value (days since 30 Dec
// 1899) or date text (dd/mm/yyyy); anything else is `porDefecto`.
Fecha FechaDePila(const ValorPila& valor, Fecha porDefecto);
// A stack value read as a whole number; anything else is `porDefecto`.
std::int64_t EnteroDePila(const ValorPila& valor, std::int64_t porDefecto);

} // namespace vorimesk
