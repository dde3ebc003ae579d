#include "GraficoRegistro.h"

#include "Importe.h"
#include "core/Errores.h"
#include "core/Numero.h"

#include <algorithm>
#include <array>
#include <limits>

namespace vorimesk {
namespace {

const std::array<std::string, 12> kMesesCortos = {"ene", "feb", "mar", "abr", "may", "jun",
                                                  "jul", "ago", "sep", "oct", "nov", "dic"};
const std::array<std::string, 12> kMeses = {"Enero",      "Febrero", "Marzo",     "Abril",
                                            "Mayo",       "Junio",   "Julio",     "Agosto",
                                            "Septiembre", "Octubre", "Noviembre", "Diciembre"};

// A day's cost is a whole number: each call's amount is added and the sum
// rounded half to even, as an integer total of the register always was.
std::int32_t SumarCoste(std::int32_t coste, const std::string& importe) {
    const double suma = RedondeoBancario(static_cast<double>(coste) + LeerImporte(importe));
    if (suma > std::numeric_limits<std::int32_t>::max() ||
        suma < std::numeric_limits<std::int32_t>::min()) {
        throw ErrorDesbordamiento("el gasto de un dia no cabe en 32 bits");
    }
    return static_cast<std::int32_t>(suma);
}

int DiasDelMes(int año, int mes) {
    const Fecha primero = Fecha::Crear(año, mes, 1);
    return static_cast<int>(primero.MasMeses(1).Dias() - primero.Dias());
}

// Sums the day values whose year (or month number) is `clave`, or gives 0
// when `clave` lies outside the first and last day's.
template <typename Clave>
float SumaEnRango(const std::vector<DiaGrafico>& dias, DatoGrafico dato, int clave, Clave de) {
    if (dias.empty() || clave < de(dias.front().dia) || clave > de(dias.back().dia)) {
        return 0.0F;
    }
    double suma = 0.0;
    for (const DiaGrafico& d : dias) {
        if (de(d.dia) == clave) {
            suma += ValorDia(d, dato);
        }
    }
    return static_cast<float>(suma);
}

std::vector<PuntoGrafico> Anual(const std::vector<DiaGrafico>& dias, DatoGrafico dato, Fecha hoy) {
    const int primero = dias.empty() ? hoy.Año() : std::min(hoy.Año(), dias.front().dia.Año());
    const int ultimo = dias.empty() ? hoy.Año() : std::max(hoy.Año(), dias.back().dia.Año());
    std::vector<PuntoGrafico> puntos;
    for (int año = primero; año <= ultimo; ++año) {
        puntos.push_back(
            {std::to_string(año), SumaEnRango(dias, dato, año, [](Fecha f) { return f.Año(); })});
    }
    return puntos;
}

std::vector<PuntoGrafico> Mensual(const std::vector<DiaGrafico>& dias, DatoGrafico dato) {
    std::vector<PuntoGrafico> puntos;
    for (int mes = 1; mes <= 12; ++mes) {
        puntos.push_back(
            {NombreCortoMes(mes), SumaEnRango(dias, dato, mes, [](Fecha f) { return f.Mes(); })});
    }
    return puntos;
}

std::vector<PuntoGrafico> Diario(const std::vector<DiaGrafico>& dias, DatoGrafico dato, int año,
                                 int mes) {
    std::vector<PuntoGrafico> puntos;
    const int n = DiasDelMes(año, mes);
    for (int p = 1; p <= n; ++p) {
        const Fecha dia = Fecha::Crear(año, mes, p);
        float valor = 0.0F;
        for (const DiaGrafico& d : dias) {
            if (d.dia == dia) {
                valor = ValorDia(d, dato);
                break;
            }
        }
        puntos.push_back({std::to_string(p), valor});
    }
    return puntos;
}

} // namespace

std::vector<DiaGrafico> AgregarPorDia(const Log& r) {
    std::vector<DiaGrafico> dias;
    for (int i = 0; i < r.Count(); ++i) {
        const Fecha dia = r.Dia(i);
        if (dias.empty() || dias.back().dia != dia) {
            dias.push_back({dia, SumarCoste(0, r.importe(i)), 1, cTiempo(r.Duracion(i)),
                            std::int64_t{r.Recibidos(i)} + r.Enviados(i)});
            continue;
        }
        DiaGrafico& d = dias.back();
        d.coste = SumarCoste(d.coste, r.importe(i));
        ++d.llamadas;
        d.tiempo.Sumar(r.Duracion(i));
        d.kb += std::int64_t{r.Recibidos(i)} + r.Enviados(i);
    }
    return dias;
}

float ValorDia(const DiaGrafico& d, DatoGrafico dato) {
    switch (dato) {
    case DatoGrafico::Llamadas:
        return static_cast<float>(d.llamadas);
    case DatoGrafico::Gasto:
        return static_cast<float>(d.coste);
    case DatoGrafico::Tiempo:
        return static_cast<float>(d.tiempo.ConvSegundos() / 3600.0);
    case DatoGrafico::MB:
        return static_cast<float>(static_cast<double>(d.kb) / 1024.0);
    }
    return 0.0F;
}

std::vector<ElementoCombo> ElementosCombo(const std::vector<DiaGrafico>& dias, VistaGrafico vista) {
    std::vector<ElementoCombo> elementos;
    if (dias.empty() || vista == VistaGrafico::Anual) {
        return elementos;
    }
    const Fecha primero = dias.front().dia;
    const Fecha ultimo = dias.back().dia;
    if (vista == VistaGrafico::Mensual) {
        for (int año = primero.Año(); año <= ultimo.Año(); ++año) {
            elementos.push_back({std::to_string(año), año, 0});
        }
        return elementos;
    }
    for (int año = primero.Año(), mes = primero.Mes();
         año < ultimo.Año() || (año == ultimo.Año() && mes <= ultimo.Mes());) {
        elementos.push_back({kMeses[mes - 1] + " " + std::to_string(año), año, mes});
        if (++mes > 12) {
            mes = 1;
            ++año;
        }
    }
    return elementos;
}

std::vector<PuntoGrafico> PuntosGrafico(const std::vector<DiaGrafico>& dias, VistaGrafico vista,
                                        DatoGrafico dato,
                                        const std::optional<ElementoCombo>& eleccion, Fecha hoy) {
    switch (vista) {
    case VistaGrafico::Anual:
        return Anual(dias, dato, hoy);
    case VistaGrafico::Mensual:
        return Mensual(dias, dato);
    case VistaGrafico::Diario:
        if (eleccion && eleccion->mes >= 1) {
            return Diario(dias, dato, eleccion->año, eleccion->mes);
        }
        return Diario(dias, dato, hoy.Año(), hoy.Mes());
    }
    return {};
}

std::string AñosDelMensual(const std::vector<DiaGrafico>& dias, Fecha hoy) {
    if (!dias.empty() && dias.front().dia.Año() != dias.back().dia.Año()) {
        return "todos los años";
    }
    return std::to_string(dias.empty() ? hoy.Año() : dias.front().dia.Año());
}

const std::string& NombreCortoMes(int mes) {
    return kMesesCortos.at(static_cast<std::size_t>(mes - 1));
}

} // namespace vorimesk
