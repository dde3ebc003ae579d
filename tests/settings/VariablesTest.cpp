#include "CarpetaTemporal.h"
#include "core/ErrorFormato.h"
#include "core/Errores.h"
#include "settings/ArchivoVariables.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

// Lines joined with CR LF, the last one ended too.
std::string Archivo(std::initializer_list<std::string> lineas) {
    std::string t;
    for (const std::string& l : lineas) {
        t += l + "\r\n";
    }
    return t;
}

// A file as the program writes it with every list empty: options and
// programs; alerts, thresholds and sound; MesReinicio, DiaFactura and
// perFactura; bonos; reserved; entries; taxes; holidays; profiles.
const std::string kVacio = "#FALSE#\r\n#TRUE#\r\n#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n0\r\n"
                           "#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n#FALSE#\r\n"
                           "#00:00:00#\r\n\"00:00:00\"\r\n\"\"\r\n\"00:00:00\"\r\n\"\"\r\n"
                           "0\r\n1\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n0\r\n#FALSE#\r\n0\r\n0\r\n";

// A file written by hand with something in every field, a few accents in
// Windows-1252, reserved fields that are not 0 and every form of Baja.
// Lines 1-8: options and programs; 9-19: alerts, thresholds and sound.
const std::string kLleno = Archivo(
    {"#TRUE#", "#FALSE#", "#TRUE#", "#TRUE#", "#TRUE#", "2",
     "\"C:\\Archivos de programa\\Correo\\correo.exe\"", "\"/usr/bin/navegador, con coma\"",
     "#TRUE#", "#TRUE#", "#FALSE#", "#TRUE#", "#FALSE#", "#TRUE#", "#22:30:00#", "\"01:30:00\"",
     "\"5.000\"", "\"10:00:00\"", "\"C:\\WINDOWS\\MEDIA\\Tada.wav\"",
     // 20-22: MesReinicio, DiaFactura, perFactura; 23-35: bonos; 36-38: reserved
     "11", "15", "2", "3", "0", "#2024-01-15#", "", "\"07:12:03\"", "3", "#2024-02-01#", "#NULL#",
     "\"50:00:00\"", "2", "#2023-12-01#", "#2024-01-31#", "\"00:00:00\"", "-5", "32767", "200",
     // 39-45: entries; 46-47: taxes; 48-50: holidays; 51-55: profiles
     "2", "\"Telef\xF3nica\"", "\"Metropolitana\"", "\"BonoNet\"", "\"Casa\"", "\"Nacional\"",
     "\"\"", "16.5", "#TRUE#", "2", "#2024-12-25#", "#2025-01-06#", "1", "\"Telef\xF3nica\"",
     "\"BonoNet\"", "#2024-03-01 18:45:10#", "\"Metropolitana\""});

class ArchivoVariables : public CarpetaTemporal {
protected:
    fs::path Ruta() const { return dir / "Varibles.Dat"; }
};

} // namespace

TEST(Variables, ValoresPorDefectoYSuArchivoConCadaListaVacia) {
    const Settings s = ValoresPorDefecto();
    EXPECT_EQ(EscribirTextoVariables(s), kVacio);
    EXPECT_EQ(EscribirTextoVariables(LeerTextoVariables(kVacio)), kVacio);
}

TEST(Variables, ArchivoHechoAManoSeLeeYSeReescribeIgual) {
    const Settings s = LeerTextoVariables(kLleno);
    EXPECT_TRUE(s.SiempreVisible);
    EXPECT_FALSE(s.CargarAlIniciar);
    EXPECT_EQ(s.Programas, (std::vector<std::string>{"C:\\Archivos de programa\\Correo\\correo.exe",
                                                     "/usr/bin/navegador, con coma"}));
    EXPECT_EQ(s.HoraAviso, Fecha::DesdeSegundos(22 * 3600 + 30 * 60));
    EXPECT_EQ(s.TiempoAviso.ConvSegundos(), 5400);
    EXPECT_EQ(s.ImporteAviso, "5.000");
    EXPECT_EQ(std::tuple(s.MesReinicio, s.DiaFactura, s.perFactura), std::tuple(11, 15, 2));
    EXPECT_EQ(s.Bonos, (std::vector<BonoGuardado>{
                           {0, Fecha::Crear(2024, 1, 15), FechaVariante::Vacia(), "07:12:03"},
                           {3, Fecha::Crear(2024, 2, 1), FechaVariante::Nula(), "50:00:00"},
                           {2, Fecha::Crear(2023, 12, 1),
                            FechaVariante::De(Fecha::Crear(2024, 1, 31)), "00:00:00"}}));
    EXPECT_EQ(std::tuple(s.Reservado1, s.Reservado2, s.Reservado3), std::tuple(-5, 32767, 200));
    EXPECT_EQ(s.EntradasConexion,
              (std::vector<EntradaConexion>{{"Telefónica", "Metropolitana", "BonoNet"},
                                            {"Casa", "Nacional", ""}}));
    EXPECT_EQ(s.Impuestos, 16.5f);
    EXPECT_TRUE(s.AnadirImpuestos);
    EXPECT_EQ(s.Festivos,
              (std::vector<Fecha>{Fecha::Crear(2024, 12, 25), Fecha::Crear(2025, 1, 6)}));
    EXPECT_EQ(s.Conexiones, (std::vector<PerfilConexion>{{"Telefónica", "BonoNet",
                                                          Fecha::Crear(2024, 3, 1, 18, 45, 10),
                                                          "Metropolitana"}}));
    EXPECT_EQ(EscribirTextoVariables(s), kLleno);
}

