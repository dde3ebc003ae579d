#pragma once
// The headless meter of `vigilar`: the user's session (settings, ledger,
// pending list, register), the platform and the monitor, put together over
// one data folder. The caller drives it one tick per second of meter time and
// saves at the end; when files are written is the session's rule.

#include "ObservadorVigilancia.h"
#include "monitor/MonitorConexion.h"
#include "platform/LineaPlataforma.h"
#include "platform/Plataforma.h"
#include "session/Sesion.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace vorimesk::cli {

struct OpcionesVigilar {
    std::optional<std::string> guion;  // --simular
    int velocidad = 1;                 // --velocidad, with --simular only
    std::optional<long> segundos;      // --segundos
    std::optional<std::string> inicio; // --inicio, the scripted modem's clock
    bool json = false;                 // --json: one JSON event per line
};

class Vigilancia {
public:
    // Reads the settings and starts the platform, writing nothing. Throws
    // Error (Spanish) when the script or a file cannot be read.
    Vigilancia(std::filesystem::path carpeta, const OpcionesVigilar& opciones,
               ObservadorVigilancia& observador);
    ~Vigilancia();

    // False when another copy of the meter already runs; then nothing more
    // is to be done.
    bool Adquirir();
    // Loads the register (creating an empty one) and starts the monitor.
    void Iniciar();
    // Looks at the connection, runs the monitor and tells the observer.
    void Paso();
    // Time of the scripted modem moves on by one second.
    void Avanzar();
    bool Simulada() const { return simulada_; }
    // The normal end: the ended calls still waiting for the system's
    // session are recorded, and the session writes what it keeps.
    void Guardar();

    const std::string& RutaModemLog() const { return rutaModemLog_; }

private:
    std::string RutaLogModem() const;
    void TomarSesionesDelSistema();

    std::filesystem::path carpeta_;
    bool simulada_;
    ObservadorVigilancia& observador_;

    RelojSistema relojSistema_;
    RelojFijo relojSimulado_;
    const Reloj* reloj_;

    Sesion sesion_;
    Plataforma plataforma_;
    std::string rutaModemLog_;
    std::unique_ptr<LineaPlataforma> linea_;
    std::unique_ptr<MonitorConexion> monitor_;
};

} // namespace vorimesk::cli
