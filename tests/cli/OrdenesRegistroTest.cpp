#include "AplicacionCli.h"
#include "CarpetaTemporal.h"
#include "RegistroAMano.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

using namespace vorimesk::cli;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

struct Resultado {
    int estado;
    std::string salida;
    std::string errores;
};

class OrdenesRegistro : public CarpetaTemporal {
protected:
    Resultado Ejecutar(std::vector<std::string> args) {
        args.insert(args.begin(), {"vorimesk-cli", "--datos", dir.string()});
        std::vector<const char*> argv;
        for (const std::string& a : args) {
            argv.push_back(a.c_str());
        }
        AplicacionCli app;
        RegistrarOrdenes(app);
        std::ostringstream salida, errores;
        const int e = app.Ejecutar(static_cast<int>(argv.size()), argv.data(), salida, errores);
        return {e, salida.str(), errores.str()};
    }
    nlohmann::json Json(std::vector<std::string> args) {
        const Resultado r = Ejecutar(std::move(args));
        EXPECT_EQ(r.estado, 0) << r.errores;
        return nlohmann::json::parse(r.salida);
    }
    fs::path Registro() const { return dir / "RegDat.log"; }

    // Two calls: a plain one and one with every odd value the file allows.
    static std::string DosLlamadas() {
        CamposAMano a; // 15/11/1999 12:00:00, "125", Metropolitana, Casa
        CamposAMano b;
        b.dia = 45351.0; // 29/02/2024
        b.hora = 0.75;
        b.duracion = "01:02:03";
        b.importe = "7,5";
        b.tipo = 255;
        b.tarifa = "Tarifa; rara";
        b.conexion = "Telef\xF3nica";
        b.reservada = std::string(10, '\0');
        b.bono = -1;
        b.recibidos = 2;
        b.enviados = -3;
        return RegistroAMano(a) + RegistroAMano(b);
    }
};

} // namespace

