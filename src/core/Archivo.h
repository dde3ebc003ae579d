#pragma once
// File helpers shared by every file format of the program. Nothing a user owns
// is ever truncated in place: writes go to a temporary file in the same folder,
// are flushed to disk and then renamed over the old file.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

// True when the path names a file that can be opened for reading; a file that
// exists but cannot be read counts as missing.
bool ExisteArchivo(const std::filesystem::path& ruta);

// The whole file as bytes; throws ErrorArchivo when it cannot be read.
std::string LeerArchivo(const std::filesystem::path& ruta);

// Writes the bytes atomically. A new file gets `permisos`; an existing one
// keeps its own. Throws ErrorArchivo and leaves the old file as it was.
void EscribirArchivoSeguro(const std::filesystem::path& ruta, std::string_view bytes,
                           std::filesystem::perms permisos = std::filesystem::perms::owner_read |
                                                             std::filesystem::perms::owner_write |
                                                             std::filesystem::perms::group_read |
                                                             std::filesystem::perms::others_read);

// Removes the file if it exists; throws ErrorArchivo when it cannot.
void BorrarArchivo(const std::filesystem::path& ruta);

// Copies origen over destino through EscribirArchivoSeguro.
void CopiarArchivo(const std::filesystem::path& origen, const std::filesystem::path& destino);

// Renames, replacing destino; throws ErrorArchivo when it cannot.
void RenombrarArchivo(const std::filesystem::path& origen, const std::filesystem::path& destino);

constexpr std::filesystem::perms kSoloUsuario =
    std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;

} // namespace vorimesk
