#pragma once
// Reading and writing the settings file "Varibles.Dat": one value per line,
// CR LF line ends, Windows-1252 text, each value in the delimited form of its
// type (see core/TextoDelimitado.h), in a fixed order.
//
// A damaged file never stops the program and is never lost: reading falls
// back to the defaults and says why, the file stays as it is, and the next
// save first copies it aside as "Varibles.Dat.dañado".

#include "Settings.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

struct LecturaVariables {
    Settings valores;
    bool dañado = false;
    std::string aviso; // Spanish text for the user when dañado
};

// A missing file gives the defaults with no warning.
LecturaVariables LeerVariables(const std::filesystem::path& ruta);

// Writes the file (readable by the user only when new). When the file there
// does not read as settings, it is first copied aside and the copy's path is
// returned. Throws ErrorDesbordamiento, writing nothing, when a list holds
// more than 32,767 items, and ErrorArchivo when the file cannot be read to
// check it or cannot be written.
std::optional<std::filesystem::path> GuardarVariables(const std::filesystem::path& ruta,
                                                      const Settings& valores);

// The codec itself. Leer throws ErrorFormato (naming the line) for a
// truncated or malformed text.
Settings LeerTextoVariables(std::string_view bytes);
std::string EscribirTextoVariables(const Settings& valores);

} // namespace vorimesk
