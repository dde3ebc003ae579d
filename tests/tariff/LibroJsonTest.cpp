#include "tariff/LibroJson.h"

#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Archivo.h"
#include "tariff/LibroPorDefecto.h"

#include <nlohmann/json.hpp>

using namespace vorimesk;
using namespace prueba;
namespace fs = std::filesystem;

namespace {

using Json = CarpetaTemporal;

std::string Exportar(const fs::path& dir) {
    cLlamada libro(dir);
    libro.Load();
    return ExportarJson(LibroEditable::DesdeLibro(libro));
}

// Imports the document over the book in `dir`, as the command does.
void Importar(const std::string& texto, const fs::path& dir) {
    const Importacion r = ImportarJson(texto);
    ASSERT_FALSE(HayErrores(r.problemas)) << TextoProblemas(r.problemas);
    cLlamada libro(dir);
    r.libro.AplicarA(libro);
    libro.Save();
}

// The one problem a bad document gives.
std::string Fallo(const std::string& texto) {
    const Importacion r = ImportarJson(texto);
    EXPECT_EQ(r.libro.Count(), 0);
    EXPECT_EQ(r.problemas.size(), 1u);
    return r.problemas.empty() ? "" : r.problemas[0].Texto();
}

nlohmann::ordered_json Documento(const fs::path& dir) {
    return nlohmann::ordered_json::parse(Exportar(dir));
}

} // namespace

TEST_F(Json, ExportarEImportarDejaElMismoArchivo) {
    InstalarLibroPorDefecto(dir);
    const std::string serie = LeerArchivo(dir / "Tarifas.Dat");
    const std::string json = Exportar(dir);
    fs::remove(dir / "Tarifas.Dat");
    Importar(json, dir);
    EXPECT_EQ(LeerArchivo(dir / "Tarifas.Dat"), serie);
    EXPECT_EQ(Exportar(dir), json);

    // Nombres con letras de Windows-1252 y horas con segundos.
    cLlamada libro(dir);
    PonerTarifa(libro, "Compañía €", "0.5", "01:30:00", Laborable("2", "1"),
                {{"4", "09:15:30", "13:00:01"}, {"3", "13:00:02", "09:15:29"}},
                TodoReducido("0.25"));
    libro.Save();
    const std::string propio = LeerArchivo(dir / "Tarifas.Dat");
    const std::string json2 = Exportar(dir);
    EXPECT_NE(json2.find("\"Nombre\": \"Compañía €\""), std::string::npos) << json2;
    Importar(json2, dir);
    EXPECT_EQ(LeerArchivo(dir / "Tarifas.Dat"), propio);
}

TEST_F(Json, FormatoLegibleYVersionado) {
    InstalarLibroPorDefecto(dir);
    const auto j = Documento(dir);
    EXPECT_EQ(j["formato"], "vorimesk-tarifas");
    EXPECT_EQ(j["version"], 1);
    const auto& t = j["tarifas"][0];
    ASSERT_EQ(t.size(), 21u);
    auto clave = RegistroTarifa::Claves().begin();
    for (const auto& [k, v] : t.items()) {
        EXPECT_EQ(k, *clave++);
    }
    EXPECT_EQ(t["Sabado.Normal.Fin"], "13:59:59");
    // Una tarifa por bloque, con sangria.
    EXPECT_NE(Exportar(dir).find("\n      \"Nombre\": \"BonoNet\",\n"), std::string::npos);
}

TEST_F(Json, ImportesComoNumerosYHorasCortas) {
    InstalarLibroPorDefecto(dir);
    auto j = Documento(dir);
    j["tarifas"][0]["Semana.Normal.Importe"] = 2.75;
    j["tarifas"][0]["Conexion.Importe"] = 12;
    j["tarifas"][0]["Semana.Normal.Inicio"] = "8:00";
    Importar(j.dump(), dir);
    cLlamada libro(dir);
    libro.Load();
    EXPECT_EQ(libro.ValorTexto(0, "Semana.Normal.Importe"), "2.75");
    EXPECT_EQ(libro.ValorTexto(0, "Conexion.Importe"), "12");
    EXPECT_EQ(libro.ValorTexto(0, "Semana.Normal.Inicio"), "08:00:00");
}

TEST_F(Json, DocumentosQueNoSonUnLibro) {
    InstalarLibroPorDefecto(dir);
    EXPECT_EQ(Fallo("{\n  \"formato\": \"vorimesk-tarifas\",\n  \"version\" 1\n}"),
              "Error: El archivo no es un JSON valido (linea 3, columna 12).");
    EXPECT_EQ(Fallo(""), "Error: El archivo no es un JSON valido (linea 1, columna 0).");
    EXPECT_NE(Fallo("[]").find("falta \"formato\""), std::string::npos);
    EXPECT_NE(Fallo(R"({"formato": "otro", "version": 1, "tarifas": []})").find("formato"),
              std::string::npos);

    auto j = Documento(dir);
    j["version"] = 2;
    EXPECT_EQ(Fallo(j.dump()), "Error: La version 2 del formato no se puede leer; esta version "
                               "del programa lee la 1.");
    j["version"] = "1";
    EXPECT_NE(Fallo(j.dump()).find("\"version\""), std::string::npos);
    j.erase("tarifas");
    j["version"] = 1;
    EXPECT_NE(Fallo(j.dump()).find("\"tarifas\""), std::string::npos);

    const auto conTarifa = [&](auto cambiar) {
        auto d = Documento(dir);
        cambiar(d["tarifas"][2]);
        return Fallo(d.dump());
    };
    EXPECT_EQ(conTarifa([](auto& t) { t = "Provincial"; }),
              "Error: La tarifa 3 no es un objeto JSON ({...}).");
    EXPECT_EQ(conTarifa([](auto& t) { t.erase("Festivo.Reducida.Fin"); }),
              "Error: La tarifa 3 no tiene el campo \"Festivo.Reducida.Fin\".");
    EXPECT_EQ(conTarifa([](auto& t) { t["Semana.Normal.Precio"] = "2"; }),
              "Error: La tarifa 3 tiene el campo desconocido \"Semana.Normal.Precio\".");
    EXPECT_EQ(conTarifa([](auto& t) { t["Semana.Normal.Inicio"] = 8; }),
              "Error: El campo \"Semana.Normal.Inicio\" de la tarifa 3 debe ser un texto entre "
              "comillas.");
    EXPECT_EQ(conTarifa([](auto& t) { t["Nombre"] = nullptr; }),
              "Error: El campo \"Nombre\" de la tarifa 3 debe ser un texto entre comillas.");
}

TEST_F(Json, ElContenidoSeValidaComoEnElEditor) {
    InstalarLibroPorDefecto(dir);
    auto j = Documento(dir);
    j["tarifas"][1]["Nombre"] = "Una tarifa muy larga";
    const Importacion r = ImportarJson(j.dump());
    EXPECT_EQ(r.libro.Count(), 5);
    ASSERT_EQ(r.problemas.size(), 1u);
    EXPECT_EQ(std::pair(r.problemas[0].tarifa, r.problemas[0].clave),
              std::pair(1, std::string("Nombre")));
}
