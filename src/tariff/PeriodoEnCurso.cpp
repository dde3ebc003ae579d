#include "PeriodoEnCurso.h"

#include "cPeriodo.h"

#include <string>

namespace vorimesk {

PeriodoFacturacion PeriodoEnCurso(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera,
                                  Fecha hoy) {
    cPeriodo periodos;
    periodos.Datos(diaFactura, perFactura);
    periodos.Periodos(primera.SoloFecha(), hoy.SoloFecha());
    // Walking from the range start lists every period; the last one is today's.
    const std::string ultimo = periodos.PeriodoActual(primera.SoloFecha());
    if (ultimo.empty()) {
        return {hoy.SoloFecha(), hoy.SoloFecha()};
    }
    return {cPeriodo::FechaIni(ultimo), cPeriodo::FechaFin(ultimo)};
}

} // namespace vorimesk
