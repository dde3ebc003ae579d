#pragma once
// What the volume of one session costs under a data plan.
//
// The session's kilobytes (received + sent) are counted less the share that
// fell in the tariff's reduced band when that band is free (the bytes taken
// as spread evenly over the call's seconds), then rounded up to the plan's
// step. What is left of the cycle's allowance at the call's start is used
// first; the rest costs PrecioMB per MB (1024 KB) and at least MinimoSesion.

#include "Planes.h"
#include "cLlamada.h"
#include "core/Fecha.h"

#include <cstdint>

namespace vorimesk {

// Seconds from `inicio` to `fin` outside the normal band of the tariff at
// `tarifa` (the band each second is in, day type of its own day).
std::int64_t SegundosReducida(const cLlamada& libro, std::int16_t tarifa, Fecha inicio, Fecha fin);

// The stepped kilobytes the session counts against the allowance.
std::int64_t VolumenContado(const PlanDatos& plan, std::int64_t kb, std::int64_t segundos,
                            std::int64_t segundosReducida);

// The cost of `contadoKB` when `usadoKB` of the allowance was used before.
double ImporteVolumen(const PlanDatos& plan, std::int64_t contadoKB, std::int64_t usadoKB);

inline double KBaMB(std::int64_t kb) {
    return static_cast<double>(kb) / 1024.0;
}

} // namespace vorimesk
