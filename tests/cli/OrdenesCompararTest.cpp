// comparar and prevision as outside tests drive them: a year of calls priced
// with the shipped book, bonos and a holiday in the settings file.

#include "CarpetaCli.h"
#include "LlamadasSimuladas.h"
#include "settings/ArchivoVariables.h"

#include <charconv>
#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class OrdenesComparar : public CarpetaCli {
protected:
    void SetUp() override {
        ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0);
        Log generado(datos);
        // A first call on a billing day: the monthly periods then run from
        // the 16th to the 15th.
        generado.AñadirItem(Fecha::Crear(2025, 12, 15), Fecha::DesdeSegundos(20 * 3600), "00:10:00",
                            "0", 1, "Metropolitana", "Casa", "", 0, 0, 0);
        LlenarConLlamadas(generado, datos, Fecha::Crear(2026, 1, 1), 365);
        // Every call on the tariff most users have.
        ConTarifa(generado, "Metropolitana", datos);
        Opciones(datos, true);
        ASSERT_EQ(Ejecutar({"recalcular"}).estado, 0);
    }

    // Saves the calls of `log` in `carpeta`, all of them on `tarifa`.
    static void ConTarifa(const Log& log, const std::string& tarifa, const fs::path& carpeta) {
        Log copia(carpeta);
        for (int i = 0; i < log.Count(); ++i) {
            RegistroLlamada r = log.Registro(i);
            r.Tarifa.Poner(tarifa);
            copia.AñadirItem(r);
        }
        copia.SalvarLog();
    }
    // Billing on the 15th, a holiday, and (when asked) a day and a night bono.
    static void Opciones(const fs::path& carpeta, bool conBonos) {
        Settings s = ValoresPorDefecto();
        s.DiaFactura = 15;
        s.Festivos = {Fecha::Crear(2026, 8, 15)};
        if (conBonos) {
            s.Bonos.push_back({0, Fecha::Crear(2026, 1, 1), FechaVariante::Vacia(), "10:00:00"});
            s.Bonos.push_back({2, Fecha::Crear(2026, 1, 1), FechaVariante::Vacia(), "10:00:00"});
        }
        GuardarVariables(carpeta / "Varibles.Dat", s);
    }
    // The register's amounts as `registro --json` lists them, added up in order.
    double TotalRegistro() const {
        double total = 0.0;
        const nlohmann::json registro = Json({"registro", "--json"});
        for (const auto& ll : registro["llamadas"]) {
            const std::string t = ll["importe"];
            double v = 0.0;
            std::from_chars(t.data(), t.data() + t.size(), v);
            total += v;
        }
        return total;
    }
    // `recalcular` on a copy of the data folder whose calls all use `tarifa`.
    double TotalRecalculado(const std::string& tarifa, bool conBonos) {
        const fs::path original = datos;
        const fs::path copia = dir / ("copia-" + tarifa + (conBonos ? "-con" : "-sin"));
        fs::copy(original, copia, fs::copy_options::recursive);
        Log log(copia);
        log.CargarLog();
        ConTarifa(log, tarifa, copia);
        Opciones(copia, conBonos);
        datos = copia;
        EXPECT_EQ(Ejecutar({"recalcular"}).estado, 0);
        const double total = TotalRegistro();
        datos = original;
        return total;
    }
    static const std::vector<std::string> kAño;
};

const std::vector<std::string> OrdenesComparar::kAño = {"comparar", "--desde",    "2025-12-01",
                                                        "--hasta",  "2026-12-31", "--json"};

} // namespace

TEST_F(OrdenesComparar, CadaTarifaDaLoQueRecalcularCobraConElla) {
    const std::string registro = Leer(datos / "RegDat.log");
    const std::string opciones = Leer(datos / "Varibles.Dat");
    const nlohmann::json c = Json(kAño);
    EXPECT_EQ(Leer(datos / "RegDat.log"), registro) << "the register is not touched";
    EXPECT_EQ(Leer(datos / "Varibles.Dat"), opciones) << "nor the ledger";

    EXPECT_EQ(c["desde"], "2025-12-01");
    EXPECT_EQ(c["hasta"], "2026-12-31");
    EXPECT_EQ(c["llamadas"], Json({"registro", "--json"})["llamadas"].size());
    const double cobrado = TotalRegistro();
    EXPECT_EQ(c["cobrado"].get<double>(), cobrado);
    ASSERT_EQ(c["tarifas"].size(), 5u);
    EXPECT_EQ(c["tarifas"][0]["tarifa"], "Metropolitana");
    EXPECT_EQ(c["tarifas"][0]["conBono"].get<double>(), cobrado) << "the tariff actually used";
    EXPECT_EQ(c["tarifas"][0]["diferenciaConBono"].get<double>(), 0.0);
    for (const auto& t : c["tarifas"]) {
        const std::string nombre = t["tarifa"];
        SCOPED_TRACE(nombre);
        EXPECT_EQ(t["conBono"].get<double>(), TotalRecalculado(nombre, true));
        EXPECT_EQ(t["sinBono"].get<double>(), TotalRecalculado(nombre, false));
        EXPECT_EQ(t["diferenciaSinBono"].get<double>(), t["sinBono"].get<double>() - cobrado);
    }
    // With bonos the day and night calls they cover cost nothing.
    EXPECT_EQ(c["masBarata"]["conBono"], true);
    const std::string barata = c["masBarata"]["tarifa"];
    EXPECT_TRUE(barata == "Metropolitana" || barata == "BonoNet") << barata;
}

