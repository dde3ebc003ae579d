// planes, uso and calcular's volume as outside tests drive them. Figures
// worked out by hand: 1 MB included, 1.024 per MB past it (0.001 per KB),
// 10 KB steps, at least 0.1 a session; A renews on the 10th, B on the 20th.

#include "CarpetaCli.h"
#include "register/Log.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

const char* kPlanes = R"({"formato":"vorimesk-planes","version":1,
    "planes":[{"Tarifa":"Metropolitana","IncluidoMB":1,"PrecioMB":1.024,"PasoKB":10,
               "MinimoSesion":0.1,"CuotaPeriodo":5}],
    "conexiones":[{"Conexion":"A","Ciclo":{"Dia":10}},{"Conexion":"B","Ciclo":{"Dia":20}}]})";

class OrdenesPlanes : public CarpetaCli {
protected:
    void SetUp() override { ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0); }
    std::filesystem::path planes = datos / "Planes.json";
};

TEST_F(OrdenesPlanes, ImportarSoloUnArchivoValidoYExportarLoMismo) {
    Escribir(dir / "malo.json",
             R"({"formato":"vorimesk-planes","version":1,"planes":[{"Tarifa":"T","PasoKB":0}]})");
    const ResultadoCli malo = Ejecutar({"planes", "--importar", (dir / "malo.json").string()});
    EXPECT_EQ(malo.estado, 1);
    EXPECT_NE(malo.errores.find("\"planes[0].PasoKB\""), std::string::npos) << malo.errores;
    EXPECT_FALSE(std::filesystem::exists(planes));

    Escribir(dir / "bueno.json", kPlanes);
    ASSERT_EQ(Ejecutar({"planes", "--importar", (dir / "bueno.json").string()}).estado, 0);
    const nlohmann::json j = Json({"planes", "--json"});
    EXPECT_EQ(j["planes"][0]["PasoKB"], 10);
    EXPECT_EQ(j["conexiones"][1]["Ciclo"]["Dia"], 20);
    ASSERT_EQ(Ejecutar({"planes", "--exportar", (dir / "copia.json").string()}).estado, 0);
    EXPECT_EQ(Leer(dir / "copia.json"), Leer(planes));
    EXPECT_EQ(Ejecutar({"planes", "--exportar"}).salida, Leer(planes));
}

TEST_F(OrdenesPlanes, UsoDeCadaConexionEnSuCiclo) {
    Escribir(planes, kPlanes);
    Log log(datos);
    struct {
        const char* inicio;
        const char* conexion;
        int kb;
    } llamadas[] = {
        {"2026-03-15 10:00:00", "A", 500},  // 176 KB past the 1024: 0.176
        {"2026-03-12 10:00:00", "A", 700},  // inside
        {"2026-03-05 10:00:00", "A", 1100}, // the cycle before
        {"2026-03-15 09:00:00", "B", 1100}, // B's cycle before
        {"2026-03-21 09:00:00", "B", 5},    // 10 KB stepped
        {"2026-03-26 09:00:00", "A", 100},  // after the day asked about
    };
    for (const auto& l : llamadas) {
        const Fecha f = *Fecha::LeerIso(l.inicio);
        log.AñadirItem(f.SoloFecha(), f.SoloHora(), "00:05:00", "0", 0, "Metropolitana", l.conexion,
                       "", 0, l.kb, 0);
    }
    log.SalvarLog();
    const nlohmann::json j = Json({"uso", "--hoy", "2026-03-25", "--json"});
    ASSERT_EQ(j["conexiones"].size(), 2u) << j;
    const nlohmann::json& a = j["conexiones"][0];
    EXPECT_EQ(a["conexion"], "A");
    EXPECT_EQ(a["desde"], "2026-03-10");
    EXPECT_EQ(a["hasta"], "2026-04-09");
    EXPECT_EQ(a["usadoMB"], 1.171875); // 1200 KB
    EXPECT_EQ(a["incluidoMB"], 1.0);
    EXPECT_EQ(a["restanteMB"], 0.0);
    EXPECT_EQ(a["porDiaMB"], 0.0);
    EXPECT_EQ(a["previsionMB"], 2.2705078125); // 1.171875 / 16 days x 31
    EXPECT_NEAR(a["importeVolumen"].get<double>(), 0.176, 1e-12);
    EXPECT_EQ(a["cuota"], 5.0);
    const nlohmann::json& b = j["conexiones"][1];
    EXPECT_EQ(b["desde"], "2026-03-20");
    EXPECT_EQ(b["hasta"], "2026-04-19");
    EXPECT_EQ(b["usadoMB"], 0.009765625);
    EXPECT_EQ(b["restanteMB"], 0.990234375);
    EXPECT_EQ(b["porDiaMB"], 0.0380859375);                              // 1014 KB over 26 days
    EXPECT_NEAR(b["previsionMB"].get<double>(), 0.0504557291667, 1e-12); // 10 KB / 6 x 31
    EXPECT_EQ(b["importeVolumen"], 0.0);
}

TEST_F(OrdenesPlanes, CalcularDaElImporteDelVolumen) {
    Escribir(planes, kPlanes);
    const std::vector<std::string> llamada = {
        "calcular", "--inicio", "2026-03-02 10:00:00", "--fin", "2026-03-02 10:05:00", "--json"};
    auto con = [&](std::vector<std::string> mas) {
        std::vector<std::string> args = llamada;
        args.insert(args.end(), mas.begin(), mas.end());
        return Json(args);
    };
    const nlohmann::json solo = Json(llamada);
    EXPECT_FALSE(solo.contains("importeVolumen"));
    // 1036 KB, 1040 stepped, 524 left of the allowance: 516 past.
    const nlohmann::json j = con({"--recibidos", "1000", "--enviados", "36", "--usado", "500"});
    EXPECT_EQ(j["importe"], solo["importe"]);
    EXPECT_NEAR(j["importeVolumen"].get<double>(), 0.516, 1e-6);
    EXPECT_EQ(con({"--recibidos", "1000", "--enviados", "0"})["importeVolumen"], 0);
    EXPECT_EQ(con({"--recibidos", "5000", "--tarifa", "Provincial"})["importeVolumen"], 0);
}

} // namespace
