#include "PeriodosFacturacion.h"

#include "cPeriodo.h"

#include <string>

namespace vorimesk {

std::vector<PeriodoFacturacion>
PeriodosFacturacion(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera, Fecha hasta) {
    cPeriodo periodos;
    periodos.Datos(diaFactura, perFactura);
    periodos.Periodos(primera.SoloFecha(), hasta.SoloFecha());
    std::vector<PeriodoFacturacion> lista;
    for (std::string p = periodos.Periodo(); !p.empty(); p = periodos.Periodo()) {
        if (p != cPeriodo::kOtro) {
            lista.push_back({cPeriodo::FechaIni(p).SoloFecha(), cPeriodo::FechaFin(p).SoloFecha()});
        }
    }
    return lista;
}

PeriodoFacturacion PeriodoCompleto(std::uint8_t diaFactura, std::uint8_t perFactura, Fecha primera,
                                   Fecha hoy) {
    hoy = hoy.SoloFecha();
    // Far enough for any interval: the period that holds today is then never
    // cut short at the range end.
    constexpr int kHorizonteDias = 400;
    for (const PeriodoFacturacion& p :
         PeriodosFacturacion(diaFactura, perFactura, primera, hoy.MasDias(kHorizonteDias))) {
        if (p.inicio <= hoy && hoy <= p.fin) {
            return p;
        }
    }
    return {hoy, hoy};
}

} // namespace vorimesk
