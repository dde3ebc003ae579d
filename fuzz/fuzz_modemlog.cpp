// The modem log reader behind AñadirLog: any log either gives its calls and
// is deleted, is kept for later with nothing added, or is refused with one of
// the program's own errors; whatever happens, nothing is half done.
#include "Comprobar.h"
#include "core/Archivo.h"
#include "core/Errores.h"
#include "register/Log.h"
#include "tariff/LibroPorDefecto.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <unistd.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// One data folder for the whole run, with the shipped tariff book.
const fs::path& Carpeta() {
    static const fs::path carpeta = [] {
        std::string plantilla = (fs::temp_directory_path() / "vorimesk-fuzz-XXXXXX").string();
        if (::mkdtemp(plantilla.data()) == nullptr) {
            std::abort();
        }
        InstalarLibroPorDefecto(plantilla);
        std::atexit([] { fs::remove_all(Carpeta()); });
        return fs::path(plantilla);
    }();
    return carpeta;
}

// Two bundles and a billing day in mid-month, so refills and draws happen.
cBono Bonos() {
    cBono bono;
    bono.DiaFactura(10);
    bono.DarAlta(0, Fecha::Crear(1999, 1, 1));
    bono.DarAlta(3, Fecha::Crear(1999, 1, 1));
    bono.tiempo(0, "01:00:00");
    return bono;
}

std::vector<std::string> Tiempos(const cBono& bono) {
    std::vector<std::string> t;
    for (std::int16_t i = 0; i < bono.Count(); ++i) {
        t.push_back(bono.tiempo(i));
    }
    return t;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamaño) {
    const std::string texto(reinterpret_cast<const char*>(datos), tamaño);
    const fs::path ruta = Carpeta() / "modemlog.txt";
    // Written plainly: the safe write's flush to disk would be most of a run.
    std::ofstream(ruta, std::ios::binary | std::ios::trunc) << texto;

    Log log(Carpeta());
    log.NombreLog(ruta.string());
    cBono bono = Bonos();
    colConexion pendientes;
    pendientes.Add(Fecha::Crear(1999, 11, 15, 14, 5, 0), "BonoNet", "BonoNet", "Casa");
    pendientes.Add(Fecha::Crear(1999, 11, 15, 14, 5, 0), "Provincial", "Ninguno", "Oficina");
    pendientes.Add(Fecha::Crear(2026, 3, 2, 10, 0, 0), "Nada", "", "Lejos");
    const auto antes = Tiempos(bono);

    bool resultado = false;
    try {
        resultado = log.AñadirLog(bono, {Fecha::Crear(1999, 11, 16)}, pendientes);
    } catch (const Error&) {
        fuzz::Comprobar(log.Count() == 0, "un fallo no deja llamadas");
        fuzz::Comprobar(Tiempos(bono) == antes, "un fallo no gasta bono");
        fuzz::Comprobar(pendientes.Count() == 3, "un fallo no quita pendientes");
        fuzz::Comprobar(LeerArchivo(ruta) == texto, "un fallo guarda el log");
        return 0;
    }
    if (!resultado) {
        fuzz::Comprobar(log.Count() == 0, "sin sesion terminada no hay llamadas");
        fuzz::Comprobar(Tiempos(bono) == antes, "sin sesion terminada no se gasta bono");
        fuzz::Comprobar(pendientes.Count() == 3, "sin sesion terminada quedan pendientes");
        fuzz::Comprobar(!ExisteArchivo(ruta) || LeerArchivo(ruta) == texto, "el log se guarda");
        return 0;
    }
    fuzz::Comprobar(!fs::exists(ruta), "el log leido se borra");
    fuzz::Comprobar(pendientes.Count() == 0, "las pendientes se vacian");
    std::size_t lineas = 1;
    for (const char c : texto) {
        lineas += c == '\r' || c == '\n';
    }
    fuzz::Comprobar(static_cast<std::size_t>(log.Count()) <= lineas, "a lo sumo una por linea");
    for (int i = 0; i < log.Count(); ++i) {
        fuzz::Comprobar(log.Dia(i).SegundosDelDia() == 0, "Dia sin hora");
        fuzz::Comprobar(log.Hora(i).Dias() == 0, "Hora sin dia");
        fuzz::Comprobar(log.Reservada(i).empty(), "Reservada vacia");
        fuzz::Comprobar(log.Bono(i) == 0 || log.Bono(i) == -1, "Bono -1 o 0");
    }
    return 0;
}
