#include "core/Errores.h"
#include "tariff/cPeriodo.h"

#include <gtest/gtest.h>
#include <vector>

using namespace vorimesk;

namespace {

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
    EXPECT_EQ(
        Periodos(20, 2, Fecha::Crear(2026, 3, 25, 10, 0, 0), Fecha::Crear(2026, 3, 25, 11, 0, 0)),
        V{"25/03/2026 10:00:00 - 25/03/2026 11:00:00"});
    // Par bimensual y periodos siguientes; un rango que acaba en un limite
    // termina en el fin del rango.
    EXPECT_EQ(Periodos(15, 1, Fecha::Crear(2026, 1, 10), Fecha::Crear(2026, 6, 1, 12, 0, 0)),
              (V{"10/01/2026 - 15/02/2026 23:59:59", "16/02/2026 - 15/04/2026",
                 "16/04/2026 - 01/06/2026 12:00:00"}));
    EXPECT_EQ(Periodos(15, 1, Fecha::Crear(2026, 1, 10), Fecha::Crear(2026, 4, 16)),
              (V{"10/01/2026 - 15/02/2026 23:59:59", "16/02/2026 - 16/04/2026"}));
    // El primer limite mensual es el propio dia; pasado el dia de factura, el
    // dia 1 del mes siguiente.
    EXPECT_EQ(Periodos(20, 0, Fecha::Crear(2026, 3, 10, 9, 0, 0), Fecha::Crear(2026, 5, 1)),
              (V{"10/03/2026 09:00:00 - 10/03/2026 23:59:59", "11/03/2026 - 10/04/2026",
                 "11/04/2026 - 01/05/2026"}));
    EXPECT_EQ(Periodos(20, 0, Fecha::Crear(2026, 3, 25), Fecha::Crear(2026, 4, 10)),
              (V{"25/03/2026 - 01/04/2026 23:59:59", "02/04/2026 - 10/04/2026"}));
    // Dia 31 en un mes de 30 se va al dia 1 del siguiente; el mes 13 es enero.
    EXPECT_EQ(Periodos(31, 1, Fecha::Crear(2026, 4, 2), Fecha::Crear(2026, 5, 1)),
              V{"02/04/2026 - 01/05/2026"});
    EXPECT_EQ(Periodos(31, 2, Fecha::Crear(2026, 4, 2), Fecha::Crear(2026, 6, 30)),
              (V{"02/04/2026 - 31/05/2026 23:59:59", "01/06/2026 - 30/06/2026"}));
    EXPECT_EQ(Periodos(5, 2, Fecha::Crear(2026, 12, 20), Fecha::Crear(2027, 2, 1)),
              (V{"20/12/2026 - 05/01/2027 23:59:59", "06/01/2027 - 01/02/2027"}));
}

TEST(Periodo, FiltroDeAño) {
    // Mensual, dia 1, filtro 2000: lo que acaba antes de 2000 sale como "Otro"
    // (el primero por su inicio) y el recorrido para en el primero de 2001.
    const auto v = Periodos(1, 0, Fecha::Crear(1999, 10, 15), Fecha::Crear(2001, 3, 1), 2000);
    ASSERT_EQ(v.size(), 15u);
    EXPECT_EQ(v[0], "Otro");
    EXPECT_EQ(v[1], "Otro");
    EXPECT_EQ(v[2], "02/12/1999 - 01/01/2000");
    EXPECT_EQ(v[14], "02/12/2000 - 01/01/2001");
    // Un rango que empieza despues del año filtrado no da nada.
    EXPECT_TRUE(Periodos(1, 0, Fecha::Crear(2001, 1, 15), Fecha::Crear(2001, 3, 1), 2000).empty());
}

TEST(Periodo, SoloTrasDatosYPeriodosYSiempreTermina) {
    cPeriodo p;
    p.Periodos(Fecha::Crear(2026, 1, 1), Fecha::Crear(2026, 2, 1));
    EXPECT_EQ(p.Periodo(), "");
    p.Datos(1, 2);
    const V todos = {"01/01/2026 - 01/01/2026 23:59:59", "02/01/2026 - 01/02/2026"};
    EXPECT_EQ(Recorrer(p), todos);
    EXPECT_EQ(p.Periodo(), "");
    p.Reset();
    EXPECT_EQ(Recorrer(p), todos);
    // Rango al reves con el inicio a medianoche del dia siguiente al fin: el
    // cursor vuelve a caer en el inicio y aun asi se acaba.
    p.Periodos(Fecha::Crear(2026, 5, 2), Fecha::Crear(2026, 5, 1, 10, 0, 0));
    EXPECT_EQ(Recorrer(p), V{"02/05/2026 - 01/05/2026 10:00:00"});
}

TEST(Periodo, PeriodoActualYLosExtremosDelTexto) {
    cPeriodo p;
    p.Datos(15, 0);
    p.Periodos(Fecha::Crear(2026, 1, 10), Fecha::Crear(2026, 4, 20, 8, 0, 0));
    const std::string actual = p.PeriodoActual(Fecha::Crear(2026, 2, 16));
    EXPECT_EQ(actual, "16/04/2026 - 20/04/2026 08:00:00");
    EXPECT_EQ(cPeriodo::FechaIni(actual), Fecha::Crear(2026, 4, 16));
    EXPECT_EQ(cPeriodo::FechaFin(actual), Fecha::Crear(2026, 4, 20, 8, 0, 0));
    EXPECT_THROW(cPeriodo::FechaIni("Otro"), ErrorTipo);
    EXPECT_THROW(cPeriodo::FechaFin("01/01/2026 - ayer"), ErrorTipo);
}
