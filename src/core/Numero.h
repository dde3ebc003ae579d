#pragma once
// The numeric-prefix conversion used wherever a number is read from text:
// leading blanks skipped, an optional sign, digits, an optional "." fraction;
// reading stops at the first character that cannot continue the number, and
// text that does not start a number reads as 0.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vorimesk {

double Val(std::string_view texto);

// Where a number's digits start: past the leading blanks and an optional
// sign; `negativo` tells whether that sign was "-".
std::size_t InicioNumero(std::string_view texto, bool& negativo);

// Round half to even, as the file formats' integer conversions do.
double RedondeoBancario(double x);

// Rounds half to even and checks that the result fits a signed 16-bit field;
// throws ErrorDesbordamiento otherwise.
std::int16_t AEntero16(double x);

} // namespace vorimesk
