#pragma once
// Where a system records every finished link session by itself, also while
// the meter is closed (on Linux, the journal of the pppd hook). The meter
// takes the sessions it has not taken yet and feeds each one, in order, as a
// modem log through the register's unchanged log reader. Calls nobody saw
// start get the tariff and discount of the entry named by their peer. A
// session of a call already recorded from the meter's own record
// (PropiasAnotadas) replaces that call instead of adding one.

#include "LlamadaVista.h"
#include "RegistroMonitor.h"
#include "core/Fecha.h"
#include "register/Log.h"
#include "settings/Settings.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

class TomaDiario {
public:
    struct Resultado {
        int Añadidas = 0;                     // calls that entered the register
        int Corregidas = 0;                   // calls of the meter's own records corrected in place
        std::vector<LlamadaAnotada> Entradas; // the sessions that entered as new calls
        int Tomadas = 0;                      // sessions taken
        std::optional<Fecha> UltimoFin;       // end of the latest session taken (local time)
        std::string Error;                    // Spanish; what was taken before it stands
    };

    virtual ~TomaDiario() = default;
    // Appends the calls of the sessions not taken yet to `log`, saves the
    // register when it got any and remembers them as taken. `log` must have
    // been loaded from its file.
    virtual Resultado Tomar(Log& log, const Settings& ajustes, cBono& bono,
                            colConexion& pendientes) = 0;
    // False when the system keeps no sessions at all (the hook is not
    // installed): then there is nothing to wait for at the end of a call.
    virtual bool HaySesiones() const = 0;
    // Whether the session of a link that went down may still come: the
    // journal is there and can be read, the hook ran at the link's start and
    // the pppd of `pid` has not exited (with `pid` 0, unknown, it may). Once
    // false, the meter's own record is the call; a session that comes after
    // all corrects it.
    virtual bool PuedeLlegar(const std::string& interfaz, int pid) const = 0;
    // The meter's own record of a call has just entered the register: kept
    // so its session, if it comes after all, corrects that call. Throws
    // ErrorArchivo.
    virtual void Anotada(const LlamadaVista& vista) = 0;
};

} // namespace vorimesk
