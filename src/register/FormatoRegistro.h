#pragma once
// The register file "RegDat.log" as bytes: a headerless run of 85-byte
// records. No count is stored; the end of the file, or the first record whose
// Dia is exactly 0, ends the register. A partial record at the end reads as
// all zeros and so ends it too.

#include "RegistroLlamada.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

// The register index is a signed 16-bit number.
inline constexpr int kMaximoLlamadas = 32767;

// Throws ErrorDesbordamiento when the file holds more than kMaximoLlamadas
// records before its end.
std::vector<RegistroLlamada> LeerRegistros(std::string_view bytes);
std::string EscribirRegistros(const std::vector<RegistroLlamada>& registros);

} // namespace vorimesk
