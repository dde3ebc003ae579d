#pragma once
// The folder "LlamadasVistas" of the data folder: one small file per call
// the meter saw and the system's session log has not given yet. Each file is
// written atomically (temporary file, then rename), so a meter killed at any
// moment leaves either the old record or the new one.

#include "LlamadaVista.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace vorimesk {

class ArchivoLlamadasVistas {
public:
    static constexpr const char* kCarpeta = "LlamadasVistas";
    static constexpr const char* kExtension = ".vista";

    explicit ArchivoLlamadasVistas(const std::filesystem::path& carpetaDatos);

    // A file name of its own for a new call (its start and session).
    std::string NombreNuevo(const LlamadaVista& v) const;
    // Writes the record under that name. Throws ErrorArchivo.
    void Guardar(const std::string& nombre, const LlamadaVista& v) const;
    void Borrar(const std::string& nombre) const;
    // Every record the folder holds, by name; unreadable files are skipped.
    std::vector<std::pair<std::string, LlamadaVista>> Todas() const;
    // Where a record is written as a modem log for the register's reader.
    std::filesystem::path RutaModemLog() const { return carpeta_ / "llamada.log"; }

private:
    std::filesystem::path carpeta_;
};

} // namespace vorimesk
