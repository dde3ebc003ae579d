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

Plataforma Linux(const OpcionesPlataforma& o) {
    Plataforma p;
    p.conexiones = std::make_shared<FuenteConexionesLinux>(o.raices);
    p.marcador = std::make_shared<MarcadorLinux>(o.raices, o.ejecutar);
    p.entradas = std::make_shared<EntradasLinux>(o.raices.peers);
    p.modems = std::make_shared<ModemsLinux>(o.raices.sys,
                                             RutaModemLogLinux(o.entorno.modemLog, o.carpetaDatos));
    OrigenSesiones origen;
    if (o.entorno.sesiones && !o.entorno.sesiones->empty()) {
        origen.diario = *o.entorno.sesiones;
    }
    origen.carpetaDatos = o.carpetaDatos;
    p.sesiones = std::make_shared<TomaDiarioPpp>(origen);
    p.cargaAlIniciar = std::make_shared<CargaAlIniciarXdg>(
        CargaAlIniciarXdg::Carpeta(o.entorno.xdgConfigHome, o.entorno.home));
    return p;
}

} // namespace

EntornoPlataforma EntornoPlataforma::Actual() {
    return {Variable("HOME"), Variable("XDG_CONFIG_HOME"), Variable("XDG_RUNTIME_DIR"),
            Variable("VORIMESK_MODEMLOG"), Variable("VORIMESK_SESIONES")};
}

Plataforma CrearPlataforma(const OpcionesPlataforma& o) {
    Plataforma p = o.guion ? Simulada(o) : Linux(o);
    p.instancia = std::make_shared<InstanciaUnicaFlock>(InstanciaUnicaFlock::Ruta(o.carpetaDatos));
    return p;
}

} // namespace vorimesk
