#include "core/Errores.h"
#include "tariff/PeriodoEnCurso.h"
#include "tariff/cPeriodo.h"

#include <gtest/gtest.h>
#include <vector>

using namespace vorimesk;

namespace {

Fecha F(int a, int m, int d, int h = 0, int mi = 0, int s = 0) {
    return Fecha::Crear(a, m, d, h, mi, s);
}

std::vector<std::string> Recorrer(cPeriodo& p) {
    std::vector<std::string> v;
    for (std::string t = p.Periodo(); !t.empty() && v.size() < 100; t = p.Periodo()) {
        v.push_back(t);
    }
    return v;
}

std::vector<std::string> Periodos(int dia, int eleccion, Fecha desde, Fecha hasta,
                                  std::int16_t filtro = cPeriodo::kSinFiltro) {
    cPeriodo p;
    p.Datos(static_cast<std::uint8_t>(dia), static_cast<std::uint8_t>(eleccion));
    p.Periodos(desde, hasta);
    p.Filtro(filtro);
    return Recorrer(p);
}

using V = std::vector<std::string>;

} // namespace

TEST(Periodo, LimitesSegunDiaEIntervalo) {
    // Impar bimensual con la llamada antes del limite.
    EXPECT_EQ(Periodos(20, 2, F(2026, 3, 25, 10, 0, 0), F(2026, 3, 25, 11, 0, 0)),
              V{"25/03/2026 10:00:00 - 25/03/2026 11:00:00"});
    // Par bimensual y periodos siguientes; un rango que acaba en un limite
    // termina en el fin del rango.
    EXPECT_EQ(Periodos(15, 1, F(2026, 1, 10), F(2026, 6, 1, 12, 0, 0)),
              (V{"10/01/2026 - 15/02/2026 23:59:59", "16/02/2026 - 15/04/2026",
                 "16/04/2026 - 01/06/2026 12:00:00"}));
    EXPECT_EQ(Periodos(15, 1, F(2026, 1, 10), F(2026, 4, 16)),
              (V{"10/01/2026 - 15/02/2026 23:59:59", "16/02/2026 - 16/04/2026"}));
    // El primer limite mensual es el propio dia; pasado el dia de factura, el
    // dia 1 del mes siguiente.
    EXPECT_EQ(Periodos(20, 0, F(2026, 3, 10, 9, 0, 0), F(2026, 5, 1)),
              (V{"10/03/2026 09:00:00 - 10/03/2026 23:59:59", "11/03/2026 - 10/04/2026",
                 "11/04/2026 - 01/05/2026"}));
    EXPECT_EQ(Periodos(20, 0, F(2026, 3, 25), F(2026, 4, 10)),
              (V{"25/03/2026 - 01/04/2026 23:59:59", "02/04/2026 - 10/04/2026"}));
    // Dia 31 en un mes de 30 se va al dia 1 del siguiente; el mes 13 es enero.
    EXPECT_EQ(Periodos(31, 1, F(2026, 4, 2), F(2026, 5, 1)), V{"02/04/2026 - 01/05/2026"});
    EXPECT_EQ(Periodos(31, 2, F(2026, 4, 2), F(2026, 6, 30)),
              (V{"02/04/2026 - 31/05/2026 23:59:59", "01/06/2026 - 30/06/2026"}));
    EXPECT_EQ(Periodos(5, 2, F(2026, 12, 20), F(2027, 2, 1)),
              (V{"20/12/2026 - 05/01/2027 23:59:59", "06/01/2027 - 01/02/2027"}));
}

TEST(Periodo, FiltroDeAño) {
    // Mensual, dia 1, filtro 2000: lo que acaba antes de 2000 sale como "Otro"
    // (el primero por su inicio) y el recorrido para en el primero de 2001.
    const auto v = Periodos(1, 0, F(1999, 10, 15), F(2001, 3, 1), 2000);
    ASSERT_EQ(v.size(), 15u);
    EXPECT_EQ(v[0], "Otro");
    EXPECT_EQ(v[1], "Otro");
    EXPECT_EQ(v[2], "02/12/1999 - 01/01/2000");
    EXPECT_EQ(v[14], "02/12/2000 - 01/01/2001");
    // Un rango que empieza despues del año filtrado no da nada.
    EXPECT_TRUE(Periodos(1, 0, F(2001, 1, 15), F(2001, 3, 1), 2000).empty());
}

TEST(Periodo, SoloTrasDatosYPeriodosYSiempreTermina) {
    cPeriodo p;
    p.Periodos(F(2026, 1, 1), F(2026, 2, 1));
    EXPECT_EQ(p.Periodo(), "");
    p.Datos(1, 2);
    const V todos = {"01/01/2026 - 01/01/2026 23:59:59", "02/01/2026 - 01/02/2026"};
    EXPECT_EQ(Recorrer(p), todos);
    EXPECT_EQ(p.Periodo(), "");
    p.Reset();
    EXPECT_EQ(Recorrer(p), todos);
    // Rango al reves con el inicio a medianoche del dia siguiente al fin: el
    // cursor vuelve a caer en el inicio y aun asi se acaba.
    p.Periodos(F(2026, 5, 2), F(2026, 5, 1, 10, 0, 0));
    EXPECT_EQ(Recorrer(p), V{"02/05/2026 - 01/05/2026 10:00:00"});
}

TEST(Periodo, PeriodoActualYLosExtremosDelTexto) {
    cPeriodo p;
    p.Datos(15, 0);
    p.Periodos(F(2026, 1, 10), F(2026, 4, 20, 8, 0, 0));
    const std::string actual = p.PeriodoActual(F(2026, 2, 16));
    EXPECT_EQ(actual, "16/04/2026 - 20/04/2026 08:00:00");
    EXPECT_EQ(cPeriodo::FechaIni(actual), F(2026, 4, 16));
    EXPECT_EQ(cPeriodo::FechaFin(actual), F(2026, 4, 20, 8, 0, 0));
    EXPECT_THROW(cPeriodo::FechaIni("Otro"), ErrorTipo);
    EXPECT_THROW(cPeriodo::FechaFin("01/01/2026 - ayer"), ErrorTipo);
}

// The billing period the main window totals at start.
TEST(PeriodoEnCurso, ElUltimoPeriodoDesdeLaPrimeraLlamadaHastaHoy) {
    // Par bimensual, dia 15: 10/01-15/02, 16/02-15/04 y el de hoy desde 16/04.
    EXPECT_EQ(PeriodoEnCurso(15, 1, F(2026, 1, 10), F(2026, 4, 20, 18, 30, 0)),
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
