#pragma once
// Single-byte Windows-1252 text of the data files <-> UTF-8 inside the program.
// Every byte survives a round trip: the five bytes that Windows-1252 leaves
// undefined map to the C1 control characters of the same code.

#include <string>
#include <string_view>

namespace vorimesk {

std::string De1252(std::string_view bytes);
// Characters that Windows-1252 cannot hold become "?"; malformed UTF-8 bytes
// are taken as Windows-1252 bytes themselves, so nothing is silently dropped.
std::string A1252(std::string_view utf8);

// Spaces removed from both ends (tabs and other blanks are kept).
std::string Recortar(std::string_view texto);

} // namespace vorimesk
