#include "CopiaSeguridad.h"

#include "core/Archivo.h"
#include "core/Errores.h"

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

bool HacerCopiaSeguridad(const fs::path& ruta) {
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        return false;
    }
    EscribirArchivoSeguro(NombreCopiaSeguridad(ruta.string(), "bak"), LeerArchivo(ruta),
                          kSoloUsuario);
    return true;
}

} // namespace vorimesk
