#include "PrecioVolumen.h"

#include <algorithm>

namespace vorimesk {
namespace {

// Normal seconds of [desde, hasta) inside one day (seconds of that day).
std::int64_t NormalesDelDia(const RegistroTarifa& r, int tipoDia, std::int64_t desde,
                            std::int64_t hasta) {
    const std::int64_t ni = r.Inicio(tipoDia, RegistroTarifa::kNormal);
    const std::int64_t nf = r.Fin(tipoDia, RegistroTarifa::kNormal);
    if (ni == nf) {
        return 0;
    }
    return std::max<std::int64_t>(0, std::min(hasta, nf + 1) - std::max(desde, ni));
}

} // namespace

std::int64_t SegundosReducida(const cLlamada& libro, std::int16_t tarifa, Fecha inicio, Fecha fin) {
    const RegistroTarifa& r = libro.Tarifa(tarifa);
    std::int64_t normales = 0;
    for (Fecha s = inicio; s < fin;) {
        const Fecha mañana = s.SoloFecha().MasDias(1);
        const Fecha hasta = std::min(fin, mañana);
        const std::int64_t base = s.SoloFecha().Segundos();
        normales +=
            NormalesDelDia(r, libro.TipoDia(s), s.Segundos() - base, hasta.Segundos() - base);
        s = hasta;
    }
    return std::max<std::int64_t>(0, fin.Segundos() - inicio.Segundos()) - normales;
}

std::int64_t VolumenContado(const PlanDatos& plan, std::int64_t kb, std::int64_t segundos,
                            std::int64_t segundosReducida) {
    kb = std::max<std::int64_t>(0, kb);
    const std::int64_t paso = std::max<std::int64_t>(1, plan.PasoKB);
    std::int64_t numerador = kb;
    std::int64_t denominador = paso;
    if (plan.ReducidaGratis && segundos > 0) {
        numerador = kb * (segundos - std::clamp<std::int64_t>(segundosReducida, 0, segundos));
        denominador = segundos * paso;
    }
    return (numerador + denominador - 1) / denominador * paso;
}

double ImporteVolumen(const PlanDatos& plan, std::int64_t contadoKB, std::int64_t usadoKB) {
    const double incluidoKB = plan.IncluidoMB * 1024.0;
    const double quedaKB = std::max(0.0, incluidoKB - static_cast<double>(usadoKB));
    const double excesoKB = static_cast<double>(contadoKB) - quedaKB;
    if (excesoKB <= 0) {
        return 0.0;
    }
    return std::max(excesoKB / 1024.0 * plan.PrecioMB, plan.MinimoSesion);
}

} // namespace vorimesk
