#pragma once
// A modem that follows a script (Guion) instead of the telephone line, for
// tests and demonstrations. Time comes from the injected clock, so moving the
// clock plays the script. It reports the codes of the Linux backend in the
// same order (-1, 3 while dialling, 2 while up, 0 on the look after the call
// and -1 from then on, -1 after a failed dial) and writes the session log the pppd hook would
// write, each block stamped with the moment it belongs to even when the clock jumps.

#include "core/Reloj.h"
#include "monitor/Marcador.h"
#include "platform/FuenteConexiones.h"
#include "platform/ListaEntradas.h"
#include "platform/ListaModems.h"
#include "platform/simulated/Guion.h"

#include <cstddef>

namespace vorimesk {

class ModemSimulado final : public FuenteConexiones,
                            public Marcador,
                            public ListaEntradas,
                            public ListaModems {
public:
    // The script starts at the clock's present moment.
    ModemSimulado(Guion guion, const Reloj& reloj, std::filesystem::path rutaLog);

    // Plays the script up to now (writing the log) and looks at the result.
    // Throws ErrorArchivo when the log cannot be written.
    LecturaConexion Leer() override;

    // The script decides when calls happen: a dial is only noted.
    void Marcar(const std::string& entrada) override;
    // Ends the call of that entry now, as a user hanging up: a link that is
    // up closes with the bytes moved so far, a dial becomes a failed one.
    // The rest of the script moves on from this moment.
    int Colgar(const std::string& entrada) override;
    int UltimoResultado() const override { return 0; }
    const std::vector<std::string>& Marcadas() const { return marcadas_; }

    std::vector<std::string> Entradas() const override { return guion_.Entradas(); }
    // "sim0", "sim1"... with the models of the script, all on the one log.
    std::vector<Modem> Modems() const override;

private:
    void Avanzar(Fecha ahora);
    bool EnCurso() const;
    Fecha Conexion() const;
    Trafico TraficoHasta(Fecha ahora) const;
    void Anexar(const std::string& bloque);

    Guion guion_;
    std::vector<PasoGuion> pasos_; // the script, shortened where calls were hung up
    const Reloj& reloj_;
    std::filesystem::path rutaLog_;
    std::vector<std::string> marcadas_;

    std::size_t paso_ = 0; // the step in progress
    Fecha inicioPaso_;     // when it began
    bool subido_ = false;  // its "in use" block is written
    bool trasLlamada_ = false;
    std::string entradaUltima_;
    Trafico traficoUltimo_;
    SesionEnlace sesionUltima_;
};

} // namespace vorimesk
