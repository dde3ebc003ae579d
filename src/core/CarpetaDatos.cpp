#include "CarpetaDatos.h"

#include "Archivo.h"
#include "Errores.h"

#include <cstdlib>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

std::function<void(const fs::path&)>& Preparador() {
    static std::function<void(const fs::path&)> preparar;
    return preparar;
}

bool EsPortable(const fs::path& carpeta) {
    if (carpeta.empty()) {
        return false;
    }
    const bool tieneDatos =
        ExisteArchivo(carpeta / "Tarifas.Dat") || ExisteArchivo(carpeta / "RegDat.log");
    return tieneDatos && ::access(carpeta.c_str(), W_OK) == 0;
}

fs::path CarpetaXdg(const EntornoCarpeta& e) {
    if (e.xdgDataHome && !e.xdgDataHome->empty() && fs::path(*e.xdgDataHome).is_absolute()) {
        return fs::path(*e.xdgDataHome) / "vorimesk";
    }
    if (!e.home || e.home->empty()) {
        throw ErrorArchivo("~/.local/share/vorimesk",
                           "no se sabe cual es la carpeta personal (HOME no esta definida)");
    }
    return fs::path(*e.home) / ".local" / "share" / "vorimesk";
}

// A folder with none of the user's files is a first run, also when the folder
// itself was made beforehand (an empty folder given with --datos).
bool SinDatos(const fs::path& carpeta) {
    for (const char* nombre : {"Tarifas.Dat", "RegDat.log", "Varibles.Dat"}) {
        std::error_code ec;
        if (fs::exists(carpeta / nombre, ec)) {
            return false;
        }
    }
    return true;
}

fs::path Preparar(const fs::path& carpeta) {
    std::error_code ec;
    const bool nueva = SinDatos(carpeta);
    fs::create_directories(carpeta / "Copias", ec);
    if (ec || !fs::is_directory(carpeta)) {
        throw ErrorArchivo(carpeta.string(), "no se pudo crear la carpeta de datos");
    }
    if (nueva && Preparador()) {
        Preparador()(carpeta);
    }
    return carpeta;
}

} // namespace

fs::path CarpetaDatos::Resolver(const EntornoCarpeta& e) {
    if (e.datos) {
        return Preparar(*e.datos);
    }
    if (EsPortable(e.carpetaEjecutable)) {
        return e.carpetaEjecutable;
    }
    return Preparar(CarpetaXdg(e));
}

EntornoCarpeta CarpetaDatos::EntornoActual(std::optional<fs::path> datos) {
    EntornoCarpeta e;
    e.datos = std::move(datos);
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (!ec) {
        e.carpetaEjecutable = exe.parent_path();
    }
    if (const char* x = std::getenv("XDG_DATA_HOME")) {
        e.xdgDataHome = x;
    }
    if (const char* h = std::getenv("HOME")) {
        e.home = h;
    }
    return e;
}

void CarpetaDatos::AlCrear(std::function<void(const fs::path&)> preparar) {
    Preparador() = std::move(preparar);
}

} // namespace vorimesk
