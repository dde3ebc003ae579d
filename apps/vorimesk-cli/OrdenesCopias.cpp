#include "OrdenesRegistro.h"
#include "VistaLlamadas.h"
#include "core/Reloj.h"
#include "register/Copias.h"
#include "session/Sesion.h"

#include <memory>
#include <ostream>

namespace vorimesk::cli {
namespace {

struct OpcionesCopias {
    std::string carpeta; // --carpeta: another archive folder
    bool json = false;
    std::string nombre;
    std::string descripcion;
    std::string desde;
    std::string hasta;
    bool borrar = false;
    bool sustituir = false;
    std::optional<std::string> guardarAntes;
};

Copias AbrirCopias(AplicacionCli& aplicacion, const OpcionesCopias& o) {
    Copias copias(o.carpeta.empty() ? Copias::CarpetaDe(aplicacion.Contexto().Carpeta())
                                    : std::filesystem::path(o.carpeta));
    copias.CargarIndice();
    return copias;
}

void OpcionCarpeta(CLI::App* orden, OpcionesCopias& o) {
    orden->add_option("--carpeta", o.carpeta, "Carpeta de las copias (por defecto, Copias)")
        ->type_name("DIR");
}

int Archivos(AplicacionCli& aplicacion, const OpcionesCopias& o, std::ostream& salida) {
    const Copias copias = AbrirCopias(aplicacion, o);
    nlohmann::json lista = nlohmann::json::array();
    for (const EntradaIndice& e : copias.Indice().Entradas()) {
        std::error_code ec;
        lista.push_back(
            {{"nombre", e.Nombre},
             {"descripcion", e.Descripcion},
             {"existe", std::filesystem::is_regular_file(copias.Carpeta() / e.Nombre, ec)}});
    }
    if (o.json) {
        salida << nlohmann::json{{"copias", lista}, {"siguiente", copias.NombrePorDefecto()}}.dump(
                      2)
               << "\n";
        return kSalidaBien;
    }
    if (lista.empty()) {
        salida << "No hay copias en \"" << copias.Carpeta().string() << "\".\n";
    }
    for (const auto& e : lista) {
        salida << e["nombre"].get<std::string>() << "  " << e["descripcion"].get<std::string>()
               << (e["existe"].get<bool>() ? "" : "  (borrada)") << "\n";
    }
    salida << "Siguiente nombre: " << copias.NombrePorDefecto() << "\n";
    return kSalidaBien;
}

// Every call of the register: from the first call's day to today.
std::pair<Fecha, Fecha> TodosLosDatos(const Log& log) {
    const Fecha hoy = RelojSistema().Hoy();
    return {log.Count() > 0 ? log.Dia(0) : hoy, hoy};
}

int Archivar(AplicacionCli& aplicacion, const OpcionesCopias& o, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(aplicacion.Contexto().Carpeta(), reloj);
    sesion.CargarRegistro();
    Log& log = sesion.Registro();
    Copias copias = AbrirCopias(aplicacion, o);
    auto [desde, hasta] = TodosLosDatos(log);
    if (!o.desde.empty()) {
        desde = LeerFechaArgumento(o.desde);
    }
    if (!o.hasta.empty()) {
        hasta = LeerFechaArgumento(o.hasta);
    }
    const std::string nombre = o.nombre.empty() ? copias.NombrePorDefecto() : o.nombre;
    const int antes = log.Count();
    int enIntervalo = 0;
    for (int i = 0; i < log.Count(); ++i) {
        enIntervalo += desde <= log.Dia(i) && log.Dia(i) <= hasta;
    }
    const bool escrita = copias.Archivar(log, nombre, o.descripcion, desde, hasta, o.borrar);
    copias.GuardarIndice();
    if (o.borrar && escrita) {
        sesion.RegistroCambiado();
    }
    if (o.json) {
        salida << nlohmann::json{{"nombre", nombre},
                                 {"escrita", escrita},
                                 {"archivadas", escrita ? enIntervalo : 0},
                                 {"quitadas", antes - log.Count()}}
                      .dump(2)
               << "\n";
    } else if (!escrita) {
        salida << "El registro no tiene llamadas: no se ha escrito ninguna copia.\n";
    } else {
        salida << "Copia \"" << nombre << "\" escrita con " << enIntervalo << " llamadas (del "
               << desde.TextoCorto() << " al " << hasta.TextoCorto() << ").\n";
        if (o.borrar) {
            salida << "Se han quitado " << antes - log.Count() << " llamadas del registro.\n";
        }
    }
    return kSalidaBien;
}

int Recuperar(AplicacionCli& aplicacion, const OpcionesCopias& o, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(aplicacion.Contexto().Carpeta(), reloj);
    sesion.CargarRegistro();
    Log& log = sesion.Registro();
    Copias copias = AbrirCopias(aplicacion, o);
    std::string guardadas;
    if (o.guardarAntes) {
        // The current calls are kept in an archive of their own first.
        const auto [desde, hasta] = TodosLosDatos(log);
        const std::string nombre = copias.NombrePorDefecto();
        if (copias.Archivar(log, nombre, *o.guardarAntes, desde, hasta, false)) {
            copias.GuardarIndice();
            guardadas = nombre;
        }
    }
    if (o.sustituir) {
        log.Vaciar(); // the calls it held stay in the "bak" copy after saving
    }
    const int antes = log.Count();
    // Read apart and then added: without --sustituir the command keeps the
    // calls it had and adds the archive's behind them.
    Log archivadas(aplicacion.Contexto().Carpeta());
    copias.Recuperar(o.nombre, archivadas); // a damaged archive changes nothing
    for (int i = 0; i < archivadas.Count(); ++i) {
        log.AñadirItem(archivadas.Registro(i));
    }
    const int recuperadas = log.Count() - antes;
    sesion.RegistroCambiado();
    if (o.json) {
        nlohmann::json j{{"recuperadas", recuperadas}, {"llamadas", log.Count()}};
        if (!guardadas.empty()) {
            j["guardadas"] = guardadas;
        }
        salida << j.dump(2) << "\n";
        return kSalidaBien;
    }
    if (!guardadas.empty()) {
        salida << "Llamadas actuales guardadas en \"" << guardadas << "\".\n";
    }
    salida << "Recuperadas " << recuperadas << " llamadas de \"" << o.nombre
           << "\"; el registro tiene ahora " << log.Count() << ".\n";
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenesCopias(AplicacionCli& aplicacion) {
    auto o = std::make_shared<OpcionesCopias>();

    CLI::App* archivos =
        aplicacion.Orden("archivos", "Lista las copias de llamadas archivadas (Index.dat)",
                         [&aplicacion, o](std::ostream& salida, std::ostream&) {
                             return Archivos(aplicacion, *o, salida);
                         });
    OpcionCarpeta(archivos, *o);
    archivos->add_flag("--json", o->json, "Escribe un documento JSON");

    CLI::App* archivar =
        aplicacion.Orden("archivar", "Archiva las llamadas del registro en una copia .CPR",
                         [&aplicacion, o](std::ostream& salida, std::ostream&) {
                             return Archivar(aplicacion, *o, salida);
                         });
    OpcionCarpeta(archivar, *o);
    archivar->add_option("--descripcion", o->descripcion, "Descripcion de la copia")->required();
    archivar->add_option("--nombre", o->nombre, "Nombre de la copia (por defecto, CopiaNNN.CPR)");
    archivar->add_option("--desde", o->desde, "Primer dia (por defecto, el de la primera llamada)")
        ->check(FechaValida());
    archivar->add_option("--hasta", o->hasta, "Ultimo dia (por defecto, hoy)")
        ->check(FechaValida());
    archivar->add_flag("--borrar", o->borrar, "Quita del registro las llamadas archivadas");
    archivar->add_flag("--json", o->json, "Escribe un documento JSON");

    CLI::App* recuperar =
        aplicacion.Orden("recuperar", "Devuelve al registro las llamadas de una copia",
                         [&aplicacion, o](std::ostream& salida, std::ostream&) {
                             return Recuperar(aplicacion, *o, salida);
                         });
    OpcionCarpeta(recuperar, *o);
    recuperar->add_option("nombre", o->nombre, "Copia que recuperar (CopiaNNN.CPR)")->required();
    recuperar->add_flag("--sustituir", o->sustituir,
                        "Quita antes las llamadas actuales (quedan en RegDat.bak)");
    recuperar->add_option("--guardar-antes", o->guardarAntes,
                          "Archiva antes las llamadas actuales con esta descripcion");
    recuperar->add_flag("--json", o->json, "Escribe un documento JSON");
}

} // namespace vorimesk::cli
