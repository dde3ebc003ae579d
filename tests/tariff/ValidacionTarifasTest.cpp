#include "tariff/ValidacionTarifas.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

// The problems of one tariff built from the template with some fields set,
// as "gravedad clave" pairs, to see which field each one points at.
std::vector<std::string> Problemas(std::vector<std::pair<const char*, const char*>> campos) {
    LibroEditable libro = LibroEditable::DeSerie();
    const int i = libro.Añadir("Prueba");
    for (const auto& [clave, texto] : campos) {
        libro.Tarifa(i).Valor(clave, texto);
    }
    std::vector<std::string> r;
    for (const Problema& p : ValidarLibro(libro)) {
        EXPECT_EQ(p.tarifa, i) << p.Texto();
        r.push_back(std::string(p.gravedad == Gravedad::Error ? "E " : "A ") + p.clave);
    }
    return r;
}

std::string Mensajes(const LibroEditable& libro) {
    return TextoProblemas(ValidarLibro(libro));
}

using V = std::vector<std::string>;

} // namespace

TEST(Validacion, ElLibroDeSerieYLaPlantillaNoTienenProblemas) {
    LibroEditable libro = LibroEditable::DeSerie();
    EXPECT_EQ(Mensajes(libro), "");
    libro.Añadir();
    libro.Añadir();
    EXPECT_EQ(Mensajes(libro), "");
}

TEST(Validacion, NombresQueElArchivoNoPuedeGuardar) {
    EXPECT_EQ(Problemas({{"Nombre", ""}}), V{"E Nombre"});
    EXPECT_EQ(Problemas({{"Nombre", "   "}}), V{"E Nombre"});
    EXPECT_EQ(Problemas({{"Nombre", "Compañía Telefo"}}), V{}); // 15 bytes en Windows-1252
    EXPECT_EQ(Problemas({{"Nombre", "Compañía Telefon"}}), V{"E Nombre"});
    // Al cargar, un nombre que no empieza por un caracter de 32 a 126 termina el libro.
    EXPECT_EQ(Problemas({{"Nombre", "Ñoño"}}), V{"E Nombre"});
    EXPECT_EQ(Problemas({{"Nombre", "\tTab"}}), V{"E Nombre"});
    EXPECT_EQ(Problemas({{"Nombre", "Precio €"}}), V{});
    EXPECT_EQ(Problemas({{"Nombre", "Tarifa ☎"}}), V{"E Nombre"});
    EXPECT_EQ(Problemas({{"Nombre", " Tarifa"}}), V{"A Nombre"});

    LibroEditable libro = LibroEditable::DeSerie();
    libro.Tarifa(libro.Añadir()).Valor("Nombre", "Provincial ");
    const auto p = ValidarLibro(libro);
    ASSERT_EQ(p.size(), 2u);
    EXPECT_EQ(p[1].Texto(), "Error en la tarifa 6 (Provincial): El nombre \"Provincial\" ya lo "
                            "lleva la tarifa 3; cada tarifa necesita un nombre distinto.");

    LibroEditable eñe;
    eñe.Tarifa(eñe.Añadir()).Valor("Nombre", "Ñoño");
    EXPECT_NE(Mensajes(eñe).find("empieza por \"Ñ\": al leer el archivo, esta tarifa y las que "
                                 "la siguen se perderian"),
              std::string::npos)
        << Mensajes(eñe);
}

TEST(Validacion, ImportesQueNoSonNumerosONoCaben) {
    LibroEditable negativo;
    negativo.Tarifa(negativo.Añadir("Negativo")).Valor("Semana.Normal.Importe", "-1");
    EXPECT_NE(Mensajes(negativo).find("(-1) no puede ser negativo."), std::string::npos)
        << Mensajes(negativo);

    const char* k = "Sabado.Reducida.Importe";
    for (const char* bien : {"1234567", ".5", " 2. "}) {
        EXPECT_EQ(Problemas({{k, bien}}), V{}) << bien;
    }
    for (const char* mal : {"12345678", "", "abc", "1.2.3", "-1"}) {
        EXPECT_EQ(Problemas({{k, mal}}), V{std::string("E ") + k}) << mal;
    }
    EXPECT_EQ(Problemas({{"Conexion.Importe", "1e3"}}), V{"E Conexion.Importe"});

    // Typed in Spanish, an amount is kept as the file writes it, and shown
    // back the Spanish way; a file's "2.500" is two and a half.
    LibroEditable libro;
    TarifaEditable& t = libro.Tarifa(libro.Añadir("Coma"));
    t.ValorEscrito("Semana.Normal.Importe", "1.500,5");
    t.ValorEscrito("Semana.Reducida.Importe", "1,2");
    t.Valor("Sabado.Normal.Importe", "2.500");
    t.ValorEscrito("Sabado.Reducida.Importe", "1,2,3");
    EXPECT_EQ(t.Valor("Semana.Normal.Importe"), "1500.5");
    EXPECT_EQ(t.Valor("Semana.Reducida.Importe"), "1.2");
    EXPECT_EQ(t.ValorMostrado("Semana.Reducida.Importe"), "1,2");
    EXPECT_EQ(t.ValorMostrado("Sabado.Normal.Importe"), "2,500");
    EXPECT_EQ(Mensajes(libro), "Error en la tarifa 1 (Coma): El precio de la franja reducida de "
                               "Sabado (1,2,3) no es un numero (se escribe 2,5 o 1.500,25).\n");
}

