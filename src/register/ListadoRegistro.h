#pragma once
// Which calls of the register a view lists, and what it shows of them: the
// record test of the filter, the ten cells of a grid row and the totals of a
// listing. Plain code so the filter, the grid and the printed report agree.

#include "Log.h"
#include "core/Fecha.h"
#include "core/cTiempo.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// The date value -1.0 that the filter passes for a date or hour criterion
// that is off.
inline constexpr Fecha kFechaApagada = Fecha::DesdeSegundos(-Fecha::kSegundosDia);

// The nine criteria, in the order the filter hands them over. A criterion that
// is omitted (nullopt) or holds -1 (kFechaApagada, -1, the text "-1") is off.
struct CriteriosFiltro {
    std::optional<Fecha> desde;
    std::optional<Fecha> hasta;
    std::optional<Fecha> horaDesde;
    std::optional<Fecha> horaHasta;
    std::optional<std::int16_t> tipo;        // 0 Normal, 1 Reducida
    std::optional<std::int16_t> bono;        // 0 Sin Bono, 1 Con Bono
    std::optional<std::int16_t> tipoDia;     // 0 Semana, 1 Sabado, 2 Festivo
    std::optional<std::int16_t> comparacion; // 0 "> de", 1 "< de", 2 "="
    std::optional<std::string> duracion;     // hh:mm:ss

    // Only the two dates, as the current billing period is shown.
    static CriteriosFiltro Periodo(Fecha desde, Fecha hasta);
};

// Day type of a date (0 Semana, 1 Sabado, 2 Festivo), from the tariff book's
// calendar, worked out afresh for every call so holidays added later count.
using TipoDiaDe = std::function<std::int16_t(Fecha)>;

// True when call i passes every criterion that is on. Both ends of the date
// and hour ranges are inclusive and the hour range never wraps past midnight.
bool EsListable(const Log& registro, int i, const CriteriosFiltro& criterios,
                const TipoDiaDe& tipoDia);

struct OpcionesCoste {
    bool AnadirImpuestos = false;
    float Impuestos = 0.0F; // percentage
};

// The register amount with taxes when they are added, rounded to a whole
// number with halves away from zero (as a bill rounds).
std::int32_t CosteMostrado(const Log& registro, int i, const OpcionesCoste& opciones);

// The cost column, in cents: the register amount with taxes worked out in
// single precision as the live meter does, so a call shows the same figure
// in both; halves away from zero.
std::int64_t CentimosMostrados(const Log& registro, int i, const OpcionesCoste& opciones);

// The ten cells of a grid row: "Dia", "Hora", "Duracion", "Coste", "Tarifa",
// "Tipo", "Bono", "Conexion", "Kbs Recibidos", "Kbs Enviados".
std::array<std::string, 10> CeldasLlamada(const Log& registro, int i,
                                          const OpcionesCoste& opciones);

inline const std::array<std::string, 10> kTitulosRegistro = {
    "Dia",  "Hora", "Duracion", "Coste",         "Tarifa",
    "Tipo", "Bono", "Conexion", "Kbs Recibidos", "Kbs Enviados"};

struct Listado {
    std::vector<int> indices; // the calls listed, in register order
    std::int16_t NumeroLlamadas = 0;
    cTiempo TotalTiempo;
    std::int32_t TotalCoste = 0;    // throws ErrorDesbordamiento past 32 bits
    std::int64_t TotalCentimos = 0; // the cost column's cents, summed
    std::string Periodo;            // "desde - hasta", empty when a date is off
};

// Walks the whole register and lists the calls that pass, with their totals.
Listado ListarRegistro(const Log& registro, const CriteriosFiltro& criterios,
                       const TipoDiaDe& tipoDia, const OpcionesCoste& opciones, Fecha hoy);

// Days from today to the next billing day: the billing day of this month when
// today has not passed it, else of the next month; a day the month lacks
// carries into the following month as a calendar date does.
int DiasHastaFacturacion(Fecha hoy, int diaFactura);

// What a listing sums, in words, for the summary's totals and the printed
// header: "Periodo de facturacion (...)" for the billing period,
// "Todo el registro (...)" when nothing is filtered, "Fechas elegidas (...)"
// for another range of dates and "Llamadas filtradas (...)" when any other
// criterion takes part. The dates are the listing's own.
std::string TextoRango(const CriteriosFiltro& criterios, const Listado& listado,
                       Fecha inicioPeriodo, Fecha finPeriodo);

} // namespace vorimesk
