#include "core/TextoDelimitado.h"

#include "core/ErrorFormato.h"
#include "core/Lineas.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using Lineas = std::vector<std::string_view>;
using Clase = CampoDelimitado::Clase;

TEST(DividirLineas, CadaFinDeLineaYSinLineaVaciaAlFinal) {
    EXPECT_EQ(DividirLineas("a\r\nb\nc\rd"), (Lineas{"a", "b", "c", "d"}));
    EXPECT_EQ(DividirLineas("a\r\n"), (Lineas{"a"}));
    EXPECT_EQ(DividirLineas("a"), (Lineas{"a"}));
    EXPECT_EQ(DividirLineas(""), Lineas{});
    EXPECT_EQ(DividirLineas("\r\n"), (Lineas{""}));
    EXPECT_EQ(DividirLineas("a\n\nb\n"), (Lineas{"a", "", "b"}));
    // CR CR LF is a lone CR and then a CR LF; LF CR are two ends.
    EXPECT_EQ(DividirLineas("a\r\r\nb"), (Lineas{"a", "", "b"}));
    EXPECT_EQ(DividirLineas("\n\r"), (Lineas{"", ""}));
    EXPECT_EQ(DividirLineas("x\r"), (Lineas{"x"}));
}

// The fields of a line as "clase:valor|...": V empty, T text, L literal, S
// anything else; a "!" marks a text with no closing quote.
std::string Campos(std::string_view linea) {
    std::string r;
    for (const CampoDelimitado& c : CamposDeLinea(linea)) {
        r += (r.empty() ? "" : "|") + std::string(1, "VTLS"[static_cast<int>(c.clase)]) +
             (c.cerrado ? ":" : "!") + c.valor;
    }
    return r;
}

TEST(CamposDeLinea, ComoLosLeeElLectorDeArchivosDeTexto) {
    EXPECT_EQ(Campos(R"(#1999-10-10#,"a, b",  7 ,,#TRUE#,"")"),
              "L:1999-10-10|T:a, b|S:7|V:|L:TRUE|T:");
    // A quote inside a text cuts it; the rest up to the comma is dropped and
    // the fields behind keep their places.
    EXPECT_EQ(Campos(R"("dijo "hola" y",5)"), "T:dijo |S:5");
    EXPECT_EQ(Campos(""), "V:");
    EXPECT_EQ(Campos("1,"), "S:1|V:");
    EXPECT_EQ(Campos(R"("sin cierre, sigue)"), "T!sin cierre, sigue");
    EXPECT_EQ(Campos("#2024-01-0,3"), "S:#2024-01-0|S:3");
    EXPECT_THROW(ComoTexto(CamposDeLinea(R"("sin cierre)").front(), 1), ErrorFormato);
    EXPECT_THROW(ComoFecha(CamposDeLinea("#2024-01-0").front(), 1), ErrorFormato);
}

TEST(LiteralFecha, FechaHoraOAmbas) {
    EXPECT_EQ(LiteralFecha(Fecha::Crear(1999, 10, 10)), "#1999-10-10#");
    EXPECT_EQ(LiteralFecha(Fecha::DesdeSegundos(14 * 3600 + 5 * 60)), "#14:05:00#");
    EXPECT_EQ(LiteralFecha(Fecha()), "#00:00:00#");
    EXPECT_EQ(LiteralFecha(Fecha::Crear(2024, 2, 29, 0, 0, 1)), "#2024-02-29 00:00:01#");
    EXPECT_EQ(LiteralFecha(Fecha::Crear(1899, 12, 29, 6)), "#1899-12-29 06:00:00#");
    EXPECT_EQ(LiteralFechaVariante(FechaVariante::Vacia()), "");
    EXPECT_EQ(LiteralFechaVariante(FechaVariante::Nula()), "#NULL#");

    for (Fecha f : {Fecha(), Fecha::Crear(1999, 10, 10), Fecha::DesdeSegundos(86399),
                    Fecha::Crear(2024, 2, 29, 23, 59, 59), Fecha::Crear(1899, 12, 29, 6),
                    Fecha::Crear(100, 1, 1), Fecha::Crear(9999, 12, 31, 23, 59, 59)}) {
        const std::string l = LiteralFecha(f);
        EXPECT_EQ(LeerLiteralFecha(l.substr(1, l.size() - 2)), f) << l;
    }
    for (const char* malo : {"", "25:00:00", "12:60:00", "2023-02-29", "2023-1", "12", "1:2:3:4",
                             "2023-01-01 24:00:00", "2023-01-01x", "0099-12-31", "0023-05-01"}) {
        EXPECT_FALSE(LeerLiteralFecha(malo)) << malo;
    }
}

TEST(CamposTipados, RechazanLoQueNoEsDeSuTipoNombrandoLaLinea) {
    const auto campo = [](std::string_view t) { return CamposDeLinea(t).front(); };
    EXPECT_TRUE(ComoBooleano(campo("#TRUE#"), 1));
    EXPECT_FALSE(ComoBooleano(campo("#FALSE#"), 1));
    EXPECT_THROW(ComoBooleano(campo("TRUE"), 1), ErrorFormato);
    EXPECT_THROW(ComoBooleano(campo("-1"), 1), ErrorFormato);
    EXPECT_EQ(ComoEntero(campo("-32768"), 1, -32768, 32767), -32768);
    EXPECT_EQ(ComoEntero(campo("+5"), 1, 0, 9), 5);
    EXPECT_THROW(ComoEntero(campo("32768"), 1, -32768, 32767), ErrorFormato);
    EXPECT_THROW(ComoEntero(campo("1.5"), 1, 0, 9), ErrorFormato);
    EXPECT_THROW(ComoEntero(campo("\"5\""), 1, 0, 9), ErrorFormato);
    EXPECT_THROW(ComoEntero(campo(""), 1, 0, 9), ErrorFormato);
    EXPECT_EQ(ComoFlotante(campo("16.5"), 1), 16.5f);
    EXPECT_EQ(ComoFlotante(campo("1.5E+2"), 1), 150.0f);
    EXPECT_THROW(ComoFlotante(campo("16 %"), 1), ErrorFormato);
    EXPECT_EQ(ComoFechaVariante(campo(""), 1), FechaVariante::Vacia());
    EXPECT_EQ(ComoFechaVariante(campo("#NULL#"), 1), FechaVariante::Nula());
    EXPECT_EQ(ComoFechaVariante(campo("#2024-01-31#"), 1),
              FechaVariante::De(Fecha::Crear(2024, 1, 31)));
    EXPECT_EQ(ComoTexto(campo("sin comillas"), 1), "sin comillas");
    try {
        ComoFecha(campo("\"ayer\""), 42);
        ADD_FAILURE();
    } catch (const ErrorFormato& e) {
        EXPECT_EQ(e.Linea(), 42);
        EXPECT_NE(std::string(e.what()).find("linea 42"), std::string::npos) << e.what();
        EXPECT_NE(e.ConRuta("Varibles.Dat").Ruta(), "");
    }
}
