#include "Plataforma.h"

#include "core/Errores.h"
#include "platform/LineasModemLog.h"
#include "platform/linux/CargaAlIniciarXdg.h"
#include "platform/linux/EntradasLinux.h"
#include "platform/linux/FuenteConexionesLinux.h"
#include "platform/linux/InstanciaUnicaFlock.h"
#include "platform/linux/MarcadorLinux.h"
#include "platform/linux/ModemsLinux.h"
#include "platform/linux/TomaDiarioPpp.h"
#include "platform/networkmanager/ClienteNM.h"
#include "platform/networkmanager/EntradasCombinadas.h"
#include "platform/networkmanager/EntradasNM.h"
#include "platform/networkmanager/FuenteConexionesCombinada.h"
#include "platform/networkmanager/FuenteConexionesNM.h"
#include "platform/networkmanager/MarcadorCombinado.h"
#include "platform/networkmanager/ModemsMM.h"
#include "platform/simulated/CargaAlIniciarEnMemoria.h"
#include "platform/simulated/ModemSimulado.h"

#include <cstdlib>

namespace vorimesk {
namespace {

std::optional<std::string> Variable(const char* nombre) {
    if (const char* v = std::getenv(nombre)) {
        return std::string(v);
    }
    return std::nullopt;
}

Plataforma Simulada(const OpcionesPlataforma& o) {
    if (o.reloj == nullptr) {
        throw Error("el modem simulado necesita un reloj");
    }
    const std::filesystem::path log = o.entorno.modemLog && !o.entorno.modemLog->empty()
                                          ? std::filesystem::path(*o.entorno.modemLog)
                                          : o.carpetaDatos / kModemLogSimulado;
    auto modem = std::make_shared<ModemSimulado>(Guion::Leer(*o.guion), *o.reloj, log);
    Plataforma p;
    p.conexiones = modem;
    p.marcador = modem;
    p.entradas = modem;
    p.modems = modem;
    p.cargaAlIniciar = std::make_shared<CargaAlIniciarEnMemoria>();
    return p;
}

std::string OrigenSimulado(const OpcionesPlataforma& o) {
    return "Conexiones del modem simulado (" + o.guion->filename().string() + ")";
}

std::string OrigenPppd(const OpcionesPlataforma& o) {
    return "de pppd (" + o.raices.peers.string() + ")";
}

bool ConNetworkManager(const OpcionesPlataforma& o) {
    return o.networkManager && ClienteNM::Disponible();
}

Plataforma Linux(const OpcionesPlataforma& o) {
    Plataforma p;
    p.conexiones = std::make_shared<FuenteConexionesLinux>(o.raices);
    p.marcador = std::make_shared<MarcadorLinux>(o.raices, o.ejecutar);
    p.entradas = std::make_shared<EntradasLinux>(o.raices.peers);
    p.modems = std::make_shared<ModemsLinux>(o.raices.sys,
                                             RutaModemLogLinux(o.entorno.modemLog, o.carpetaDatos));
    OrigenSesiones origen;
    if (o.entorno.diario && !o.entorno.diario->empty()) {
        origen.diario = *o.entorno.diario;
    }
    origen.carpetaDatos = o.carpetaDatos;
    p.diario = std::make_shared<TomaDiarioPpp>(origen);
    p.cargaAlIniciar = std::make_shared<CargaAlIniciarXdg>(
        CargaAlIniciarXdg::Carpeta(o.entorno.xdgConfigHome, o.entorno.home));
    p.origen = "Conexiones " + OrigenPppd(o);
    return p;
}

// NetworkManager's links beside pppd's: a peer started with "pon" on a
// NetworkManager desktop is still a call.
void AñadirNetworkManager(const OpcionesPlataforma& o, Plataforma& p) {
    std::shared_ptr<ClienteNM> cliente;
    try {
        cliente = std::make_shared<ClienteNM>();
    } catch (const Error&) {
        return; // gone since it was asked for: pppd alone
    }
    p.conexiones = std::make_shared<FuenteConexionesCombinada>(
        std::make_shared<FuenteConexionesNM>(cliente, o.raices.sys), p.conexiones);
    p.marcador =
        std::make_shared<MarcadorCombinado>(std::make_shared<MarcadorNM>(cliente), p.marcador);
    p.entradas =
        std::make_shared<EntradasCombinadas>(std::make_shared<EntradasNM>(cliente), p.entradas);
    p.modems = std::make_shared<ModemsMM>(cliente, p.modems,
                                          RutaModemLogLinux(o.entorno.modemLog, o.carpetaDatos));
    p.origen = "Conexiones de NetworkManager y " + OrigenPppd(o);
}

} // namespace

EntornoPlataforma EntornoPlataforma::Actual() {
    return {Variable("HOME"), Variable("XDG_CONFIG_HOME"), Variable("XDG_RUNTIME_DIR"),
            Variable("VORIMESK_MODEMLOG"), Variable("VORIMESK_SESIONES")};
}

Plataforma CrearPlataforma(const OpcionesPlataforma& o) {
    Plataforma p = o.guion ? Simulada(o) : Linux(o);
    if (!o.guion && ConNetworkManager(o)) {
        AñadirNetworkManager(o, p);
    }
    if (o.guion) {
        p.origen = OrigenSimulado(o);
    }
    p.instancia = CrearInstanciaUnica(o.carpetaDatos);
    return p;
}

std::shared_ptr<InstanciaUnica> CrearInstanciaUnica(const std::filesystem::path& carpetaDatos) {
    return std::make_shared<InstanciaUnicaFlock>(InstanciaUnicaFlock::Ruta(carpetaDatos));
}

std::string OrigenConexiones(const OpcionesPlataforma& o) {
    if (o.guion) {
        return OrigenSimulado(o);
    }
    return ConNetworkManager(o) ? "Conexiones de NetworkManager y " + OrigenPppd(o)
                                : "Conexiones " + OrigenPppd(o);
}

} // namespace vorimesk
