#include "PrevisionPeriodo.h"

#include "tariff/PeriodosFacturacion.h"

#include <algorithm>
#include <cstdint>

namespace vorimesk {

PrevisionPeriodo Prever(const Log& registro, const DatosPrevision& datos, Fecha hoy) {
    hoy = hoy.SoloFecha();
    const Fecha primera = registro.Count() > 0 ? registro.Dia(0) : hoy;
    const PeriodoFacturacion periodo =
        PeriodoCompleto(datos.DiaFactura, datos.perFactura, primera, hoy);
    PrevisionPeriodo p;
    p.Inicio = periodo.inicio;
    p.Fin = periodo.fin;
    p.DiasPeriodo = static_cast<int>(p.Fin.Dias() - p.Inicio.Dias()) + 1;
    p.DiasTranscurridos = static_cast<int>(hoy.Dias() - p.Inicio.Dias()) + 1;
    p.DiasQuedan = p.DiasPeriodo - p.DiasTranscurridos;
    std::int64_t centimos = 0; // summed as the grid shows each call
    for (int i = 0; i < registro.Count(); ++i) {
        const Fecha dia = registro.Dia(i).SoloFecha();
        if (p.Inicio <= dia && dia <= hoy) {
            centimos += CentimosMostrados(registro, i, datos.Coste);
            ++p.Llamadas;
        }
    }
    p.Gastado = static_cast<double>(centimos) / 100.0;
    p.Proyeccion = p.Gastado * p.DiasPeriodo / p.DiasTranscurridos;
    p.Presupuesto = datos.Presupuesto;
    if (p.Presupuesto) {
        p.SuperaPresupuesto = p.Proyeccion > *p.Presupuesto;
        if (p.DiasQuedan > 0) {
            p.PorDiaRestante = std::max(0.0, (*p.Presupuesto - p.Gastado) / p.DiasQuedan);
        }
    }
    return p;
}

} // namespace vorimesk
