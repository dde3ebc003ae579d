#pragma once
// The meter of `vigilar` over one data folder: its clock (the system's, or
// the scripted modem's that the loop moves on) and the Contador, whose
// events the observers turn into lines, JSON and notifications.

#include "meter/Contador.h"
#include "meter/ObservadorContador.h"

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
               ObservadorContador& observador);
    ~Vigilancia();

    // False when another copy of the meter already runs; then nothing more
    // is to be done.
    bool Adquirir();
    // Loads the register (creating an empty one) and takes the calls made
    // while the meter was closed.
    void Iniciar();
    // One second of the meter.
    void Paso() { contador_->Paso(); }
    // Time of the scripted modem moves on by one second.
    void Avanzar() { relojSimulado_.Avanzar(1); }
    bool Simulada() const { return simulada_; }
    // The normal end: every ended call is recorded and the session writes
    // what it keeps.
    void Guardar() { contador_->Parar(); }

private:
    bool simulada_;
    RelojSistema relojSistema_;
    RelojFijo relojSimulado_;
    std::unique_ptr<Contador> contador_;
};

} // namespace vorimesk::cli
