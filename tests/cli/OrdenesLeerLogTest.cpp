// leer-log and recalcular as outside tests drive them, and the settings file
// behind every command that prices.

#include "CarpetaCli.h"
#include "RegistroAMano.h"
#include "SesionesModem.h"
#include "settings/ArchivoVariables.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

// Monday 2 March 2026.
Fecha Lunes(int h, int m) {
    return Fecha::Crear(2026, 3, 2, h, m, 0);
}

class OrdenesLeerLog : public CarpetaCli {
protected:
    void SetUp() override {
        // The folder is made by the first command, with the shipped tariff book.
        ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0);
    }
    fs::path ModemLog() const { return dir / "modemlog.txt"; }
    fs::path Variables() const { return datos / "Varibles.Dat"; }
    fs::path Registro() const { return datos / "RegDat.log"; }
    // Settings with one 10DIA bundle of `resto` left.
    void OpcionesConBono(const std::string& resto, std::vector<Fecha> festivos = {}) {
        Settings s = ValoresPorDefecto();
        s.Bonos.push_back({0, Fecha::Crear(2026, 3, 1), FechaVariante::Vacia(), resto});
        s.Festivos = std::move(festivos);
        s.Reservado1 = 77;
        GuardarVariables(Variables(), s);
    }
};

} // namespace

TEST_F(OrdenesLeerLog, DosSesionesCompletasSonDosLlamadasYElLogSeBorra) {
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 1)) + Sesion(Lunes(11, 0), Lunes(11, 10)));
    const ResultadoCli r = Ejecutar({"leer-log", "--log", ModemLog().string(), "--pendiente",
                                     "2026-03-02 10:00:00|Casa|Provincial|Ninguno", "--pendiente",
                                     "2026-03-02 12:00:00|Otra|Provincial|", "--json"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida, "{\"resultado\":true,\"añadidas\":2}\n");
    EXPECT_FALSE(Existe(ModemLog()));

    // 11.72 + 1 min at 13.71; the second has no profile: Metropolitana.
    const nlohmann::json ll = Json({"registro", "--json"})["llamadas"];
    EXPECT_EQ(ll[0]["Tarifa"].get<std::string>() + " " + ll[0]["importe"].get<std::string>(),
              "Provincial 25.43");
    EXPECT_EQ(ll[1]["Tarifa"].get<std::string>() + " " + ll[1]["importe"].get<std::string>(),
              " 36.72");

    // Nothing left to read; the count is the net change.
    EXPECT_EQ(Json({"leer-log", "--log", ModemLog().string(), "--json"}),
              (nlohmann::json{{"resultado", false}, {"añadidas", 0}}));
    const ResultadoCli texto = Ejecutar({"leer-log", "--log", ModemLog().string()});
    EXPECT_EQ(texto.estado, 0);
    EXPECT_NE(texto.salida.find("se conserva"), std::string::npos) << texto.salida;
}

TEST_F(OrdenesLeerLog, ElBonoDeLasOpcionesPagaYSeGuarda) {
    OpcionesConBono("10:00:00");
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 30)));
    ASSERT_EQ(Json({"leer-log", "--log", ModemLog().string(), "--pendiente",
                    "2026-03-02 10:00:00|Casa|BonoNet|BonoNet", "--json"})["añadidas"],
              1);
    EXPECT_EQ(Json({"registro", "--json"})["llamadas"][0]["importe"], "11.72");
    const LecturaVariables l = LeerVariables(Variables());
    EXPECT_EQ(l.valores.Bonos.at(0).tiempo, "09:30:00");
    EXPECT_EQ(l.valores.Reservado1, 77) << "the rest of the file as it was";
}

TEST_F(OrdenesLeerLog, RecalcularConLosFestivosYElBonoDeLasOpciones) {
    // Monday 2 March 2026, 10:00, 10 minutes, and Tuesday, a holiday in the settings.
    CamposAMano a{.dia = Fecha::Crear(2026, 3, 2).AOle(),
                  .hora = 10 / 24.0,
                  .duracion = "00:10:00",
                  .importe = "999",
                  .tarifa = "Provincial"};
    CamposAMano b = a;
    b.dia = a.dia + 1;
    Escribir(Registro(), RegistroAMano(a) + RegistroAMano(b));
    OpcionesConBono("00:00:00", {Fecha::Crear(2026, 3, 3)});

    EXPECT_EQ(Ejecutar({"recalcular", "--json"}).salida, "{\"llamadas\":2}\n");
    const nlohmann::json ll = Json({"registro", "--json"})["llamadas"];
    // The ledger starts full: the first call goes against the day bundle, the
    // holiday one is at night (Festivo is all reduced) with no night bundle.
    EXPECT_EQ(ll[0]["importe"], "11.72");
    EXPECT_EQ(ll[1]["Tipo"], 1);
    EXPECT_EQ(LeerVariables(Variables()).valores.Bonos.at(0).tiempo, "09:50:00");

    const ResultadoCli texto = Ejecutar({"recalcular"});
    EXPECT_EQ(texto.estado, 0);
    EXPECT_EQ(texto.salida, "Llamadas recalculadas: 2.\n");
}