// Counts are 16-bit in the file: a longer list is refused before writing.
TEST(Variables, ListasDeHasta32767) {
    Settings s = ValoresPorDefecto();
    s.Festivos.assign(32767, Fecha::Crear(2024, 12, 25));
    s.Impuestos = 1.0f / 3.0f;
    const Settings leido = LeerTextoVariables(EscribirTextoVariables(s));
    EXPECT_EQ(leido.Festivos.size(), 32767u);
    EXPECT_EQ(leido.Impuestos, s.Impuestos);
    s.Festivos.push_back(Fecha::Crear(2024, 12, 25));
    EXPECT_THROW(EscribirTextoVariables(s), ErrorDesbordamiento);
}

TEST(Variables, CadaArchivoCortadoSeRechaza) {
    // Every cut before the last line end leaves the file incomplete.
    for (const std::string* completo : {&kVacio, &kLleno}) {
        for (std::size_t n = 0; n + 2 < completo->size(); ++n) {
            EXPECT_THROW(LeerTextoVariables(completo->substr(0, n)), ErrorFormato) << n;
        }
        EXPECT_NO_THROW(LeerTextoVariables(completo->substr(0, completo->size() - 2)));
    }
}

TEST(Variables, ValoresMalFormadosSeRechazanNombrandoLaLinea) {
    const auto cambiar = [](std::size_t linea, const std::string& valor) {
        std::string t = kLleno;
        std::size_t inicio = 0;
        for (std::size_t i = 1; i < linea; ++i) {
            inicio = t.find("\r\n", inicio) + 2;
        }
        return t.replace(inicio, t.find("\r\n", inicio) - inicio, valor);
    };
    const std::pair<std::size_t, const char*> malos[] = {
        {1, "#VERDADERO#"},
        {6, "abc"},
        {6, "40000"},
        {15, "#25:00#"},
        {16, "\"1:99999:0\""},
        {20, "256"},
        {21, "#15#"},
        {25, "#2024-02-30#"},
        {26, "x"},
        {36, "32768"},
        {46, "16 %"},
        {49, "#NULL#"},
        {52, "#2024-01-01#"},
    };
    for (const auto& [linea, valor] : malos) {
        try {
            LeerTextoVariables(cambiar(linea, valor));
            ADD_FAILURE() << "linea " << linea << " = " << valor;
        } catch (const ErrorFormato& e) {
            EXPECT_EQ(static_cast<std::size_t>(e.Linea()), linea) << valor << ": " << e.what();
        }
    }
}

TEST_F(ArchivoVariables, ArchivoAusenteDaLosValoresPorDefecto) {
    const LecturaVariables l = LeerVariables(Ruta());
    EXPECT_FALSE(l.dañado);
    EXPECT_FALSE(Existe(Ruta()));
    EXPECT_EQ(GuardarVariables(Ruta(), l.valores), std::nullopt);
    EXPECT_EQ(Leer(Ruta()), kVacio);
    EXPECT_EQ(fs::status(Ruta()).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ArchivoVariables, UnArchivoDañadoSeConservaYSeApartaAlGuardar) {
    const std::string dañado = kLleno.substr(0, 300);
    Escribir(Ruta(), dañado);
    const LecturaVariables l = LeerVariables(Ruta());
    ASSERT_TRUE(l.dañado);
    EXPECT_EQ(EscribirTextoVariables(l.valores), kVacio); // the defaults
    for (const char* parte : {"Varibles.Dat", "linea", "por defecto"}) {
        EXPECT_NE(l.aviso.find(parte), std::string::npos) << l.aviso;
    }
    EXPECT_EQ(Leer(Ruta()), dañado); // reading changed nothing

    const auto apartado = GuardarVariables(Ruta(), l.valores);
    ASSERT_TRUE(apartado);
    EXPECT_EQ(*apartado, dir / "Varibles.Dat.dañado");
    EXPECT_EQ(Leer(*apartado), dañado);
    EXPECT_EQ(Leer(Ruta()), kVacio);
    // The file is sound now: saving again sets nothing more aside.
    EXPECT_EQ(GuardarVariables(Ruta(), l.valores), std::nullopt);

    // A different damaged file later does not replace the first copy; the
    // same one is not copied twice.
    Escribir(Ruta(), "basura");
    EXPECT_EQ(GuardarVariables(Ruta(), l.valores), dir / "Varibles.Dat.dañado.2");
    Escribir(Ruta(), dañado);
    EXPECT_EQ(GuardarVariables(Ruta(), l.valores), dir / "Varibles.Dat.dañado");
    EXPECT_EQ(Leer(dir / "Varibles.Dat.dañado"), dañado);
    EXPECT_EQ(Leer(dir / "Varibles.Dat.dañado.2"), "basura");
}
