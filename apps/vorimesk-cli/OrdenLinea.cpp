// marcar and colgar: dial an entry and hang up, for scripts and the user
// service, through the same platform as the window's "Conectar" (pon and
// poff for pppd peers, Activate and DeactivateConnection for
// NetworkManager's connections). The meter, if one runs, sees the link as it
// sees any other.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "core/Archivo.h"
#include "core/Texto1252.h"
#include "meter/LimitesContador.h"
#include "platform/Plataforma.h"
#include "session/Sesion.h"
#include "tariff/ArchivoPlanes.h"

#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace vorimesk::cli {
namespace {

Plataforma PlataformaDe(ContextoCli& contexto) {
    OpcionesPlataforma o;
    o.carpetaDatos = contexto.Carpeta();
    return CrearPlataforma(o);
}

// The platform's reason, when it gave one, after the failure.
std::string Motivo(Plataforma& p) {
    const std::string aviso = p.conexiones->Leer().Aviso;
    return aviso.empty() ? "." : ": " + aviso;
}

void Hecho(bool json, std::ostream& salida, const char* orden, const std::string& entrada,
           const std::string& texto) {
    if (json) {
        salida << nlohmann::json{{"orden", orden}, {"entrada", entrada}, {"resultado", true}}.dump()
               << "\n";
    } else {
        salida << texto << "\n";
    }
}

// A limit of the connection's plan refuses the dial until its cycle renews,
// unless the user allows this one call.
void ComprobarLimites(ContextoCli& contexto, const std::string& entrada) {
    if (!ExisteArchivo(RutaPlanes(contexto.Carpeta()))) {
        return;
    }
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    LimitesContador limites(contexto.Carpeta());
    if (const auto rechazo = limites.Rechazo(sesion, Recortar(entrada), reloj.Ahora())) {
        throw ErrorOrden(*rechazo + " Para marcar de todos modos: vorimesk-cli marcar --forzar \"" +
                         entrada + "\".");
    }
}

int Marcar(ContextoCli& contexto, const std::string& entrada, bool forzar, bool json,
           std::ostream& salida) {
    // Refused before anything is asked of the system.
    if (!forzar) {
        ComprobarLimites(contexto, entrada);
    }
    Plataforma p = PlataformaDe(contexto);
    const std::vector<std::string> entradas = p.entradas->Entradas();
    const bool conocida = std::any_of(entradas.begin(), entradas.end(), [&](const std::string& e) {
        return Recortar(e) == Recortar(entrada);
    });
    if (!conocida) {
        std::string lista;
        for (const std::string& e : entradas) {
            lista += (lista.empty() ? "" : ", ") + e;
        }
        throw ErrorOrden("No hay ninguna entrada de acceso telefonico llamada \"" + entrada +
                         "\". " +
                         (lista.empty() ? std::string("Este sistema no tiene ninguna.")
                                        : "Las que hay: " + lista + "."));
    }
    p.marcador->Marcar(entrada);
    if (p.marcador->UltimoResultado() != 0) {
        throw ErrorOrden("No se ha podido marcar " + entrada + Motivo(p));
    }
    Hecho(json, salida, "marcar", entrada, "Marcando " + entrada + ".");
    return kSalidaBien;
}

int Colgar(ContextoCli& contexto, const std::optional<std::string>& elegida, bool json,
           std::ostream& salida) {
    Plataforma p = PlataformaDe(contexto);
    std::string entrada = elegida.value_or("");
    if (entrada.empty()) {
        const LecturaConexion l = p.conexiones->Leer();
        if (l.IntState == LecturaConexion::kConectado ||
            l.IntState == LecturaConexion::kConectando) {
            entrada = l.EntryName;
        }
    }
    if (entrada.empty()) {
        throw ErrorOrden("No hay ninguna conexion activa que colgar.");
    }
    if (p.marcador->Colgar(entrada) == 0) {
        throw ErrorOrden("No hay ninguna conexion activa de " + entrada + " que colgar.");
    }
    if (p.marcador->UltimoResultado() != 0) {
        throw ErrorOrden("No se ha podido colgar " + entrada + Motivo(p));
    }
    Hecho(json, salida, "colgar", entrada, "Colgando " + entrada + ".");
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenesLinea(AplicacionCli& aplicacion) {
    ContextoCli& contexto = aplicacion.Contexto();
    auto entrada = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    auto forzar = std::make_shared<bool>(false);
    CLI::App* marcar = aplicacion.Orden(
        "marcar", "Marca una entrada de acceso telefonico, como \"Conectar\" en la ventana",
        [entrada, forzar, json, &contexto](std::ostream& salida, std::ostream&) {
            return Marcar(contexto, *entrada, *forzar, *json, salida);
        });
    marcar->add_option("ENTRADA", *entrada, "La entrada (peer de pppd o conexion)")->required();
    marcar->add_flag("--forzar", *forzar,
                     "Marca aunque un limite del plan de la conexion lo impida (solo esta vez)");
    marcar->add_flag("--json", *json, "Resultado como documento JSON");

    auto colgada = std::make_shared<std::optional<std::string>>();
    auto jsonColgar = std::make_shared<bool>(false);
    CLI::App* colgar = aplicacion.Orden(
        "colgar", "Cuelga la conexion de una entrada, o la activa cuando no se da ninguna",
        [colgada, jsonColgar, &contexto](std::ostream& salida, std::ostream&) {
            return Colgar(contexto, *colgada, *jsonColgar, salida);
        });
    colgar->add_option("ENTRADA", *colgada, "La entrada que se cuelga");
    colgar->add_flag("--json", *jsonColgar, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
