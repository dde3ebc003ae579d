#include "HuellaArchivo.h"

#include <sys/stat.h>

namespace vorimesk {

HuellaArchivo HuellaArchivo::De(const std::filesystem::path& ruta) {
    struct stat info {};
    HuellaArchivo h;
    if (::stat(ruta.c_str(), &info) != 0) {
        return h;
    }
    h.existe = true;
    h.tamaño = static_cast<std::uint64_t>(info.st_size);
#if defined(_WIN32)
    h.modificado = static_cast<std::int64_t>(info.st_mtime) * 1000000000;
#else
    h.modificado =
        static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1000000000 + info.st_mtim.tv_nsec;
#endif
    h.inodo = static_cast<std::uint64_t>(info.st_ino);
    return h;
}

} // namespace vorimesk
