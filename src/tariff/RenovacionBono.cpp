#include "RenovacionBono.h"

#include "cBono.h"

namespace vorimesk {

MesBono MesBonoDe(Fecha hoy, int diaFactura) {
    const Fecha dia = hoy.SoloFecha();
    int año = dia.Año();
    int mes = dia.Mes();
    // At most two steps back: one month always holds a billing day reached.
    for (;;) {
        const Fecha inicio = Fecha::Crear(año, mes, 1).MasDias(diaFactura - 1);
        if (inicio <= dia) {
            return {mes, inicio};
        }
        if (--mes < 1) {
            mes = 12;
            --año;
        }
    }
}

bool RenovarBonoMensual(cBono& bono, std::uint8_t& mesReinicio, Fecha hoy) {
    const MesBono mes = MesBonoDe(hoy, bono.DiaFactura());
    if (mes.mes == mesReinicio) {
        return false;
    }
    bono.Reset(mes.inicio);
    mesReinicio = static_cast<std::uint8_t>(mes.mes);
    return true;
}

} // namespace vorimesk
