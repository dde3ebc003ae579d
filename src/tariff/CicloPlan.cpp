#include "CicloPlan.h"

#include <algorithm>

namespace vorimesk {
namespace {

int DiasDelMes(int año, int mes) {
    return Fecha::Crear(año, mes, 1).MasMeses(1).MasDias(-1).Dia();
}

// Where the monthly cycle of the month of `primero` (day 1) starts.
Fecha InicioMensual(Fecha primero, int dia) {
    return primero.MasDias(std::min(dia, DiasDelMes(primero.Año(), primero.Mes())) - 1);
}

std::int64_t DivisionAbajo(std::int64_t a, std::int64_t b) {
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)) ? 1 : 0);
}

} // namespace

Fecha FinSinRenovar() {
    return Fecha::Crear(9999, 12, 31);
}

std::optional<PeriodoFacturacion> CicloEn(const CicloConexion& ciclo, Fecha dia) {
    dia = dia.SoloFecha();
    switch (ciclo.Tipo) {
    case CicloConexion::Forma::Mensual: {
        const Fecha primero = Fecha::Crear(dia.Año(), dia.Mes(), 1);
        Fecha inicio = InicioMensual(primero, ciclo.Dia);
        Fecha siguiente = InicioMensual(primero.MasMeses(1), ciclo.Dia);
        if (dia < inicio) {
            siguiente = inicio;
            inicio = InicioMensual(primero.MasMeses(-1), ciclo.Dia);
        }
        return PeriodoFacturacion{inicio, siguiente.MasDias(-1)};
    }
    case CicloConexion::Forma::CadaDias: {
        const std::int64_t n = std::max(1, ciclo.CadaDias);
        const std::int64_t desde = ciclo.Desde.SoloFecha().Dias();
        const Fecha inicio =
            ciclo.Desde.SoloFecha().MasDias(DivisionAbajo(dia.Dias() - desde, n) * n);
        return PeriodoFacturacion{inicio, inicio.MasDias(n - 1)};
    }
    case CicloConexion::Forma::Bolsa:
        if (dia < ciclo.Desde.SoloFecha()) {
            return std::nullopt;
        }
        return PeriodoFacturacion{ciclo.Desde.SoloFecha(), FinSinRenovar()};
    }
    return std::nullopt;
}

} // namespace vorimesk
