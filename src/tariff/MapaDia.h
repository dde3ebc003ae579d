#pragma once
// How one day type's two bands cover the 24 hours, as pricing sees them: the
// normal band from its start to its end, both inclusive, never past midnight
// and empty when start equals end; the reduced band from its start to its
// end, past midnight when the end comes first, empty when they are equal.
// Pricing takes everything outside the normal band as reduced time and cuts
// its stretches at the reduced band's end, so a day where the two bands
// overlap or leave hours uncovered is priced in ways the user did not mean.

#include <cstdint>
#include <vector>

namespace vorimesk {

enum class Cobertura { Normal, Reducida, Solape, SinFranja };

// Seconds of the day [desde, hasta), hasta at most 86400.
struct TramoDia {
    std::int32_t desde;
    std::int32_t hasta;
    Cobertura cobertura;
    bool operator==(const TramoDia&) const = default;
};

// Band limits in seconds of the day (0 to 86399), as stored.
struct FranjasDia {
    std::int32_t normalInicio, normalFin;
    std::int32_t reducidaInicio, reducidaFin;
};

// The day from 00:00:00 to 24:00:00 in consecutive stretches, neighbours of
// the same kind joined.
std::vector<TramoDia> MapaDia(const FranjasDia& franjas);

bool NormalVacia(const FranjasDia& franjas);
bool ReducidaVacia(const FranjasDia& franjas);

} // namespace vorimesk
