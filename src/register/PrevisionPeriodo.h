#pragma once
// Where the current billing period is heading: what it has cost so far, what
// it will cost at its end at the same pace, and what each day left may cost
// to stay within the user's budget.
//
// The pace is linear by days: the spending so far divided by the days gone
// (today included) gives a day's spending, and the whole period is that times
// its days. So a period half over projects twice what it has cost so far.
// Amounts are the cost column of the register (taxes added when the user
// adds them, each call rounded as the grid shows it), so "spent so far"
// matches the register's total for the period.

#include "ListadoRegistro.h"
#include "Log.h"
#include "core/Fecha.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vorimesk {

inline constexpr std::string_view kReglaPrevision =
    "Gasto hasta hoy / dias transcurridos (hoy incluido) x dias del periodo";

struct PrevisionPeriodo {
    Fecha Inicio; // first day of the billing period
    Fecha Fin;    // last day (its billing day)
    int DiasPeriodo = 0;
    int DiasTranscurridos = 0; // today included
    int DiasQuedan = 0;        // after today
    int Llamadas = 0;
    double Gastado = 0.0;
    double Proyeccion = 0.0;
    std::optional<double> Presupuesto;
    // What each day left may cost to end the period within the budget (0
    // once the budget is spent); nullopt with no budget or no day left.
    std::optional<double> PorDiaRestante;
    bool SuperaPresupuesto = false; // the projection is above the budget
};

struct DatosPrevision {
    std::uint8_t DiaFactura = 1;
    std::uint8_t perFactura = 0;
    OpcionesCoste Coste;
    std::optional<double> Presupuesto;
};

// The forecast on `hoy` for the billing period that holds it. The period
// starts where the summary's current period starts (from the register's
// first call, or today for an empty register).
PrevisionPeriodo Prever(const Log& registro, const DatosPrevision& datos, Fecha hoy);

} // namespace vorimesk
