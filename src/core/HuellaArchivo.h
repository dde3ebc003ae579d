#pragma once
// What tells one version of a file from the next without reading it: its
// size, its modification time and its inode. A file saved through a
// temporary file and a rename is a new inode, so even a save of the same
// size within the same clock tick shows.

#include <cstdint>
#include <filesystem>

namespace vorimesk {

struct HuellaArchivo {
    bool existe = false;
    std::uint64_t tamaño = 0;
    std::int64_t modificado = 0; // nanoseconds since the epoch
    std::uint64_t inodo = 0;

    // A missing or unreadable path gives a huella with `existe` false.
    static HuellaArchivo De(const std::filesystem::path& ruta);

    bool operator==(const HuellaArchivo&) const = default;
};

} // namespace vorimesk
