#pragma once
// Everything the program asks of the operating system, from one place: the
// factory picks the backend (the Linux system, or a scripted modem) and the
// rest of the program only sees the interfaces.

#include "core/Reloj.h"
#include "monitor/Marcador.h"
#include "monitor/TomaDiario.h"
#include "platform/CargaAlIniciar.h"
#include "platform/FuenteConexiones.h"
#include "platform/InstanciaUnica.h"
#include "platform/ListaEntradas.h"
#include "platform/ListaModems.h"
#include "platform/OrdenSistema.h"
#include "platform/RaicesLinux.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace vorimesk {

// The environment variables the platform depends on.
struct EntornoPlataforma {
    std::optional<std::string> home;          // HOME
    std::optional<std::string> xdgConfigHome; // XDG_CONFIG_HOME: the autostart folder
    std::optional<std::string> xdgRuntimeDir; // XDG_RUNTIME_DIR
    std::optional<std::string> modemLog;      // VORIMESK_MODEMLOG: the modem log read
    std::optional<std::string> diario;        // VORIMESK_SESIONES: the pppd journal
    static EntornoPlataforma Actual();
};

struct OpcionesPlataforma {
    std::filesystem::path carpetaDatos; // the single-instance lock, the scripted modem's log
    // A script (Guion) to play instead of watching the system; needs `reloj`.
    std::optional<std::filesystem::path> guion;
    const Reloj* reloj = nullptr;
    EntornoPlataforma entorno = EntornoPlataforma::Actual();
    RaicesLinux raices;
    EjecutarOrden ejecutar = EjecutarEnSistema;
    // Whether NetworkManager's links are watched too when it is on the
    // system bus; off, only pppd's are.
    bool networkManager = true;
};

// The scripted modem is one object behind the first four interfaces, so a
// hang-up through `marcador` shows in `conexiones`.
struct Plataforma {
    std::shared_ptr<FuenteConexiones> conexiones;
    std::shared_ptr<Marcador> marcador;
    std::shared_ptr<ListaEntradas> entradas;
    std::shared_ptr<ListaModems> modems;
    std::shared_ptr<CargaAlIniciar> cargaAlIniciar;
    std::shared_ptr<InstanciaUnica> instancia;
    // The sessions the system recorded by itself (the pppd journal); none
    // for the scripted modem, which writes its modem log directly.
    std::shared_ptr<TomaDiario> diario;
    // Where the links come from, in one line for the user.
    std::string origen;
};

// The session log of the scripted modem when VORIMESK_MODEMLOG is not set.
inline constexpr const char* kModemLogSimulado = "ModemLogSimulado.txt";

// Throws ErrorArchivo or Error (Spanish) when the script cannot be read.
Plataforma CrearPlataforma(const OpcionesPlataforma& opciones);

// The single-instance lock of a data folder alone, for a program that must
// not change the folder's files while a meter holds them (the tariff editor).
std::shared_ptr<InstanciaUnica> CrearInstanciaUnica(const std::filesystem::path& carpetaDatos);

// The line Plataforma::origen would hold, without starting the platform.
std::string OrigenConexiones(const OpcionesPlataforma& opciones);

} // namespace vorimesk
