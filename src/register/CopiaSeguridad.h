#pragma once
// Backup copies of the register and archive files: the path less its last
// three characters plus "bak" on saving ("RegDat.log" -> "RegDat.bak",
// "Copia003.CPR" -> "Copia003.bak"), or "BAK" when the register is put aside.

#include <filesystem>
#include <string>
#include <string_view>

namespace vorimesk {

// Throws ErrorArchivo when the path is shorter than three characters.
std::string NombreCopiaSeguridad(std::string_view ruta, std::string_view extension);

// When `ruta` exists, copies it over its "bak" name (replacing an older
// copy) and returns true. The copy is readable by the user only when new.
bool HacerCopiaSeguridad(const std::filesystem::path& ruta);

} // namespace vorimesk
