#pragma once
// Taking a finished call from the modem log. The log may not hold the
// call's closing lines yet when the link goes down (pppd runs its ip-down
// hook after the interface is gone), so the register is asked again on later
// ticks; and a log that never gets them (the hook failed, the machine lost
// power) must not stop the meter. So the wait is bounded: the register is
// asked at most a few times per tick while the log is there, for at most
// `segundosMaximos` after the call ended. Then the wait is given up and the
// log left as it is: its sessions are read with the next call's, since the
// reader takes every finished session the log holds.

#include "RegistroMonitor.h"
#include "core/Fecha.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vorimesk {

class EsperaLogModem {
public:
    static constexpr std::int64_t kSegundosPorDefecto = 120;
    static constexpr int kIntentosPorTick = 3;

    explicit EsperaLogModem(std::int64_t segundosMaximos = kSegundosPorDefecto);

    struct Resultado {
        int Añadidas = 0;        // calls that entered the register
        bool Terminada = false;  // the log was read to the end and is gone
        bool Abandonada = false; // the log never completed: the wait is over
        std::string Error;       // a failure of the register, the wait is over
    };

    // Starts waiting (a call ended at `ahora`).
    void Empezar(Fecha ahora);
    // Stops waiting without reading: a new call began, whose end will read
    // the log again.
    void Cancelar() { esperando_ = false; }
    bool Esperando() const { return esperando_; }

    // Asks the register to append from the log while it is there. Does
    // nothing when not waiting.
    Resultado Intentar(Fecha ahora, RegistroMonitor& registro, cBono& bono,
                       const std::vector<Fecha>& festivos, colConexion& pendientes);

private:
    std::int64_t segundosMaximos_;
    bool esperando_ = false;
    Fecha desde_;
};

} // namespace vorimesk
