#include "CarpetaCli.h"
#include "RegistroAMano.h"

#include <gtest/gtest.h>

using namespace vorimesk::prueba;
namespace fs = std::filesystem;
using nlohmann::json;

namespace {

class OrdenesRegistro : public CarpetaCli {
protected:
    fs::path Registro() const { return datos / "RegDat.log"; }

    // Two calls: a plain one and one with every odd value the file allows.
    static std::string DosLlamadas() {
        const CamposAMano b{.dia = 45351.0, // 29/02/2024
                            .hora = 0.75,
                            .duracion = "01:02:03",
                            .importe = "7,5",
                            .tipo = 255,
                            .tarifa = "Tarifa; rara",
                            .conexion = "Telef\xF3nica",
                            .reservada = std::string(10, '\0'),
                            .bono = -1,
                            .recibidos = 2,
                            .enviados = -3};
        return RegistroAMano(CamposAMano{}) + RegistroAMano(b);
    }
};

} // namespace

TEST_F(OrdenesRegistro, RegistroJsonConLosCamposDelContrato) {
    Escribir(Registro(), DosLlamadas());
    // Exactly these keys, nothing more.
    EXPECT_EQ(Json({"registro", "--json"}), json::parse(R"({"llamadas": [
        {"Dia": "1999-11-15", "Hora": "12:00:00", "Duracion": "00:05:00", "importe": "125",
         "Tipo": 0, "Tarifa": "Metropolitana", "Conexion": "Casa", "Reservada": "", "Bono": 0,
         "Recibidos": 120, "Enviados": 30},
        {"Dia": "2024-02-29", "Hora": "18:00:00", "Duracion": "01:02:03", "importe": "7,5",
         "Tipo": -1, "Tarifa": "Tarifa; rara", "Conexion": "Telefónica", "Reservada": "",
         "Bono": -1, "Recibidos": 2, "Enviados": -3}]})"));

    const ResultadoCli r = Ejecutar({"registro"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_NE(r.salida.find("15/11/1999  12:00:00  00:05:00"), std::string::npos) << r.salida;
    EXPECT_EQ(r.salida.find("Reducida"), std::string::npos) << r.salida; // -1 is not reduced
    EXPECT_NE(r.salida.find("Llamadas: 2   Duracion total: 01:07:03"), std::string::npos)
        << r.salida;
    EXPECT_EQ(Leer(Registro()), DosLlamadas()); // listing changes nothing
}

TEST_F(OrdenesRegistro, UnRegistroIlegibleEsUnErrorDelUsuario) {
    const std::string malo = RegistroAMano({.dia = 1e300});
    Escribir(Registro(), malo);
    const ResultadoCli r = Ejecutar({"registro", "--json"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("vorimesk-cli: "), std::string::npos);
    EXPECT_EQ(Leer(Registro()), malo);
}

TEST_F(OrdenesRegistro, ExportarCsvYJson) {
    Escribir(Registro(), DosLlamadas());
    ResultadoCli r = Ejecutar({"exportar", "--formato", "csv"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida,
              "Dia;Hora;Duracion;Importe;Tipo;Tarifa;Conexion;Reservada;Bono;Recibidos;Enviados\r\n"
              "1999-11-15;12:00:00;00:05:00;125;0;Metropolitana;Casa;;0;120;30\r\n"
              "2024-02-29;18:00:00;01:02:03;7,5;-1;\"Tarifa; rara\";Telefónica;;-1;2;-3\r\n");

    const json j = Json({"exportar", "--formato", "json", "--desde", "2000-01-01"});
    ASSERT_EQ(j["llamadas"].size(), 1u);
    EXPECT_EQ(j["llamadas"][0]["importe"], 7.5);
    EXPECT_EQ(Json({"exportar", "--formato", "json", "--hasta", "2024-02-28"})["llamadas"].size(),
              1u);

    EXPECT_EQ(
        Ejecutar({"exportar", "--formato", "csv", "--salida", (dir / "x.csv").string()}).salida,
        "");
    EXPECT_EQ(Leer(dir / "x.csv").substr(0, 4), "Dia;");

    EXPECT_EQ(Ejecutar({"exportar"}).estado, 2);
    EXPECT_EQ(Ejecutar({"exportar", "--formato", "xml"}).estado, 2);
    r = Ejecutar({"exportar", "--formato", "csv", "--desde", "2024-02-30"});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("no es una fecha"), std::string::npos) << r.errores;
}

TEST_F(OrdenesRegistro, ArchivarListarYRecuperarDevuelvenElRegistro) {
    Escribir(Registro(), DosLlamadas());
    json j = Json({"archivar", "--descripcion", "Todo 1999-2024", "--borrar", "--desde",
                   "1999-01-01", "--json"});
    EXPECT_EQ(j, json::parse(R"({"nombre": "Copia000.CPR", "escrita": true, "archivadas": 2,
                               "quitadas": 2})"));
    // The register is empty now: only its backup is left.
    EXPECT_FALSE(Existe(Registro()));
    EXPECT_EQ(Leer(datos / "RegDat.bak"), DosLlamadas());

    EXPECT_EQ(Json({"archivos", "--json"}), json::parse(R"({"siguiente": "Copia001.CPR",
        "copias": [{"nombre": "Copia000.CPR", "descripcion": "Todo 1999-2024", "existe": true}]})"));

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
    Escribir(datos / "Copias" / "Copia000.CPR", "#2024-01-01#,#10:00:00#,\"00:01:00\"\r\n");
    ResultadoCli r = Ejecutar({"recuperar", "Copia000.CPR"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Copia000.CPR"), std::string::npos) << r.errores;
    EXPECT_NE(r.errores.find("linea 1"), std::string::npos) << r.errores;
    EXPECT_EQ(Leer(Registro()), DosLlamadas());
    EXPECT_FALSE(Existe(datos / "RegDat.bak"));
    EXPECT_EQ(Ejecutar({"recuperar", "Copia999.CPR"}).estado, 1);
    EXPECT_EQ(Ejecutar({"recuperar"}).estado, 2);
}
