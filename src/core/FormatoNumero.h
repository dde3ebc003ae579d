#pragma once
// Number texts of the window: how amounts are shown, and how a number the
// user types is read.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

// "##,###": thousands grouped with "." as Spanish readers write them, and 0
// shown as nothing at all (an empty register shows an empty cost).
std::string FormatoMiles(std::int64_t valor);

// "0.00": two decimals with "." (the meter's cost).
std::string FormatoDosDecimales(double valor);

// Money as every window shows it: rounded to cents (halves away from zero),
// thousands grouped with "." and the cents after "," ("1.500,50", "-3,20",
// "0,00"). A value that is no number shows as "0,00".
std::string TextoDinero(double valor);

// A number as a user types it, Spanish forms ("1.500,50", "1,2") as well as
// the plain one ("1500.50"), blanks around allowed, with an optional "-".
// The comma is the decimal point unless a "." follows it; a lone "." is
// the thousands mark only when exactly three digits follow it and one to
// three digits other than a leading 0 come before ("2.500" is 2500, "0.105"
// and "1.50" are decimals). Marks of thousands must group by three.
// Returns the number written plainly ("1500.50", ".5"), as the files and
// the numeric-prefix reading take it, or nothing when it is not a number.
std::optional<std::string> NumeroEscrito(std::string_view texto);

} // namespace vorimesk