TEST_F(OrdenesRegistro, RegistroJsonConLosCamposDelContrato) {
    Escribir(Registro(), DosLlamadas());
    const nlohmann::json j = Json({"registro", "--json"});
    ASSERT_EQ(j.size(), 1u);
    const auto& ll = j.at("llamadas");
    ASSERT_EQ(ll.size(), 2u);
    std::vector<std::string> claves;
    for (const auto& [clave, valor] : ll[0].items()) {
        claves.push_back(clave);
    }
    std::sort(claves.begin(), claves.end());
    EXPECT_EQ(claves,
              (std::vector<std::string>{"Bono", "Conexion", "Dia", "Duracion", "Enviados", "Hora",
                                        "Recibidos", "Reservada", "Tarifa", "Tipo", "importe"}));
    EXPECT_EQ(ll[0]["Dia"], "1999-11-15");
    EXPECT_EQ(ll[0]["Hora"], "12:00:00");
    EXPECT_EQ(ll[0]["Duracion"], "00:05:00");
    EXPECT_EQ(ll[0]["importe"], "125");
    EXPECT_EQ(ll[0]["Tipo"], 0);
    EXPECT_EQ(ll[0]["Tarifa"], "Metropolitana");
    EXPECT_EQ(ll[0]["Recibidos"], 120);
    EXPECT_EQ(ll[1]["Dia"], "2024-02-29");
    EXPECT_EQ(ll[1]["Hora"], "18:00:00");
    EXPECT_EQ(ll[1]["importe"], "7,5");
    EXPECT_EQ(ll[1]["Tipo"], -1);
    EXPECT_EQ(ll[1]["Conexion"], "Telefónica");
    EXPECT_EQ(ll[1]["Reservada"], "");
    EXPECT_EQ(ll[1]["Bono"], -1);
    EXPECT_EQ(ll[1]["Enviados"], -3);

    const Resultado r = Ejecutar({"registro"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_NE(r.salida.find("15/11/1999  12:00:00  00:05:00"), std::string::npos) << r.salida;
    EXPECT_EQ(r.salida.find("Reducida"), std::string::npos) << r.salida; // -1 is not reduced
    EXPECT_NE(r.salida.find("Llamadas: 2   Duracion total: 01:07:03"), std::string::npos)
        << r.salida;
    EXPECT_EQ(Leer(Registro()), DosLlamadas()); // listing changes nothing
}

TEST_F(OrdenesRegistro, UnRegistroIlegibleEsUnErrorDelUsuario) {
    CamposAMano malo;
    malo.dia = 1e300;
    Escribir(Registro(), RegistroAMano(malo));
    const Resultado r = Ejecutar({"registro", "--json"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("vorimesk-cli: "), std::string::npos);
    EXPECT_EQ(Leer(Registro()), RegistroAMano(malo));
}

TEST_F(OrdenesRegistro, ExportarCsvYJson) {
    Escribir(Registro(), DosLlamadas());
    Resultado r = Ejecutar({"exportar", "--formato", "csv"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida,
              "Dia;Hora;Duracion;Importe;Tipo;Tarifa;Conexion;Reservada;Bono;Recibidos;Enviados\r\n"
              "1999-11-15;12:00:00;00:05:00;125;0;Metropolitana;Casa;;0;120;30\r\n"
              "2024-02-29;18:00:00;01:02:03;7,5;-1;\"Tarifa; rara\";Telefónica;;-1;2;-3\r\n");

    const nlohmann::json j = Json({"exportar", "--formato", "json", "--desde", "2000-01-01"});
    ASSERT_EQ(j["llamadas"].size(), 1u);
    EXPECT_EQ(j["llamadas"][0]["importe"], 7.5);
    EXPECT_EQ(Json({"exportar", "--formato", "json", "--hasta", "2024-02-28"})["llamadas"].size(),
              1u);

    r = Ejecutar({"exportar", "--formato", "csv", "--salida", (dir / "x.csv").string()});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(Leer(dir / "x.csv").substr(0, 4), "Dia;");

    EXPECT_EQ(Ejecutar({"exportar"}).estado, 2);
    EXPECT_EQ(Ejecutar({"exportar", "--formato", "xml"}).estado, 2);
    r = Ejecutar({"exportar", "--formato", "csv", "--desde", "2024-02-30"});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("no es una fecha"), std::string::npos) << r.errores;
}

TEST_F(OrdenesRegistro, ArchivarListarYRecuperarDevuelvenElRegistro) {
    Escribir(Registro(), DosLlamadas());
    nlohmann::json j = Json({"archivar", "--descripcion", "Todo 1999-2024", "--borrar", "--desde",
                             "1999-01-01", "--json"});
    EXPECT_EQ(j["nombre"], "Copia000.CPR");
    EXPECT_EQ(j["archivadas"], 2);
    EXPECT_EQ(j["quitadas"], 2);
    // The register is empty now: only its backup is left.
    EXPECT_FALSE(Existe(Registro()));
    EXPECT_EQ(Leer(dir / "RegDat.bak"), DosLlamadas());

    j = Json({"archivos", "--json"});
    ASSERT_EQ(j["copias"].size(), 1u);
    EXPECT_EQ(j["copias"][0]["nombre"], "Copia000.CPR");
    EXPECT_EQ(j["copias"][0]["descripcion"], "Todo 1999-2024");
    EXPECT_EQ(j["copias"][0]["existe"], true);
    EXPECT_EQ(j["siguiente"], "Copia001.CPR");

    j = Json({"recuperar", "Copia000.CPR", "--json"});
    EXPECT_EQ(j["recuperadas"], 2);
    EXPECT_EQ(Leer(Registro()), DosLlamadas());

    // Restoring again adds the calls once more, unless they replace the
    // register; saving the current calls first makes a new archive.
    EXPECT_EQ(Json({"recuperar", "Copia000.CPR", "--json"})["llamadas"], 4);
    j = Json({"recuperar", "Copia000.CPR", "--sustituir", "--guardar-antes", "antes", "--json"});
    EXPECT_EQ(j["llamadas"], 2);
    EXPECT_EQ(Leer(Registro()), DosLlamadas());
    EXPECT_EQ(j["guardadas"], "Copia001.CPR");
    EXPECT_EQ(Json({"archivos", "--json"})["copias"][1]["descripcion"], "antes");
}

TEST_F(OrdenesRegistro, UnaCopiaDañadaNoCambiaElRegistro) {
    Escribir(Registro(), DosLlamadas());
    fs::create_directory(dir / "Copias");
    Escribir(dir / "Copias" / "Copia000.CPR", "#2024-01-01#,#10:00:00#,\"00:01:00\"\r\n");
    Resultado r = Ejecutar({"recuperar", "Copia000.CPR"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Copia000.CPR"), std::string::npos) << r.errores;
    EXPECT_NE(r.errores.find("linea 1"), std::string::npos) << r.errores;
    EXPECT_EQ(Leer(Registro()), DosLlamadas());
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
    EXPECT_EQ(Ejecutar({"recuperar", "Copia999.CPR"}).estado, 1);
    EXPECT_EQ(Ejecutar({"recuperar"}).estado, 2);
}