TEST_F(OrdenesComparar, PeriodoNEsElEnesimoAntesDelActual) {
    const std::vector<std::string> hoy = {"--hoy", "2026-12-20", "--json"};
    auto orden = [&hoy](std::vector<std::string> o) {
        o.insert(o.begin(), "comparar");
        o.insert(o.end(), hoy.begin(), hoy.end());
        return o;
    };
    const nlohmann::json actual = Json(orden({}));
    EXPECT_EQ(Json(orden({"--periodo", "0"})), actual);
    // The current period runs to today, as the summary shows it.
    EXPECT_EQ(actual["desde"], "2026-12-16");
    EXPECT_EQ(actual["hasta"], "2026-12-20");
    const nlohmann::json anterior = Json(orden({"--periodo", "1"}));
    EXPECT_EQ(anterior["desde"], "2026-11-16");
    EXPECT_EQ(anterior["hasta"], "2026-12-15");
    EXPECT_EQ(Json(orden({"--desde", "2026-11-16", "--hasta", "2026-12-15"})), anterior);

    const ResultadoCli lejos = Ejecutar(orden({"--periodo", "40"}));
    EXPECT_EQ(lejos.estado, 1);
    EXPECT_NE(lejos.errores.find("No hay periodo 40"), std::string::npos) << lejos.errores;
    const ResultadoCli alReves =
        Ejecutar({"comparar", "--desde", "2026-05-01", "--hasta", "2026-04-01"});
    EXPECT_EQ(alReves.estado, 1);
    EXPECT_NE(alReves.errores.find("anterior"), std::string::npos);
    const ResultadoCli sinHasta = Ejecutar({"comparar", "--desde", "2026-05-01"});
    EXPECT_EQ(sinHasta.estado, 2);
    EXPECT_NE(sinHasta.errores.find("--desde necesita --hasta"), std::string::npos)
        << sinHasta.errores;
    EXPECT_EQ(
        Ejecutar({"comparar", "--periodo", "1", "--desde", "2026-05-01", "--hasta", "2026-06-01"})
            .estado,
        2);
    EXPECT_EQ(Ejecutar({"comparar", "--periodo", "-1"}).estado, 2);

    const ResultadoCli texto = Ejecutar({"comparar", "--periodo", "1", "--hoy", "2026-12-20"});
    EXPECT_EQ(texto.estado, 0);
    EXPECT_NE(texto.salida.find("Periodo: 16/11/2026 - 15/12/2026"), std::string::npos);
    EXPECT_NE(texto.salida.find("La mas barata: "), std::string::npos) << texto.salida;
}

TEST_F(OrdenesComparar, PrevisionDelPeriodoConYSinPresupuesto) {
    // 16 November to 15 December is 30 days; the 30th is half of it.
    const nlohmann::json p = Json({"prevision", "--hoy", "2026-11-30", "--json"});
    EXPECT_EQ(p["desde"], "2026-11-16");
    EXPECT_EQ(p["hasta"], "2026-12-15");
    EXPECT_EQ(p["diasPeriodo"], 30);
    EXPECT_EQ(p["diasTranscurridos"], 15);
    EXPECT_EQ(p["diasQuedan"], 15);
    EXPECT_GT(p["gastado"].get<double>(), 0.0);
    EXPECT_EQ(p["proyeccion"].get<double>(), 2 * p["gastado"].get<double>());
    EXPECT_EQ(p["regla"], "Gasto hasta hoy / dias transcurridos (hoy incluido) x dias del periodo");
    EXPECT_TRUE(p["presupuesto"].is_null());
    EXPECT_TRUE(p["porDiaRestante"].is_null());
    EXPECT_EQ(p["superaPresupuesto"], false);

    const double gastado = p["gastado"];
    Escribir(datos / "Presupuesto.Dat", "1.5\r\n");
    const nlohmann::json pasa = Json({"prevision", "--hoy", "2026-11-30", "--json"});
    EXPECT_EQ(pasa["presupuesto"], 1.5);
    EXPECT_EQ(pasa["superaPresupuesto"], true);
    EXPECT_EQ(pasa["porDiaRestante"], 0.0);
    Escribir(datos / "Presupuesto.Dat", std::to_string(static_cast<int>(gastado) + 150) + "\r\n");
    const nlohmann::json cabe = Json({"prevision", "--hoy", "2026-11-30", "--json"});
    EXPECT_DOUBLE_EQ(cabe["porDiaRestante"].get<double>(),
                     (static_cast<int>(gastado) + 150 - gastado) / 15);

    const ResultadoCli texto = Ejecutar({"prevision", "--hoy", "2026-11-30"});
    EXPECT_EQ(texto.estado, 0);
    EXPECT_NE(texto.salida.find("Regla: Gasto hasta hoy"), std::string::npos) << texto.salida;

    Escribir(datos / "Presupuesto.Dat", "mucho\r\n");
    const ResultadoCli dañado = Ejecutar({"prevision", "--json"});
    EXPECT_EQ(dañado.estado, 1);
    EXPECT_NE(dañado.errores.find("Presupuesto.Dat"), std::string::npos) << dañado.errores;
    EXPECT_EQ(dañado.salida, "");
    EXPECT_EQ(Leer(datos / "Presupuesto.Dat"), "mucho\r\n");
}
