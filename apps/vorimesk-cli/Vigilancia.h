#pragma once
// The headless meter of `vigilar`: the settings, the register, the platform
// and the monitor, put together over one data folder. The caller drives it
// one tick per second of meter time and saves at the end.

#include "LineaMarcador.h"
#include "monitor/MonitorConexion.h"
#include "monitor/RegistroLog.h"
#include "platform/Plataforma.h"
#include "register/Log.h"

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

namespace vorimesk::cli {

struct OpcionesVigilar {
    std::optional<std::string> guion;  // --simular
    int velocidad = 1;                 // --velocidad, with --simular only
    std::optional<long> segundos;      // --segundos
    std::optional<std::string> inicio; // --inicio, the scripted modem's clock
};

class Vigilancia {
public:
    // Reads the settings and starts the platform, writing nothing. Throws
    // Error (Spanish) when the script or a file cannot be read.
    Vigilancia(std::filesystem::path carpeta, const OpcionesVigilar& opciones, std::ostream& salida,
               std::ostream& errores, bool terminal);
    ~Vigilancia();

    // False when another copy of the meter already runs; then nothing more
    // is to be done.
    bool Adquirir();
    // Loads the register (creating an empty one) and starts the monitor.
    void Iniciar();
    // Looks at the connection, runs the monitor and writes what it shows.
    void Paso();
    // Time of the scripted modem moves on by one second.
    void Avanzar();
    bool Simulada() const { return simulada_; }
    // Writes the register and the settings file.
    void Guardar();
    // Writes the settings file with the ledger and the pending list.
    void GuardarAjustes();
    // Ends the status line of a terminal.
    void Terminar();

    const std::string& RutaModemLog() const { return rutaModemLog_; }

private:
    std::string RutaLogModem() const;
    static MonitorConexion::Opciones OpcionesMonitor();
    void Escribir(const std::string& linea, bool suceso);
    // On the error stream, clearing a status line left on the terminal.
    void Avisar(const std::string& linea);

    std::filesystem::path carpeta_;
    bool simulada_;
    std::ostream& salida_;
    std::ostream& errores_;
    bool terminal_;
    bool lineaAbierta_ = false;

    RelojSistema relojSistema_;
    RelojFijo relojSimulado_;
    const Reloj* reloj_;

    Settings ajustes_;
    cBono bono_;
    colConexion pendientes_;
    Plataforma plataforma_;
    std::string rutaModemLog_;
    Log log_;
    RegistroLog registro_;
    std::unique_ptr<LineaMarcador> linea_;
    std::unique_ptr<MonitorConexion> monitor_;
};

} // namespace vorimesk::cli
