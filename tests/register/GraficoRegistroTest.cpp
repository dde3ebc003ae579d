#include "register/GraficoRegistro.h"

#include "CarpetaTemporal.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace vorimesk;

namespace {

class GraficoRegistroTest : public prueba::CarpetaTemporal {
protected:
    void Llamada(int año, int mes, int dia, const char* duracion, const char* importe = "10") {
        registro->AñadirItem(Fecha::Crear(año, mes, dia), Fecha::DesdeSegundos(3600 * 20), duracion,
                             importe, 1, "Metropolitana", "Casa", "", 0, 1, 1);
    }
    std::vector<PuntoGrafico> Puntos(VistaGrafico vista, DatoGrafico dato,
                                     std::optional<ElementoCombo> eleccion = std::nullopt) {
        return PuntosGrafico(AgregarPorDia(*registro), vista, dato, eleccion, hoy);
    }
    static std::vector<float> Valores(const std::vector<PuntoGrafico>& puntos) {
        std::vector<float> v;
        for (const PuntoGrafico& p : puntos) {
            v.push_back(p.valor);
        }
        return v;
    }

    std::unique_ptr<Log> registro = std::make_unique<Log>(dir);
    Fecha hoy = Fecha::Crear(2026, 3, 20);
};

} // namespace

TEST_F(GraficoRegistroTest, RegistroVacioDaCerosYListaVacia) {
    EXPECT_TRUE(AgregarPorDia(*registro).empty());
    EXPECT_TRUE(ElementosCombo({}, VistaGrafico::Mensual).empty());
    EXPECT_TRUE(ElementosCombo({}, VistaGrafico::Diario).empty());
    const auto anual = Puntos(VistaGrafico::Anual, DatoGrafico::Gasto);
    const auto mensual = Puntos(VistaGrafico::Mensual, DatoGrafico::Llamadas);
    const auto diario = Puntos(VistaGrafico::Diario, DatoGrafico::Tiempo); // marzo, el de hoy
    ASSERT_EQ(std::tuple(anual.size(), mensual.size(), diario.size()), std::tuple(1u, 12u, 31u));
    EXPECT_EQ(anual.front().etiqueta, "2026");
    EXPECT_EQ(AñosDelMensual({}, hoy), "2026");
    EXPECT_EQ(mensual.front().etiqueta + " " + mensual.back().etiqueta, "ene dic");
    for (const auto* puntos : {&anual, &mensual, &diario}) {
        for (const PuntoGrafico& p : *puntos) {
            EXPECT_EQ(p.valor, 0.0F) << p.etiqueta;
        }
    }
}

TEST_F(GraficoRegistroTest, SumasPorDiaEnHorasLlamadasYGasto) {
    for (int i = 0; i < 3; ++i) {
        Llamada(2026, 3, 2, "00:20:00", "2.5");
    }
    Llamada(2026, 3, 5, "01:30:00", "120");
    const auto dias = AgregarPorDia(*registro);
    ASSERT_EQ(dias.size(), 2u);
    EXPECT_FLOAT_EQ(ValorDia(dias[0], DatoGrafico::Tiempo), 1.0F);
    EXPECT_FLOAT_EQ(ValorDia(dias[1], DatoGrafico::Tiempo), 1.5F);
    EXPECT_EQ(ValorDia(dias[0], DatoGrafico::Llamadas), 3.0F);
    // Cada importe se suma y redondea al par: 2.5 -> 2, 4.5 -> 4, 6.5 -> 6.
    EXPECT_EQ(dias[0].coste, 6);

    ElementoCombo marzo{"Marzo 2026", 2026, 3};
    const auto diario = Puntos(VistaGrafico::Diario, DatoGrafico::Tiempo, marzo);
    ASSERT_EQ(diario.size(), 31u);
    EXPECT_EQ(diario[1].etiqueta, "2");
    EXPECT_FLOAT_EQ(diario[1].valor, 1.0F);
    EXPECT_FLOAT_EQ(diario[4].valor, 1.5F);
    EXPECT_EQ(diario[2].valor, 0.0F);
    EXPECT_EQ(
        Puntos(VistaGrafico::Diario, DatoGrafico::Llamadas, ElementoCombo{"", 2024, 2}).size(),
        29u);
}

