// The billing period the main window totals at start.

#include "tariff/PeriodoEnCurso.h"

#include "core/Fecha.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {
Fecha F(int a, int m, int d) {
    return Fecha::Crear(a, m, d);
}
} // namespace

TEST(PeriodoEnCurso, ElUltimoPeriodoDesdeLaPrimeraLlamadaHastaHoy) {
    // Par bimensual, dia 15: 10/01-15/02, 16/02-15/04 y el de hoy desde 16/04.
    EXPECT_EQ(PeriodoEnCurso(15, 1, F(2026, 1, 10), Fecha::Crear(2026, 4, 20, 18, 30, 0)),
              (PeriodoFacturacion{F(2026, 4, 16), F(2026, 4, 20)}));
    // Mensual: el primer corte es el propio dia de la primera llamada, asi
    // que los periodos van del 11 al 10.
    EXPECT_EQ(PeriodoEnCurso(15, 0, F(2026, 1, 10), F(2026, 3, 20)),
              (PeriodoFacturacion{F(2026, 3, 11), F(2026, 3, 20)}));
    // Registro vacio: la primera fecha es hoy y el periodo es solo hoy.
    EXPECT_EQ(PeriodoEnCurso(1, 0, F(2026, 5, 7), F(2026, 5, 7)),
              (PeriodoFacturacion{F(2026, 5, 7), F(2026, 5, 7)}));
    // "Trimestral" no es un intervalo de los periodos: se corta como par.
    EXPECT_EQ(PeriodoEnCurso(15, 3, F(2026, 1, 10), F(2026, 4, 20)),
              PeriodoEnCurso(15, 1, F(2026, 1, 10), F(2026, 4, 20)));
}
