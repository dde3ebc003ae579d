#pragma once
// The three threshold alerts of a call (time, cost, bundle left). Each one
// sounds only while its option is on and it is armed, and sounding disarms
// it: at most once per arming, however long the call stays past the limit.
// All three are armed at start and again when a call ends; ticking an
// alert's option box arms that one.

#include "LecturaMedidor.h"
#include "SucesoMonitor.h"
#include "settings/Settings.h"

#include <vector>

namespace vorimesk {

class AvisosLlamada {
public:
    enum class Umbral { Tiempo = 0, Importe = 1, Bono = 2 };

    void ArmarTodos();
    void Armar(Umbral umbral);
    bool Armado(Umbral umbral) const;

    // The alerts that sound on this tick, in the order time, cost, bundle:
    // - time: the call has lasted longer than TiempoAviso;
    // - cost: ImporteAviso (its leading number; text that is none reads as
    //   0) is below the cost as shown, taxes included;
    // - bundle: with the "BonoNet" discount, the selected group holds
    //   bundles and what they have left has come down to BonoAviso or below.
    std::vector<MotivoAviso> Comprobar(const Settings& ajustes, const LecturaMedidor& lectura);

private:
    bool Disparar(Umbral umbral, bool opcion, bool superado);

    bool armados_[3] = {true, true, true};
};

} // namespace vorimesk
