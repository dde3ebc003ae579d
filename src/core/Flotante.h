#pragma once
// Single-precision numbers as text: costs in the register, the tax rate of
// the settings file. Files written under Spanish regional settings hold ","
// as the decimal separator, so reading takes either; writing always uses ".".

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

struct LecturaFlotante {
    float valor = 0.0f;
    std::size_t usados = 0; // characters that formed the number, 0 when none
};

// The number at the start of the text: blanks skipped, an optional sign,
// digits with an optional "." or "," fraction, an optional exponent
// ("E+07"). Anything after it is ignored; text that starts no number reads
// as 0. Too large a number reads as infinity, too small as 0.
LecturaFlotante LeerFlotantePrefijo(std::string_view texto);

// The whole text (blanks around allowed) must be one number.
std::optional<float> LeerFlotanteCompleto(std::string_view texto);

// The shortest text that reads back as the same float: "0.5", "1234.56",
// "1E+10", "1.5E-07". -0 is written "0" and NaN "0"; infinity as "1E+39",
// which reads back as infinity.
std::string TextoFlotante(float v);

} // namespace vorimesk
