#pragma once
// The meter's output for people. On a terminal a status line is rewritten
// in place every tick and each event gets a line above it; anywhere else (a
// pipe, a file, the journal of a service) only the events are written, each
// on its own line with the meter's time, so a day's log holds calls and
// alerts, not 86,400 status lines.

#include "meter/ObservadorContador.h"

#include <iosfwd>

namespace vorimesk::cli {

class SalidaTexto final : public ObservadorContador {
public:
    SalidaTexto(std::ostream& salida, std::ostream& errores, bool terminal);

    void Comienzo(const InicioContador& inicio) override;
    void Lectura(const MomentoContador& m) override;
    void Suceso(const SucesoMonitor& s, const MomentoContador& m) override;
    void Tick(const MomentoContador& m) override;
    void Error(const std::string& texto) override;
    void Fin() override;

private:
    void Linea(const MomentoContador& m, const std::string& texto);
    void CerrarEstado();
    // On the error stream, clearing a status line left on the terminal.
    void Avisar(const std::string& texto);

    std::ostream& salida_;
    std::ostream& errores_;
    bool terminal_;
    bool lineaAbierta_ = false;
    CambioEstado cambio_;
};

} // namespace vorimesk::cli
