// The billing period the main window totals at start, and the monthly
// renewal of the bundles that its clock runs.

#include "core/Fecha.h"
#include "tariff/PeriodoEnCurso.h"
#include "tariff/RenovacionBono.h"
#include "tariff/cBono.h"

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

TEST(RenovacionBono, UnaVezPorMesAlLlegarElDiaDeFacturacion) {
    const RelojFijo reloj(F(2026, 1, 5));
    cBono bono(reloj);
    bono.DiaFactura(20);
    bono.DarAlta(0, F(2026, 1, 5));
    bono.DarAlta(2, F(2026, 2, 25)); // tomado despues del dia de renovacion
    bono.tiempo(0, "02:00:00");
    bono.tiempo(1, "01:00:00");
    std::uint8_t mes = 1; // renovado el 20 de enero

    EXPECT_FALSE(RenovarBonoMensual(bono, mes, F(2026, 2, 19)));
    EXPECT_EQ(bono.tiempo(0), "02:00:00");

    EXPECT_TRUE(RenovarBonoMensual(bono, mes, F(2026, 2, 20)));
    EXPECT_EQ(mes, 2);
    EXPECT_EQ(bono.tiempo(0), "10:00:00");
    EXPECT_EQ(bono.tiempo(1), "01:00:00"); // su alta es posterior: no se toca

    bono.tiempo(0, "03:00:00");
    EXPECT_FALSE(RenovarBonoMensual(bono, mes, F(2026, 3, 1)));
    EXPECT_EQ(bono.tiempo(0), "03:00:00");
}

TEST(RenovacionBono, MesesSinElDiaDeFacturacionYCambioDeAño) {
    // El 31 de febrero es el 3 de marzo: el 2 de marzo aun es el mes de enero.
    EXPECT_EQ(MesBonoDe(F(2026, 3, 2), 31).mes, 1);
    EXPECT_EQ(MesBonoDe(F(2026, 3, 2), 31).inicio, F(2026, 1, 31));
    EXPECT_EQ(MesBonoDe(F(2026, 3, 3), 31).mes, 2);
    EXPECT_EQ(MesBonoDe(F(2026, 3, 31), 31).mes, 3);
    EXPECT_EQ(MesBonoDe(F(2026, 1, 4), 5).inicio, F(2025, 12, 5));
    // Un archivo nuevo (mes 0) renueva en el primer vistazo.
    cBono bono;
    std::uint8_t mes = 0;
    EXPECT_TRUE(RenovarBonoMensual(bono, mes, F(2026, 1, 4)));
    EXPECT_EQ(mes, 1);
}
