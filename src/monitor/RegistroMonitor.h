#pragma once
// What the monitor needs of the call register: the modem log it fills from,
// the start of the last session in that log, and saving.

#include "core/Fecha.h"

#include <vector>

namespace vorimesk {

class cBono;
class colConexion;

// DateConexion's answer for a missing, empty or session-less modem log.
inline constexpr Fecha kSinSesion = Fecha::DesdeSegundos(Fecha::kSegundosDia);

class RegistroMonitor {
public:
    virtual ~RegistroMonitor() = default;
    virtual bool ExisteModemLog() const = 0;
    // Appends the finished calls of the modem log; true when the log held a
    // finished session and has been deleted.
    virtual bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                           colConexion& pendientes) = 0;
    // Start of the last session in the modem log, or kSinSesion.
    virtual Fecha DateConexion() const = 0;
    virtual int Count() const = 0;
    virtual void SalvarLog() = 0;
    // A call the monitor watched from `inicio` has ended: a register fed by
    // a session journal awaits the session that covers it.
    virtual void LlamadaTerminada(Fecha /*inicio*/) {}
};

} // namespace vorimesk
