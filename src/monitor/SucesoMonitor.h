#pragma once
// Things that happen on a tick and that the caller carries out or reports:
// sounds, programs, the mini window, the register's refill. The monitor
// itself only changes its state and the display values.

#include "core/Fecha.h"

#include <string>

namespace vorimesk {

// Why the alert sound plays.
enum class MotivoAviso { Conectar, Desconectar, Tiempo, Importe, Bono, Hora };

struct SucesoMonitor {
    enum class Tipo {
        LlamadaIniciada,  // texto = entry; the display holds tariff and discount
        LlamadaTerminada, // a call was closed (the log may still be awaited)
        Sonar,            // play the sound file `texto` for `motivo`
        LanzarPrograma,   // start `texto` minimised, without focus or waiting
        MostrarMini,      // show the mini window ("&Ventana normal" in the tray)
        LlamadasAnotadas, // `llamadas` calls entered the register, already saved
        RellenarRegistro, // refill the register grid up to today
        LogSinCerrar,     // the modem log never got its closing lines: left for later
        ErrorRegistro,    // `texto`: a Spanish message about the register or its log
        BonoRenovado,     // the monthly renewal refilled the ledger's bundles
        // `texto`: calls are being recorded from the meter's own records, as
        // no session log of the system came for them; told once per run.
        SinRegistroSistema,
        // `llamadas` calls recorded from the meter's own records were
        // corrected in place by their late system sessions, already saved
        LlamadasCorregidas,
        // `texto`: a dial the user asked for neither came up nor failed in
        // time, or the system refused it; the button was let go
        MarcadoFallido,
        // The limits of the connection's plan (`texto` says which and how
        // far): a notice; new dials refused until the cycle renews; a
        // countdown of `llamadas` seconds before the call is hung up; the
        // hang-up itself; the countdown cancelled by the user.
        LimiteAviso,
        LimiteNoMarcar,
        LimiteCuentaAtras,
        LimiteColgado,
        LimiteCuentaCancelada,
        // `texto`: a dial refused by a limit, with the reason
        MarcadoRechazado,
    };

    Tipo tipo;
    std::string texto;
    MotivoAviso motivo = MotivoAviso::Conectar;
    int llamadas = 0;

    bool operator==(const SucesoMonitor&) const = default;
};

// Whether the event changed what a crash must not lose: a new pending
// connection (a call began), calls in the register and the bundle time they
// used, or bundles renewed. The caller then writes the ledger, the pending
// list and the settings at once (the register is already saved).
inline bool PideGuardarSesion(const SucesoMonitor& s) {
    return s.tipo == SucesoMonitor::Tipo::LlamadaIniciada ||
           s.tipo == SucesoMonitor::Tipo::LlamadasAnotadas ||
           s.tipo == SucesoMonitor::Tipo::LlamadasCorregidas ||
           s.tipo == SucesoMonitor::Tipo::BonoRenovado;
}

} // namespace vorimesk