TEST_F(GraficoRegistroTest, DiasSeparadosEnElRegistroSonEntradasDistintas) {
    Llamada(2026, 3, 2, "00:10:00");
    Llamada(2026, 3, 3, "00:10:00");
    Llamada(2026, 3, 2, "00:10:00"); // fuera de su sitio
    const auto dias = AgregarPorDia(*registro);
    ASSERT_EQ(dias.size(), 3u);
    // La vista diaria toma la primera entrada del dia; la mensual las suma todas.
    ElementoCombo marzo{"Marzo 2026", 2026, 3};
    EXPECT_EQ(Puntos(VistaGrafico::Diario, DatoGrafico::Llamadas, marzo)[1].valor, 1.0F);
    EXPECT_EQ(Puntos(VistaGrafico::Mensual, DatoGrafico::Llamadas)[2].valor, 3.0F);
}

TEST_F(GraficoRegistroTest, AnualDelPrimerAñoConLlamadasAlActual) {
    Llamada(2000, 5, 1, "00:01:00");
    Llamada(2003, 1, 1, "00:01:00");
    Llamada(2003, 7, 1, "00:01:00");
    Llamada(2020, 1, 1, "00:01:00");
    const auto anual = Puntos(VistaGrafico::Anual, DatoGrafico::Llamadas);
    ASSERT_EQ(anual.size(), 27u); // 2000 .. 2026, hoy incluido
    EXPECT_EQ(anual[0].etiqueta, "2000");
    EXPECT_EQ(anual[26].etiqueta, "2026");
    EXPECT_EQ(std::tuple(anual[0].valor, anual[3].valor, anual[20].valor, anual[26].valor),
              std::tuple(1.0F, 2.0F, 1.0F, 0.0F));
}

TEST_F(GraficoRegistroTest, MensualComparaSoloNumerosDeMes) {
    Llamada(1999, 3, 10, "00:01:00");
    Llamada(1999, 4, 10, "00:01:00");
    Llamada(2000, 3, 12, "00:01:00");
    const auto dias = AgregarPorDia(*registro);
    const auto años = ElementosCombo(dias, VistaGrafico::Mensual);
    ASSERT_EQ(años.size(), 2u);
    EXPECT_EQ(años[0].texto, "1999");
    EXPECT_EQ(años[1].texto, "2000");
    for (const ElementoCombo& año : años) {
        // Marzo suma los dos años, elija el año que elija la lista; abril
        // cae fuera del mes de la ultima llamada (3) y vale 0.
        const auto v = Valores(Puntos(VistaGrafico::Mensual, DatoGrafico::Llamadas, año));
        EXPECT_EQ(v[2], 2.0F);
        EXPECT_EQ(v[3], 0.0F);
    }
}

TEST_F(GraficoRegistroTest, MensualQueCruzaElAñoQuedaACero) {
    Llamada(1999, 11, 10, "00:01:00");
    Llamada(2000, 2, 10, "00:01:00");
    for (float v : Valores(Puntos(VistaGrafico::Mensual, DatoGrafico::Llamadas))) {
        EXPECT_EQ(v, 0.0F);
    }
    const auto meses = ElementosCombo(AgregarPorDia(*registro), VistaGrafico::Diario);
    ASSERT_EQ(meses.size(), 4u);
    EXPECT_EQ(meses.front(), (ElementoCombo{"Noviembre 1999", 1999, 11}));
    EXPECT_EQ(meses.back(), (ElementoCombo{"Febrero 2000", 2000, 2}));
}
