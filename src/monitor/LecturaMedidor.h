#pragma once
// The figures of the running call on one tick of the live meter.

#include <cstdint>
#include <string>

namespace vorimesk {

struct LecturaMedidor {
    std::string Entrada;
    std::string NombreTarifa;
    bool ConBono = false; // the entry's discount is "BonoNet"
    // Whether the book knew the tariff; when it did not, the figures below
    // are the book's previous ones, as they were left.
    bool Tasada = false;
    std::string Duracion; // hh:mm:ss
    float importe = 0.0f;
    float Coste = 0.0f;     // importe with taxes when they are added
    std::string TextoCoste; // Coste as shown, "0.00"
    // Band and bundle state at the moment priced last (the end of the
    // interval, that is now), not at the call's start: a call that crosses
    // 18:00 shows the reduced band from 18:00 on, and "BonoNet" goes when
    // the bundle runs out.
    std::int16_t BandaAhora = 0;
    bool BonoAhora = false;
    // The selected bundle group as the running call leaves it (ConBono only).
    std::int16_t BonosGrupo = 0;
    std::string BonoGastado;
    std::string BonoQueda;
};

} // namespace vorimesk