TEST_F(OrdenesLeerLog, RecalcularSinLaTarifaEnElLibroConservaLasLlamadas) {
    CamposAMano a{.dia = Fecha::Crear(2026, 3, 2).AOle(),
                  .hora = 10 / 24.0,
                  .duracion = "00:10:00",
                  .importe = "999",
                  .tipo = 1,
                  .tarifa = "Borrada",
                  .bono = -1};
    CamposAMano b = a;
    b.tarifa = "Provincial";
    Escribir(Registro(), RegistroAMano(a) + RegistroAMano(b) + RegistroAMano(a));

    const ResultadoCli r = Ejecutar({"recalcular", "--json"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(nlohmann::json::parse(r.salida),
              nlohmann::json::parse(R"({"llamadas": 3, "tarifasDesconocidas": ["Borrada"],
                                        "llamadasSinTarifa": 2})"));
    EXPECT_NE(r.errores.find("2 llamadas"), std::string::npos) << r.errores;
    EXPECT_NE(r.errores.find("\"Borrada\""), std::string::npos) << r.errores;
    const std::string registro = Leer(Registro());

    // Without any tariff book every call keeps its amount.
    fs::remove(datos / "Tarifas.Dat");
    const ResultadoCli sinLibro = Ejecutar({"recalcular"});
    EXPECT_EQ(sinLibro.estado, 0);
    EXPECT_EQ(sinLibro.salida, "Llamadas recalculadas: 3.\n");
    EXPECT_NE(sinLibro.errores.find("3 llamadas"), std::string::npos) << sinLibro.errores;
    EXPECT_EQ(Leer(Registro()), registro);
}

TEST_F(OrdenesLeerLog, CalcularTomaFestivosYBonoDeLasOpciones) {
    OpcionesConBono("10:00:00", {Fecha::Crear(2026, 3, 2)});
    const std::vector<std::string> orden = {
        "calcular", "--inicio", "2026-03-02 10:00:00", "--fin", "2026-03-02 10:30:00",
        "--bono",   "--json"};
    EXPECT_EQ(Json(orden)["tipoActual"], 1) << "a holiday of the settings file";
    OpcionesConBono("10:00:00");
    EXPECT_EQ(Json(orden)["importe"], 11.72) << "the bundle of the settings file";
}

TEST_F(OrdenesLeerLog, OpcionesDañadasParanSinCambiarNada) {
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 1)));
    Escribir(Registro(), RegistroAMano(CamposAMano{}));
    const std::string malas = "#TRUE#\r\n#FALSE#\r\nxyz\r\n";
    Escribir(Variables(), malas);
    for (std::vector<std::string> orden :
         {std::vector<std::string>{"leer-log", "--log", ModemLog().string()},
          {"recalcular"},
          {"calcular", "--inicio", "2026-03-02 10:00:00", "--fin", "2026-03-02 10:01:00"}}) {
        const ResultadoCli r = Ejecutar(orden);
        EXPECT_EQ(r.estado, 1) << orden[0];
        EXPECT_NE(r.errores.find("Varibles.Dat"), std::string::npos) << r.errores;
        EXPECT_NE(r.errores.find("dañado"), std::string::npos) << r.errores;
    }
    EXPECT_EQ(Leer(Variables()), malas);
    EXPECT_EQ(Leer(Registro()), RegistroAMano(CamposAMano{}));
    EXPECT_TRUE(Existe(ModemLog()));
}

TEST_F(OrdenesLeerLog, ErroresDeUsoYDeLog) {
    for (const char* mal : {"2026-03-02 10:00:00|Casa|Provincial", "ayer|Casa|Provincial|",
                            "2026-03-02 10:00:00|a|b|c|d"}) {
        const ResultadoCli r =
            Ejecutar({"leer-log", "--log", ModemLog().string(), "--pendiente", mal});
        EXPECT_EQ(r.estado, 2) << mal;
    }
    EXPECT_EQ(Ejecutar({"leer-log"}).estado, 2);

    // A log whose stamps are no dates: a user error, the log stays.
    const std::string malo =
        Sesion(Lunes(10, 0), Lunes(10, 1)) + "13-45-2026 11:00:00.00 - in use\r\n";
    Escribir(ModemLog(), malo);
    const ResultadoCli r = Ejecutar({"leer-log", "--log", ModemLog().string()});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("log del modem"), std::string::npos) << r.errores;
    EXPECT_EQ(Leer(ModemLog()), malo);
}
