#include "CarpetaCli.h"
#include "core/Archivo.h"

#include <gtest/gtest.h>

using namespace vorimesk::prueba;
namespace fs = std::filesystem;

using Ordenes = CarpetaCli;

TEST_F(Ordenes, CalcularConElLibroDeSerie) {
    auto r = Ejecutar({"calcular", "--inicio", "2026-03-02 17:59:00", "--fin",
                       "2026-03-02 18:01:00", "--tarifa", "Metropolitana", "--json"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    // 11.72 de establecimiento, 60 s a 2.5 y 60 s a 1.04 por minuto.
    EXPECT_EQ(r.salida, "{\"importe\":15.26,\"duracion\":\"00:02:00\",\"tipo\":1,"
                        "\"tipoActual\":0,\"bonoNet\":false,\"bonoNetActual\":false}\n");
    EXPECT_TRUE(fs::exists(datos / "Tarifas.Dat"));
    // Sin --tarifa se usa Metropolitana; sin --json, un resumen legible.
    r = Ejecutar({"calcular", "--inicio", "2026-03-02 17:59:00", "--fin", "2026-03-02 18:01:00"});
    ASSERT_EQ(r.estado, 0);
    EXPECT_NE(r.salida.find("Importe:             15.26"), std::string::npos) << r.salida;
    EXPECT_NE(r.salida.find("Franja al acabar:    Reducida"), std::string::npos);

    // Una hora del lunes: 11.72 + 60 min a 2.5; festivo, todo reducida a 1.04;
    // --bono con el libro de bonos vacio no descuenta nada.
    const auto importe = [this](std::vector<std::string> extra) {
        extra.insert(extra.begin(), {"calcular", "--inicio", "2026-03-02 10:00:00", "--fin",
                                     "2026-03-02 11:00:00", "--json"});
        return Json(extra)["importe"].get<double>();
    };
    EXPECT_NEAR(importe({"--bono"}), 161.72, 1e-3);
    EXPECT_NEAR(importe({"--festivo", "2026-01-06", "--festivo", "2026-03-02"}), 74.12, 1e-3);
}

TEST_F(Ordenes, ErroresDeCalcular) {
    const char* inicio = "2026-03-02 10:00:00";
    auto r = Ejecutar(
        {"calcular", "--inicio", inicio, "--fin", "2026-03-02 11:00:00", "--tarifa", "Lunar"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("\"Lunar\" no esta en el libro"), std::string::npos) << r.errores;

    r = Ejecutar({"calcular", "--inicio", inicio, "--fin", "2026-03-02 09:59:59"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("anterior a su inicio"), std::string::npos) << r.errores;

    r = Ejecutar({"calcular", "--inicio", inicio});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("Falta una opcion obligatoria: --fin"), std::string::npos)
        << r.errores;
    EXPECT_EQ(Ejecutar({"calcular", "--inicio", "2026-02-30", "--fin", inicio}).estado, 2);

    fs::remove(datos / "Tarifas.Dat");
    fs::create_directory(datos / "Tarifas.Dat"); // no se puede leer
    r = Ejecutar({"calcular", "--inicio", inicio, "--fin", inicio});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Tarifas.Dat"), std::string::npos) << r.errores;
    EXPECT_EQ(Ejecutar({"tarifas"}).estado, 1);
}

TEST_F(Ordenes, PeriodosComoLosDaElCalculador) {
    auto r = Ejecutar({"periodos", "--dia", "15", "--intervalo", "1", "--desde", "2026-01-10",
                       "--hasta", "2026-06-01 12:00:00", "--json"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida, "{\"periodos\":[\"10/01/2026 - 15/02/2026 23:59:59\","
                        "\"16/02/2026 - 15/04/2026\",\"16/04/2026 - 01/06/2026 12:00:00\"]}\n");
    r = Ejecutar({"periodos", "--dia", "1", "--intervalo", "0", "--desde", "1999-11-15", "--hasta",
                  "2000-01-20", "--filtro", "2000"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida, "Otro\n02/12/1999 - 01/01/2000\n02/01/2000 - 20/01/2000\n");
    EXPECT_EQ(Ejecutar({"periodos", "--dia", "256", "--intervalo", "0", "--desde", "2000-01-01",
                        "--hasta", "2000-02-01"})
                  .estado,
              2);
}

TEST_F(Ordenes, TarifasExportarEImportarEnJson) {
    auto r = Ejecutar({"tarifas", "--exportar"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    auto j = nlohmann::ordered_json::parse(r.salida);
    // The listing holds every field of the export, in its order.
    EXPECT_EQ(nlohmann::ordered_json::parse(Ejecutar({"tarifas", "--json"}).salida)["tarifas"],
              j["tarifas"]);

    const std::string archivo = (dir / "libro.json").string();
    r = Ejecutar({"tarifas", "--exportar", archivo});
    EXPECT_EQ(r.salida, "Exportadas 5 tarifas a " + archivo + ".\n");
    EXPECT_EQ(nlohmann::ordered_json::parse(vorimesk::LeerArchivo(archivo)), j);

    // Una tarifa propia: 10 de establecimiento con un minuto incluido, 3 el minuto de dia.
    auto propia = j["tarifas"][0];
    propia["Nombre"] = "MiOperador";
    propia["Conexion.Importe"] = "10";
    propia["Conexion.Tiempo"] = "01:00:00";
    propia["Semana.Normal.Importe"] = "3";
    j["tarifas"].push_back(propia);
    vorimesk::EscribirArchivoSeguro(archivo, j.dump(2));
    r = Ejecutar({"tarifas", "--importar", archivo});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida, "Importadas 6 tarifas en " + (datos / "Tarifas.Dat").string() + ".\n");
    r = Ejecutar({"calcular", "--inicio", "2026-03-02 10:00:00", "--fin", "2026-03-02 10:11:00",
                  "--tarifa", "MiOperador", "--json"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(nlohmann::json::parse(r.salida)["importe"], 40.0);

    // Una carpeta que ya tiene datos no recibe el libro de serie.
    fs::remove(datos / "Tarifas.Dat");
    vorimesk::EscribirArchivoSeguro(datos / "Varibles.Dat", "");
    EXPECT_NE(Ejecutar({"tarifas"}).salida.find("No hay tarifas"), std::string::npos);
}

TEST_F(Ordenes, TarifasImportarRechazaSinTocarElLibroYMuestraLosAvisos) {
    auto j = nlohmann::ordered_json::parse(Ejecutar({"tarifas", "--exportar"}).salida);
    const fs::path libro = datos / "Tarifas.Dat";
    const std::string antes = vorimesk::LeerArchivo(libro);
    const std::string archivo = (dir / "libro.json").string();

    auto malo = j;
    malo["tarifas"][1]["Nombre"] = "Ñandú";
    malo["tarifas"][3]["Sabado.Normal.Importe"] = "2,5";
    vorimesk::EscribirArchivoSeguro(archivo, malo.dump());
    auto r = Ejecutar({"tarifas", "--importar", archivo});
    EXPECT_EQ(r.estado, 1);
    EXPECT_EQ(r.errores.find("vorimesk-cli: No se importa " + archivo +
                             "; el libro de tarifas queda como estaba.\n"
                             "Error en la tarifa 2 (Ñandú): El nombre \"Ñandú\" empieza por"),
              0u)
        << r.errores;
    EXPECT_NE(r.errores.find("Error en la tarifa 4 (Interprovincial)"), std::string::npos);
    EXPECT_EQ(vorimesk::LeerArchivo(libro), antes);
    EXPECT_EQ(Ejecutar({"tarifas", "--importar", (dir / "no-existe.json").string()}).estado, 1);

    malo = j;
    malo["tarifas"][0]["Semana.Reducida.Inicio"] = "19:00:00";
    vorimesk::EscribirArchivoSeguro(archivo, malo.dump());
    r = Ejecutar({"tarifas", "--importar", archivo});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.errores, "vorimesk-cli: Aviso en la tarifa 1 (Metropolitana): En Semana no hay "
                         "franja de 18:00:00 a 18:59:59: esas horas se cobran como reducida.\n");

    // Una sola de --json, --importar y --exportar.
    EXPECT_EQ(Ejecutar({"tarifas", "--importar", archivo, "--json"}).estado, 2);
    EXPECT_EQ(Ejecutar({"tarifas", "--exportar", "--json"}).estado, 2);
}
