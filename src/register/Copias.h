#pragma once
// The archive tools' file work: writing calls of the register to an archive
// file (optionally taking them out of the register), reading an archive back
// into a register, the archive index and deleting archives. All names are
// resolved in the current archive folder, normally "Copias" in the data
// folder; the program does not create that folder.

#include "IndiceCopias.h"
#include "Log.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

class Copias {
public:
    static constexpr std::string_view kCarpeta = "Copias";
    static std::filesystem::path CarpetaDe(const std::filesystem::path& carpetaDatos) {
        return carpetaDatos / kCarpeta;
    }

    explicit Copias(std::filesystem::path carpeta) : carpeta_(std::move(carpeta)) {}

    const std::filesystem::path& Carpeta() const { return carpeta_; }
    // The user picked another folder: the index and new archives follow it.
    void Carpeta(std::filesystem::path carpeta) { carpeta_ = std::move(carpeta); }

    IndiceCopias& Indice() { return indice_; }
    const IndiceCopias& Indice() const { return indice_; }
    void CargarIndice() { indice_.Cargar(carpeta_); }
    void GuardarIndice() const { indice_.Guardar(carpeta_); }
    std::string NombrePorDefecto() const { return indice_.NombrePorDefecto(); }
    std::optional<std::string> Descripcion(std::string_view nombre) const {
        return indice_.Descripcion(nombre);
    }

    // Writes the calls dated from `desde` to `hasta` (both included) to the
    // archive `nombre`, after copying an existing file of that name to its
    // "bak" name, and adds (nombre, descripcion) to the index in memory.
    // With `borrarAlArchivar` the archived calls then leave the register
    // (the caller saves it). An empty register writes nothing and adds no
    // entry, but an existing archive of that name is still put aside in its
    // backup and removed; the result is then false.
    bool Archivar(Log& registro, const std::string& nombre, const std::string& descripcion,
                  Fecha desde, Fecha hasta, bool borrarAlArchivar);

    // Replaces what `destino` held (its BorrarLog) with the archive's calls
    // in date and hour order, calls of the same moment in file order: an
    // archive made from a register that was out of order comes back in
    // order. Throws ErrorFormato for a damaged archive and
    // ErrorDesbordamiento when the calls do not fit; `destino` is then
    // unchanged.
    void Recuperar(const std::string& nombre, Log& destino) const;

    // Deletes the file `nombre` of `carpeta`; its index entry stays.
    static void Borrar(const std::filesystem::path& carpeta, const std::string& nombre);

private:
    std::filesystem::path carpeta_;
    IndiceCopias indice_;
};

} // namespace vorimesk
