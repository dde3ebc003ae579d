#pragma once
// Where a system records every finished link session by itself, also while
// the meter is closed (on Linux, the journal of the pppd hook). The meter
// takes the sessions it has not taken yet and feeds each one, in order, as a
// modem log through the register's unchanged log reader. Calls nobody saw
// start get the tariff and discount of the entry named by their peer.

#include "core/Fecha.h"
#include "register/Log.h"
#include "settings/Settings.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

#include <optional>
#include <string>

namespace vorimesk {

class TomaSesiones {
public:
    struct Resultado {
        int Añadidas = 0;               // calls that entered the register
        int Tomadas = 0;                // sessions taken
        std::optional<Fecha> UltimoFin; // end of the latest session taken (local time)
        std::string Error;              // Spanish; what was taken before it stands
    };

    virtual ~TomaSesiones() = default;
    // Appends the calls of the sessions not taken yet to `log`, saves the
    // register when it got any and remembers them as taken. `log` must have
    // been loaded from its file.
    virtual Resultado Tomar(Log& log, const Settings& ajustes, cBono& bono,
                            colConexion& pendientes) = 0;
    // False when the system keeps no sessions at all (the hook is not
    // installed): then there is nothing to wait for at the end of a call.
    virtual bool HaySesiones() const = 0;
};

} // namespace vorimesk
