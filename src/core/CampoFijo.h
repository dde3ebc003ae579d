#pragma once
// Fixed-width text fields of the binary files: single-byte Windows-1252,
// left-aligned, space-padded and cut to the width.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vorimesk {

// Writes the UTF-8 text into exactly `ancho` bytes at destino.
void EscribirCampo(char* destino, std::size_t ancho, std::string_view utf8);
// The field as UTF-8, blanks kept.
std::string LeerCampo(const char* origen, std::size_t ancho);
// The field as UTF-8 with blanks trimmed from both ends.
std::string LeerCampoRecortado(const char* origen, std::size_t ancho);

// Little-endian numbers at a byte position of a record.
void EscribirDoble(char* destino, double v);
double LeerDoble(const char* origen);
void EscribirEntero16(char* destino, std::int16_t v);
std::int16_t LeerEntero16(const char* origen);
void EscribirEntero32(char* destino, std::int32_t v);
std::int32_t LeerEntero32(const char* origen);

} // namespace vorimesk
