#pragma once
// What the graph window draws: the register summed per day, and from those
// day sums the points of the yearly, monthly and daily views. Plain code so
// the figures are checked without a chart.
//
// The monthly view compares month numbers only, never years: with calls over
// several years a month point adds up that month of every year, and a month
// outside the month numbers of the first and last day with calls is 0 even
// when another year has calls in it; the view's title says so
// (AñosDelMensual). The yearly view has one point per year from the first
// call's to the last call's, the current year always among them.

#include "Log.h"
#include "core/Fecha.h"
#include "core/cTiempo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

enum class VistaGrafico { Anual = 0, Mensual = 1, Diario = 2 };
enum class DatoGrafico { Llamadas = 0, Gasto = 1, Tiempo = 2, MB = 3 };

// The calls of one day. Records of one day stand together in the register,
// so a new entry starts whenever a call's day differs from the one before.
struct DiaGrafico {
    Fecha dia;
    std::int32_t coste = 0; // whole units, rounded as each call is added
    std::int16_t llamadas = 0;
    cTiempo tiempo;
    std::int64_t kb = 0; // received and sent
};

// Throws ErrorDesbordamiento when a day's cost leaves 32 bits.
std::vector<DiaGrafico> AgregarPorDia(const Log& registro);

// The count, the cost, the time in hours with fractions, or the traffic in
// MB (1024 KB).
float ValorDia(const DiaGrafico& dia, DatoGrafico dato);

// One item of the year or month list of the monthly and daily views.
struct ElementoCombo {
    std::string texto; // "2026", or "Marzo 2026"
    int año = 0;
    int mes = 0; // 1-12 for a month item, 0 for a year item
    bool operator==(const ElementoCombo&) const = default;
};

// Every year from the first call's to the last call's (monthly view), every
// month between them (daily view), nothing for the yearly view or an empty
// register.
std::vector<ElementoCombo> ElementosCombo(const std::vector<DiaGrafico>& dias, VistaGrafico vista);

struct PuntoGrafico {
    std::string etiqueta;
    float valor = 0.0F;
    bool operator==(const PuntoGrafico&) const = default;
};

// The points of a view. `eleccion` is the item chosen in the list; without
// one (an empty register) the monthly view still has its twelve months and
// the daily view shows the days of the month of `hoy`, all of them 0. An
// empty register counts its years from the year of `hoy`.
std::vector<PuntoGrafico> PuntosGrafico(const std::vector<DiaGrafico>& dias, VistaGrafico vista,
                                        DatoGrafico dato,
                                        const std::optional<ElementoCombo>& eleccion, Fecha hoy);

// The years the monthly view adds up, for its title: "todos los años" when
// the calls span more than one, else that one year ("2026"; the year of
// `hoy` for an empty register).
std::string AñosDelMensual(const std::vector<DiaGrafico>& dias, Fecha hoy);

// "ene" ... "dic", the month names of the monthly view's points.
const std::string& NombreCortoMes(int mes);

} // namespace vorimesk
