// comparar and prevision as outside tests drive them, on the three calls the
// register's comparison test works out by hand, with a day bundle, billing on
// the 15th and a holiday on the Saturday in the settings file.

#include "CarpetaCli.h"
#include "RegistroAMano.h"
#include "settings/ArchivoVariables.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class OrdenesComparar : public CarpetaCli {
protected:
    void SetUp() override {
        ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0);
        const auto dia = [](int d) { return Fecha::Crear(2026, 3, d).AOle(); };
        Escribir(
            datos / "RegDat.log",
            RegistroAMano({.dia = dia(2), .hora = 8 / 24.0, .duracion = "09:30:00"}) +
                RegistroAMano(
                    {.dia = dia(3), .hora = 10 / 24.0, .duracion = "01:00:00", .importe = "100"}) +
                RegistroAMano(
                    {.dia = dia(7), .hora = 10 / 24.0, .duracion = "00:10:00", .importe = "8"}));
        Settings s = ValoresPorDefecto();
        s.DiaFactura = 15;
        s.Festivos = {Fecha::Crear(2026, 3, 7)};
        s.Bonos.push_back({0, Fecha::Crear(2026, 1, 1), FechaVariante::Vacia(), "10:00:00"});
        GuardarVariables(datos / "Varibles.Dat", s);
    }
};

} // namespace

TEST_F(OrdenesComparar, LasTarifasConElBonoYLosFestivosDeLasOpciones) {
    const std::string registro = Leer(datos / "RegDat.log");
    const std::string opciones = Leer(datos / "Varibles.Dat");
    const nlohmann::json c =
        Json({"comparar", "--desde", "2026-03-03", "--hasta", "2026-03-07", "--json"});
    EXPECT_EQ(Leer(datos / "RegDat.log"), registro);
    EXPECT_EQ(Leer(datos / "Varibles.Dat"), opciones);

    EXPECT_EQ(std::tuple(c["desde"], c["hasta"], c["llamadas"], c["cobrado"]),
              std::tuple("2026-03-03", "2026-03-07", 2, 108.0));
    // The holiday Saturday is 11.72 + 10 min at 1.04; Tuesday 11.72 + 60
    // min at 2.5, 30 of them paid by the bundle the Monday left.
    const nlohmann::json& m = c["tarifas"][0];
    EXPECT_EQ(m["tarifa"], "Metropolitana");
    EXPECT_NEAR(m["conBono"].get<double>(), 108.84, 1e-3);
    EXPECT_NEAR(m["sinBono"].get<double>(), 183.84, 1e-3);
    EXPECT_NEAR(m["diferenciaConBono"].get<double>(), 0.84, 1e-3);
    EXPECT_NEAR(m["diferenciaSinBono"].get<double>(), 75.84, 1e-3);
    // BonoNet costs the same: the tie goes to the first.
    EXPECT_EQ(c["masBarata"]["tarifa"], "Metropolitana");
    EXPECT_EQ(c["masBarata"]["conBono"], true);

    const ResultadoCli texto =
        Ejecutar({"comparar", "--desde", "2026-03-03", "--hasta", "2026-03-07"});
    EXPECT_EQ(texto.salida.find("Periodo: 03/03/2026 - 07/03/2026\nLlamadas: 2\nCobrado: 108.00\n"),
              0u)
        << texto.salida;
    EXPECT_NE(texto.salida.find("La mas barata: Metropolitana con bonos (108.84).\n"),
              std::string::npos)
        << texto.salida;
}

TEST_F(OrdenesComparar, PeriodoNEsElEnesimoAntesDelActual) {
    const auto comparar = [this](std::vector<std::string> o) {
        o.insert(o.begin(), {"comparar", "--hoy", "2026-03-20", "--json"});
        return Ejecutar(o);
    };
    // Monthly on the 15th with the first call on the 2nd: that day alone is
    // the first period, the current one runs from the 3rd to today.
    const nlohmann::json actual = nlohmann::json::parse(comparar({}).salida);
    EXPECT_EQ(nlohmann::json::parse(comparar({"--periodo", "0"}).salida), actual);
    EXPECT_EQ(std::tuple(actual["desde"], actual["hasta"], actual["llamadas"]),
              std::tuple("2026-03-03", "2026-03-20", 2));
    const nlohmann::json anterior = nlohmann::json::parse(comparar({"--periodo", "1"}).salida);
    EXPECT_EQ(std::tuple(anterior["desde"], anterior["hasta"], anterior["llamadas"]),
              std::tuple("2026-03-02", "2026-03-02", 1));

    const ResultadoCli lejos = comparar({"--periodo", "2"});
    EXPECT_EQ(lejos.estado, 1);
    EXPECT_NE(lejos.errores.find("No hay periodo 2"), std::string::npos) << lejos.errores;
    const ResultadoCli alReves = comparar({"--desde", "2026-05-01", "--hasta", "2026-04-01"});
    EXPECT_EQ(alReves.estado, 1);
    EXPECT_NE(alReves.errores.find("anterior"), std::string::npos) << alReves.errores;
    const ResultadoCli sinHasta = comparar({"--desde", "2026-05-01"});
    EXPECT_EQ(sinHasta.estado, 2);
    EXPECT_NE(sinHasta.errores.find("--desde necesita --hasta"), std::string::npos)
        << sinHasta.errores;
    EXPECT_EQ(comparar({"--periodo", "1", "--desde", "2026-03-01", "--hasta", "2026-03-09"}).estado,
              2);
    EXPECT_EQ(comparar({"--periodo", "-1"}).estado, 2);
}

TEST_F(OrdenesComparar, PrevisionConElPresupuestoDeLaCarpeta) {
    // From 3 March to 2 April, 31 days, the 20th the 18th of them: 108
    // spent, 6 a day, 186 at the end.
    const std::vector<std::string> orden = {"prevision", "--hoy", "2026-03-20", "--json"};
    EXPECT_EQ(Json(orden), nlohmann::json::parse(R"({"desde": "2026-03-03",
        "hasta": "2026-04-02", "hoy": "2026-03-20", "diasPeriodo": 31, "diasTranscurridos": 18,
        "diasQuedan": 13, "llamadas": 2, "gastado": 108.0, "proyeccion": 186.0,
        "regla": "Gasto hasta hoy / dias transcurridos (hoy incluido) x dias del periodo",
        "presupuesto": null, "porDiaRestante": null, "superaPresupuesto": false})"));
    // 173 leaves 65 for 13 days.
    Escribir(datos / "Presupuesto.Dat", "173\r\n");
    const nlohmann::json p = Json(orden);
    EXPECT_EQ(std::tuple(p["presupuesto"], p["porDiaRestante"], p["superaPresupuesto"]),
              std::tuple(173.0, 5.0, true));
    const ResultadoCli texto = Ejecutar({"prevision", "--hoy", "2026-03-20"});
    EXPECT_NE(texto.salida.find("como mucho 5.00 por dia en los 13 dia(s)"), std::string::npos)
        << texto.salida;

    Escribir(datos / "Presupuesto.Dat", "mucho\r\n");
    const ResultadoCli dañado = Ejecutar({"prevision", "--json"});
    EXPECT_EQ(dañado.estado, 1);
    EXPECT_NE(dañado.errores.find("Presupuesto.Dat"), std::string::npos) << dañado.errores;
    EXPECT_EQ(dañado.salida, "");
    EXPECT_EQ(Leer(datos / "Presupuesto.Dat"), "mucho\r\n");
}
