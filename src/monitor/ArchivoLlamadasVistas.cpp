#include "ArchivoLlamadasVistas.h"

#include "core/Archivo.h"
#include "core/Errores.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// Letters, digits and "-" only: a session text never makes a path.
std::string Limpio(std::string_view texto) {
    std::string r;
    for (const char c : texto) {
        const bool bueno =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        r += bueno ? c : '-';
    }
    return r;
}

} // namespace

ArchivoLlamadasVistas::ArchivoLlamadasVistas(const fs::path& carpetaDatos)
    : carpeta_(carpetaDatos / kCarpeta) {}

std::string ArchivoLlamadasVistas::NombreNuevo(const LlamadaVista& v) const {
    const std::string base =
        Limpio(v.Inicio.TextoIso()) + "_" + Limpio(v.Enlace.empty() ? v.Interfaz : v.Enlace);
    std::string nombre = base + kExtension;
    std::error_code ec;
    for (int n = 2; fs::exists(carpeta_ / nombre, ec); ++n) {
        nombre = base + "_" + std::to_string(n) + kExtension;
    }
    return nombre;
}

void ArchivoLlamadasVistas::Guardar(const std::string& nombre, const LlamadaVista& v) const {
    std::error_code ec;
    fs::create_directories(carpeta_, ec);
    if (ec) {
        throw ErrorArchivo(carpeta_.string(), "no se pudo crear la carpeta: " + ec.message());
    }
    EscribirArchivoSeguro(carpeta_ / nombre, v.Texto(), kSoloUsuario);
}

void ArchivoLlamadasVistas::Borrar(const std::string& nombre) const {
    BorrarArchivo(carpeta_ / nombre);
}

std::vector<std::pair<std::string, LlamadaVista>> ArchivoLlamadasVistas::Todas() const {
    std::vector<std::pair<std::string, LlamadaVista>> todas;
    std::error_code ec;
    for (fs::directory_iterator it(carpeta_, ec), fin; !ec && it != fin; it.increment(ec)) {
        if (it->path().extension() != kExtension) {
            continue;
        }
        try {
            if (auto v = LlamadaVista::Leer(LeerArchivo(it->path()))) {
                todas.emplace_back(it->path().filename().string(), std::move(*v));
            }
        } catch (const Error&) {
            // An unreadable record is left where it is for the user to see.
        }
    }
    std::sort(todas.begin(), todas.end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    return todas;
}

} // namespace vorimesk
