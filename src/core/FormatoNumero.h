#pragma once
// Number texts of the window labels.

#include <cstdint>
#include <string>

namespace vorimesk {

// "##,###": thousands grouped with "." as Spanish readers write them, and 0
// shown as nothing at all (an empty register shows an empty cost).
std::string FormatoMiles(std::int64_t valor);

// "0.00": two decimals with "." (the meter's cost).
std::string FormatoDosDecimales(double valor);

} // namespace vorimesk
