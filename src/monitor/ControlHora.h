#pragma once
// The clock timer: the date and time on show, the "A la hora" alert and the
// monthly renewal of the BonoNet bundles.
//
// "A la hora": while the option is on, the alert sounds once each time the
// clock passes HoraAviso's time of day, that is when the time is reached
// between the previous tick and this one. The first tick after start only
// takes note of the time, so starting the program after the hour does not
// sound; a clock that jumps over the hour (the machine slept) sounds once.
//
// Monthly renewal: bundles are renewed on the billing day. The billing
// period in force starts on the last billing day that has come (DiaFactura of
// this month, or of last month before that day; a day the month lacks
// becomes its last day). When MesReinicio is not that day's month, the
// ledger is renewed from that day (cBono::Reset with the date) and
// MesReinicio becomes that month, so the renewal runs once per month
// however often the clock ticks, and catches up when the program was not
// running on the billing day.

#include "core/Fecha.h"
#include "settings/Settings.h"
#include "tariff/cBono.h"

#include <optional>
#include <string>

namespace vorimesk {

class ControlHora {
public:
    struct Resultado {
        std::string FechaHoy;  // "dd-mmm-yyyy", months as "ene", "feb"...
        std::string HoraAhora; // "hh:mm:ss"
        bool Sonar = false;    // "A la hora" sounds
        bool Renovado = false; // the bundles were renewed
    };

    Resultado Tick(Fecha ahora, Settings& ajustes, cBono& bono);

    // The start of the billing period in force on `hoy` for billing day `dia`.
    static Fecha InicioPeriodo(Fecha hoy, int dia);
    static std::string TextoFecha(Fecha fecha);
    static std::string TextoHora(Fecha fecha);

private:
    std::optional<Fecha> anterior_;
};

} // namespace vorimesk
