#pragma once
// The archive index "Index.dat": for each archive, in the order they were
// made, a line with its file name and a line with its description, both in
// double quotes, CR LF line ends. The number of entries also numbers the
// next default archive name, so deleting an archive file never edits it.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

struct EntradaIndice {
    std::string Nombre;      // file name, no folder
    std::string Descripcion; // as the user typed it
    bool operator==(const EntradaIndice&) const = default;
};

class IndiceCopias {
public:
    static constexpr std::string_view kNombreArchivo = "Index.dat";

    // Reads the index of the folder; a missing or empty file is an empty
    // index. Throws ErrorFormato, keeping the entries held so far, when the
    // file does not hold name and description pairs.
    void Cargar(const std::filesystem::path& carpeta);
    // Writes every entry to the folder's index file.
    void Guardar(const std::filesystem::path& carpeta) const;

    // Number of entries (the upper bound of the list, whose spare entry
    // receives the next archive).
    int Count() const { return static_cast<int>(entradas_.size()); }
    const std::vector<EntradaIndice>& Entradas() const { return entradas_; }
    void Añadir(std::string nombre, std::string descripcion);

    // "Copia" + Count() with at least three digits + ".CPR".
    std::string NombrePorDefecto() const;
    // The description of the last entry whose name is exactly `nombre`.
    std::optional<std::string> Descripcion(std::string_view nombre) const;

    static std::vector<EntradaIndice> Leer(std::string_view bytes);
    static std::string Escribir(const std::vector<EntradaIndice>& entradas);

private:
    std::vector<EntradaIndice> entradas_;
};

} // namespace vorimesk