TEST(Validacion, HorasYTiempoIncluido) {
    EXPECT_EQ(Problemas({{"Festivo.Normal.Inicio", "24:00:00"}}), V{"E Festivo.Normal.Inicio"});
    EXPECT_EQ(Problemas({{"Conexion.Tiempo", "mañana"}}), V{"E Conexion.Tiempo"});
    EXPECT_EQ(Problemas({{"Conexion.Tiempo", "03:30"}}), V{});
    // Las horas del tiempo incluido son minutos y sus minutos segundos: los segundos sobran.
    EXPECT_EQ(Problemas({{"Conexion.Tiempo", "00:03:30"}}), V{"A Conexion.Tiempo"});
}

TEST(Validacion, FranjasQueSeSolapanODejanHuecos) {
    // La normal no puede pasar de medianoche: no cobraria nunca.
    EXPECT_EQ(Problemas({{"Semana.Normal.Inicio", "22:00:00"}, {"Semana.Normal.Fin", "06:00:00"}}),
              V{"E Semana.Normal.Fin"});
    EXPECT_EQ(Problemas({{"Sabado.Reducida.Inicio", "19:00:00"}}), V{"A Sabado"});
    EXPECT_EQ(Problemas({{"Festivo.Reducida.Fin", "09:00:00"}}), V{"A Festivo"});
    // Hueco y solape a la vez, en dos avisos.
    EXPECT_EQ(
        Problemas({{"Semana.Reducida.Inicio", "19:00:00"}, {"Semana.Reducida.Fin", "08:30:00"}}),
        (V{"A Semana", "A Semana"}));
    // Reducida vacia con normal: lo de fuera de la normal no tiene franja.
    EXPECT_EQ(
        Problemas({{"Semana.Reducida.Inicio", "00:00:00"}, {"Semana.Reducida.Fin", "00:00:00"}}),
        V{"A Semana"});
    // Todo el dia normal y la reducida vacia: correcto.
    EXPECT_EQ(Problemas({{"Semana.Normal.Inicio", "00:00:00"},
                         {"Semana.Normal.Fin", "23:59:59"},
                         {"Semana.Reducida.Inicio", "00:00:00"},
                         {"Semana.Reducida.Fin", "00:00:00"}}),
              V{});

    LibroEditable libro;
    TarifaEditable& t = libro.Tarifa(libro.Añadir("Hueco"));
    t.Valor("Sabado.Reducida.Inicio", "19:00:00");
    t.Valor("Sabado.Reducida.Fin", "06:59:59");
    const auto p = ValidarLibro(libro);
    EXPECT_FALSE(HayErrores(p));
    EXPECT_EQ(TextoProblemas(p),
              "Aviso en la tarifa 1 (Hueco): En Sabado no hay franja de 07:00:00 a 07:59:59 y de "
              "18:00:00 a 18:59:59: esas horas se cobran como reducida.\n");
}

TEST(Validacion, ProblemasDelLibroEntero) {
    LibroEditable vacio;
    EXPECT_TRUE(HayErrores(ValidarLibro(vacio)));

    // El dia y la noche de BonoNet salen de la segunda tarifa.
    LibroEditable libro = LibroEditable::DeSerie();
    libro.Mover(1, 3);
    auto p = ValidarLibro(libro);
    ASSERT_EQ(p.size(), 1u);
    EXPECT_EQ(p[0].gravedad, Gravedad::Aviso);
    EXPECT_EQ(p[0].tarifa, 3);
    EXPECT_NE(p[0].mensaje.find("ahora \"Provincial\""), std::string::npos) << p[0].mensaje;
    libro.Mover(3, 1);
    EXPECT_TRUE(ValidarLibro(libro).empty());

    // Errores primero al listarlos.
    libro.Tarifa(4).Valor("Semana.Reducida.Inicio", "19:00:00");
    libro.Tarifa(0).Valor("Nombre", "");
    const std::string t = TextoProblemas(ValidarLibro(libro));
    EXPECT_LT(t.find("Error en la tarifa 1 (sin nombre)"), t.find("Aviso en la tarifa 5"));
}
