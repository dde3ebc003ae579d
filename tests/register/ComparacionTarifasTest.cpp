// The tariff comparison, worked by hand on three calls of the shipped book:
// a long Monday call that is not compared but uses up most of the day bundle,
// a Tuesday hour whose first half the bundle's last 30 minutes cover, and ten
// Saturday minutes, night for the bundles.

#include "register/ComparacionTarifas.h"

#include "CarpetaTemporal.h"
#include "RegistroAMano.h"
#include "core/Errores.h"
#include "tariff/LibroPorDefecto.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class Comparacion : public CarpetaTemporal {
protected:
    void SetUp() override {
        InstalarLibroPorDefecto(dir);
        const auto dia = [](int d) { return Fecha::Crear(2026, 3, d).AOle(); };
        AñadirLlamadas(
            registro,
            {{.dia = dia(2), .hora = 8 / 24.0, .duracion = "09:30:00"},
             {.dia = dia(3), .hora = 10 / 24.0, .duracion = "01:00:00", .importe = "100"},
             {.dia = dia(7), .hora = 10 / 24.0, .duracion = "00:10:00", .importe = "7,5"}});
        bono.DarAlta(0, Fecha::Crear(2026, 1, 1)); // 10DIA, ten hours
    }
    Log registro{dir};
    cBono bono;
};

} // namespace

TEST_F(Comparacion, CadaTarifaDelLibroConYSinBonos) {
    // 11.72 a call; per minute on a weekday and on Saturday at 10:00: 2.5 and
    // 2.5, 2.5 and 1.04 (BonoNet's Saturday is all reduced), 13.71, 29.75,
    // 2.5. Without bonos 60 + 10 minutes are paid, with them 30 + 10.
    const ComparacionTarifas c = CompararTarifas(registro, {2, 1, 2}, dir, bono, {});
    EXPECT_EQ(c.Llamadas, 2);
    EXPECT_EQ(c.Cobrado, 107.5);
    struct Fila {
        const char* tarifa;
        double sinBono, conBono;
    };
    const Fila tabla[] = {{"Metropolitana", 198.44, 123.44},
                          {"BonoNet", 183.84, 108.84},
                          {"Provincial", 983.14, 571.84},
                          {"Interprovincial", 2105.94, 1213.44},
                          {"Infovia", 198.44, 123.44}};
    ASSERT_EQ(c.Tarifas.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
        const TotalTarifa& t = c.Tarifas[i];
        EXPECT_EQ(t.Tarifa, tabla[i].tarifa);
        EXPECT_NEAR(t.SinBono, tabla[i].sinBono, 1e-3) << t.Tarifa;
        EXPECT_NEAR(t.ConBono, tabla[i].conBono, 1e-3) << t.Tarifa;
        EXPECT_NEAR(t.DiferenciaSinBono, tabla[i].sinBono - 107.5, 1e-3) << t.Tarifa;
        EXPECT_NEAR(t.DiferenciaConBono, tabla[i].conBono - 107.5, 1e-3) << t.Tarifa;
    }
    EXPECT_EQ(c.MasBarata, 1);
    EXPECT_TRUE(c.MasBarataConBono);

    // A holiday on Tuesday is all reduced (1.04) and night: no bundle.
    const TotalTarifa festivo =
        CompararTarifas(registro, {1, 2}, dir, bono, {Fecha::Crear(2026, 3, 3)}).Tarifas[0];
    EXPECT_NEAR(festivo.SinBono, 110.84, 1e-3);
    EXPECT_NEAR(festivo.ConBono, 110.84, 1e-3);
}

TEST_F(Comparacion, UnEmpateVaALaPrimeraTarifaYSinBonos) {
    // Tuesday alone and no bundle: 161.72 for Metropolitana, BonoNet and Infovia.
    ComparacionTarifas c = CompararTarifas(registro, {1}, dir, cBono(), {});
    EXPECT_NEAR(c.Tarifas[4].SinBono, 161.72, 1e-3);
    EXPECT_EQ(c.Tarifas[4].ConBono, c.Tarifas[4].SinBono);
    EXPECT_EQ(std::pair(c.MasBarata, c.MasBarataConBono), std::pair(0, false));
    // Saturday alone: the bundle covers nothing, BonoNet is the cheapest.
    c = CompararTarifas(registro, {2}, dir, bono, {});
    EXPECT_EQ(std::pair(c.MasBarata, c.MasBarataConBono), std::pair(1, false));
}

TEST_F(Comparacion, NoCambiaNadaYRechazaLlamadasQueNoEstan) {
    const RegistroLlamada antes = registro.Registro(1);
    CompararTarifas(registro, {1}, dir, bono, {});
    EXPECT_EQ(registro.Registro(1), antes);
    EXPECT_EQ(bono.tiempo(0), "10:00:00");

    const ComparacionTarifas nada = CompararTarifas(registro, {}, dir, bono, {});
    EXPECT_EQ(std::pair(nada.Llamadas, nada.Cobrado), std::pair(0, 0.0));
    EXPECT_EQ(nada.Tarifas.at(2).ConBono, 0.0);
    EXPECT_THROW(CompararTarifas(registro, {3}, dir, bono, {}), ErrorIndice);
    EXPECT_THROW(CompararTarifas(registro, {-1}, dir, bono, {}), ErrorIndice);
}
