#pragma once
// The tariff book of a data folder as its one holder keeps it: read at the
// first use and again only when "Tarifas.Dat" has changed (its size, its
// modification time or its inode), so the editor's saves reach the next
// pricing and the live call at once without the file being read for every
// call. Everyone who prices borrows it from here.

#include "cLlamada.h"
#include "core/HuellaArchivo.h"

#include <cstdint>
#include <filesystem>

namespace vorimesk {

class LibroTarifas {
public:
    explicit LibroTarifas(std::filesystem::path carpeta);

    const std::filesystem::path& Ruta() const { return libro_.Ruta(); }

    // The book as the file holds it now (empty when there is none), read
    // again first when the file is another. Throws ErrorArchivo when it
    // cannot be read; the book kept stays and the next call tries again.
    // Its copies price without reading the file.
    const cLlamada& Actual() const;
    // Goes up every time the book is read, so a holder of a copy or of a
    // view of it knows when to take it again.
    std::uint64_t Lecturas() const { return lecturas_; }

private:
    std::filesystem::path carpeta_;
    // A cache of the file: refreshed from the const getter.
    mutable cLlamada libro_;
    mutable HuellaArchivo huella_;
    mutable std::uint64_t lecturas_ = 0;
};

} // namespace vorimesk
