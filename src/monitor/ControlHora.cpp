#include "ControlHora.h"

#include <algorithm>
#include <cstdio>

namespace vorimesk {
namespace {

const char* const kMeses[] = {"ene", "feb", "mar", "abr", "may", "jun",
                              "jul", "ago", "sep", "oct", "nov", "dic"};

std::string Dos(int n) {
    char t[8];
    std::snprintf(t, sizeof t, "%02d", n);
    return t;
}

// Day `dia` of the month of `fecha`, or that month's last day.
Fecha DiaDelMes(Fecha fecha, int dia) {
    const Fecha primero = fecha.SoloFecha().MasDias(1 - fecha.Dia());
    const int ultimo = primero.MasMeses(1).MasDias(-1).Dia();
    return primero.MasDias(std::clamp(dia, 1, ultimo) - 1);
}

} // namespace

Fecha ControlHora::InicioPeriodo(Fecha hoy, int dia) {
    const Fecha esteMes = DiaDelMes(hoy, dia);
    if (hoy.SoloFecha() >= esteMes) {
        return esteMes;
    }
    const Fecha primero = hoy.SoloFecha().MasDias(1 - hoy.Dia());
    return DiaDelMes(primero.MasMeses(-1), dia);
}

std::string ControlHora::TextoFecha(Fecha f) {
    return Dos(f.Dia()) + "-" + kMeses[f.Mes() - 1] + "-" + std::to_string(f.Año());
}

std::string ControlHora::TextoHora(Fecha f) {
    return Dos(f.Hora()) + ":" + Dos(f.Minuto()) + ":" + Dos(f.Segundo());
}

ControlHora::Resultado ControlHora::Tick(Fecha ahora, Settings& ajustes, cBono& bono) {
    Resultado r;
    r.FechaHoy = TextoFecha(ahora);
    r.HoraAhora = TextoHora(ahora);

    Fecha pasoHora = ahora.SoloFecha().MasSegundos(ajustes.HoraAviso.SegundosDelDia());
    if (pasoHora > ahora) {
        pasoHora = pasoHora.MasDias(-1);
    }
    r.Sonar = ajustes.AvisoHora && anterior_ && *anterior_ < pasoHora;
    anterior_ = ahora;

    const Fecha inicio = InicioPeriodo(ahora, bono.DiaFactura());
    if (ajustes.MesReinicio != inicio.Mes()) {
        bono.Reset(inicio);
        ajustes.MesReinicio = static_cast<std::uint8_t>(inicio.Mes());
        r.Renovado = true;
    }
    return r;
}

} // namespace vorimesk
