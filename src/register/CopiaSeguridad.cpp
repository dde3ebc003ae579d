#include "CopiaSeguridad.h"

#include "core/Archivo.h"
#include "core/Errores.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {

std::string NombreCopiaSeguridad(std::string_view ruta, std::string_view extension) {
    // Characters, not bytes: a name ending in "ñ" loses the whole letter.
    std::size_t corte = ruta.size();
    for (int quitados = 0; quitados < 3; ++quitados) {
        if (corte == 0) {
            throw ErrorArchivo(std::string(ruta), "el nombre es demasiado corto para su copia");
        }
        do {
            --corte;
        } while (corte > 0 && (static_cast<unsigned char>(ruta[corte]) & 0xC0) == 0x80);
    }
    return std::string(ruta.substr(0, corte)) + std::string(extension);
}

namespace {

// The backup as a second name of the same file, put in place by a rename so
// an older backup is replaced in one step. Saving always writes a new file
// and renames it over the old name, so the backup's contents never change
// afterwards. False where the file system has no hard links.
bool EnlazarCopia(const fs::path& ruta, const fs::path& copia) {
    for (int intento = 0; intento < 100; ++intento) {
        const fs::path temporal =
            copia.string() + "." + std::to_string(::getpid()) + "." + std::to_string(intento);
        if (::linkat(AT_FDCWD, ruta.c_str(), AT_FDCWD, temporal.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            if (errno == EEXIST) {
                continue;
            }
            return false;
        }
        if (::rename(temporal.c_str(), copia.c_str()) != 0) {
            const int fallo = errno;
            ::unlink(temporal.c_str());
            throw ErrorArchivo(copia.string(),
                               std::string("no se pudo reemplazar: ") + std::strerror(fallo));
        }
        return true;
    }
    return false;
}

} // namespace

bool HacerCopiaSeguridad(const fs::path& ruta) {
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        return false;
    }
    const fs::path copia = NombreCopiaSeguridad(ruta.string(), "bak");
    if (!EnlazarCopia(ruta, copia)) {
        EscribirArchivoSeguro(copia, LeerArchivo(ruta), kSoloUsuario);
    }
    return true;
}

} // namespace vorimesk
