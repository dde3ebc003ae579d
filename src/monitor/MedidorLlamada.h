#pragma once
// The live meter: on every tick the running call is priced again from its
// start to now (nothing is carried between ticks, so a tariff edited during
// the call counts at once) and its figures are put on the display.

#include "LecturaMedidor.h"
#include "PantallaMonitor.h"
#include "settings/Settings.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <cstdint>
#include <string>

namespace vorimesk {

// Shown in place of the cost while the entry's tariff is not in the book.
inline constexpr const char* kTarifaDesconocida = "tarifa desconocida";

class MedidorLlamada {
public:
    // Reads the options and the program's ledger at every tick.
    MedidorLlamada(const Settings& ajustes, const cBono& bono);

    // Prices the call with the entry's tariff ("Metropolitana" when the entry
    // has none), drawing on the ledger only when its discount is "BonoNet";
    // `grupoBono` is the bundle group whose spent and left times are wanted.
    LecturaMedidor Medir(cLlamada& libro, Fecha inicio, Fecha ahora, const std::string& entrada,
                         std::int16_t grupoBono) const;

    // lTiempo and its band colour, lGasto, lTarifa, lBono, the bono labels
    // (left alone when the discount is not "BonoNet") and the tray tip.
    void Mostrar(const LecturaMedidor& lectura, PantallaMonitor& pantalla) const;

    // "Normal" or "Reducida" for a band code.
    static std::string TextoBanda(std::int16_t tipo);
    static std::string PuntaBandeja(const LecturaMedidor& lectura);

private:
    const Settings& ajustes_;
    const cBono& bono_;
};

} // namespace vorimesk
