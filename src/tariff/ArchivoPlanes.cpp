#include "ArchivoPlanes.h"

#include "PlanesJson.h"
#include "core/Archivo.h"

namespace fs = std::filesystem;

namespace vorimesk {

fs::path RutaPlanes(const fs::path& carpeta) {
    return carpeta / kArchivoPlanes;
}

std::optional<Planes> CargarPlanes(const fs::path& carpeta) {
    const fs::path ruta = RutaPlanes(carpeta);
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        return std::nullopt;
    }
    try {
        return LeerPlanes(LeerArchivo(ruta));
    } catch (const ErrorPlanes& e) {
        throw ErrorPlanes("El archivo \"" + ruta.string() + "\" no se puede usar: " + e.what());
    }
}

void GuardarPlanes(const fs::path& carpeta, const Planes& planes) {
    EscribirArchivoSeguro(RutaPlanes(carpeta), EscribirPlanes(planes));
}

} // namespace vorimesk
