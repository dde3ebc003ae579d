#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Archivo.h"
#include "core/CampoFijo.h"
#include "core/Errores.h"
#include "tariff/LibroPorDefecto.h"

#include <random>

using namespace vorimesk;
using namespace prueba;
namespace fs = std::filesystem;

namespace {

using Libro = CarpetaTemporal;

// A record whose name starts with `primero` and whose other bytes are noise:
// odd dates, NaN, bytes above 127. Only the first byte decides whether the
// book goes on.
std::string Registro(unsigned char primero, unsigned semilla) {
    std::mt19937 azar(semilla);
    std::string r(RegistroTarifa::kTamaño, '\0');
    for (char& c : r) {
        c = static_cast<char>(azar() & 0xFF);
    }
    r[0] = static_cast<char>(primero);
    return r;
}

std::int16_t Cargar(const fs::path& dir, const std::string& bytes) {
    EscribirArchivoSeguro(dir / "Tarifas.Dat", bytes);
    cLlamada libro(dir);
    libro.Load();
    return libro.Count();
}

} // namespace

TEST_F(Libro, ElPrimerByteDelNombreTerminaElLibro) {
    cLlamada ausente(dir);
    ausente.Load();
    EXPECT_EQ(ausente.Count(), 0);
    EXPECT_EQ(Cargar(dir, ""), 0);
    const std::string a = Registro('A', 1), c = Registro('C', 3);
    for (unsigned char fin : {0, 31, 127, 0xD1}) { // 0xD1 es "Ñ" en Windows-1252
        EXPECT_EQ(Cargar(dir, a + Registro(fin, 2) + c), 1) << int(fin);
    }
    EXPECT_EQ(Cargar(dir, a + Registro(' ', 2) + c), 3);
    EXPECT_EQ(Cargar(dir, a + Registro('~', 2) + c), 3);
    EXPECT_EQ(Cargar(dir, Registro(0xD1, 2) + a), 0);
}

TEST_F(Libro, UnRegistroCortadoTerminaElLibro) {
    const std::string dos = Registro('A', 1) + Registro('B', 2);
    EXPECT_EQ(Cargar(dir, dos + Registro('C', 3).substr(0, 100)), 2);
    EXPECT_EQ(Cargar(dir, dos + "C"), 2);
    // El hueco de reserva queda vacio aunque el archivo siguiera.
    cLlamada libro(dir);
    libro.Load();
    EXPECT_EQ(libro.ValorTexto(2, "Nombre"), "");
}

TEST_F(Libro, GuardarDevuelveElArchivoByteAByte) {
    std::string bytes;
    for (unsigned i = 0; i < 4; ++i) {
        bytes += Registro(static_cast<unsigned char>('A' + i), 10 + i);
    }
    EscribirArchivoSeguro(dir / "Tarifas.Dat", bytes);
    cLlamada libro(dir);
    libro.Load();
    libro.Save();
    EXPECT_EQ(LeerArchivo(dir / "Tarifas.Dat"), bytes);
    // Lo que sigue al registro que termina el libro no se vuelve a escribir.
    EscribirArchivoSeguro(dir / "Tarifas.Dat", bytes + Registro(0, 9) + bytes);
    libro.Load();
    libro.Save();
    EXPECT_EQ(LeerArchivo(dir / "Tarifas.Dat"), bytes);
}

TEST_F(Libro, LosCamposVanEnSuSitio) {
    cLlamada libro(dir);
    libro.Add();
    libro.Valor(0, "Nombre", "Normal");
    libro.Valor(0, "Conexion.Importe", 11.72);
    libro.Valor(0, "Conexion.Tiempo", "03:30");
    libro.Valor(0, "Semana.Normal.Importe", "2.5");
    libro.Valor(0, "Semana.Normal.Inicio", "08:00:00");
    libro.Valor(0, "Festivo.Reducida.Fin", "18:00:00");
    libro.Valor(0, "Festivo.Reducida.Importe", "123456789");
    libro.Save();
    const std::string b = LeerArchivo(dir / "Tarifas.Dat");
    ASSERT_EQ(b.size(), 168u);
    EXPECT_EQ(b.substr(0, 37), "Normal         11.72  " + b.substr(22, 8) + "2.5    ");
    EXPECT_EQ(b.substr(145, 7), "1234567");
    EXPECT_DOUBLE_EQ(LeerDoble(b.data() + 22), 3.5 / 24);
    EXPECT_DOUBLE_EQ(LeerDoble(b.data() + 37), 1.0 / 3);
    EXPECT_DOUBLE_EQ(LeerDoble(b.data() + 160), 0.75);
    // Los campos sin escribir quedan a cero.
    EXPECT_EQ(b.substr(45, 7), std::string(7, '\0'));
}

TEST_F(Libro, GuardarUnLibroVacioBorraElArchivo) {
    EscribirArchivoSeguro(dir / "Tarifas.Dat", Registro('A', 1));
    cLlamada libro(dir);
    libro.Save();
    EXPECT_FALSE(fs::exists(dir / "Tarifas.Dat"));
    libro.Save(); // sin archivo tampoco falla
    EXPECT_EQ(std::distance(fs::directory_iterator(dir), fs::directory_iterator()), 0);
}

TEST_F(Libro, ValorRecortaYCortaLosTextos) {
    cLlamada libro(dir);
    libro.Add();
    libro.Valor(0, "Nombre", "Una tarifa muy larga");
    EXPECT_EQ(libro.ValorTexto(0, "Nombre"), "Una tarifa muy"); // 15 caracteres, recortados
    libro.Valor(0, "Nombre", "  Normal");
    EXPECT_EQ(libro.ValorTexto(0, "Nombre"), "Normal");
    EXPECT_EQ(libro.Find("Normal"), 0);
    EXPECT_EQ(libro.Find(" Normal"), -1);
    EXPECT_EQ(libro.Find("normal"), -1);
    libro.Valor(0, "Nombre", "Mañana");
    libro.Save();
    libro.Load();
    EXPECT_EQ(libro.Find("Mañana"), 0);
}

TEST_F(Libro, ClavesDesconocidasEIndicesFueraDeRango) {
    cLlamada libro(dir);
    libro.Add();
    EXPECT_TRUE(std::holds_alternative<std::monostate>(libro.Valor(0, "Semana.Normal.Precio")));
    libro.Valor(0, "Semana.Normal.Precio", "9"); // se ignora
    EXPECT_NO_THROW(libro.Valor(1, "Nombre"));   // el hueco de reserva
    EXPECT_THROW(libro.Valor(2, "Nombre"), ErrorIndice);
    EXPECT_THROW(libro.Valor(-1, "Nombre"), ErrorIndice);
    EXPECT_THROW(libro.Valor(0, "Semana.Normal.Fin", "25:00"), ErrorTipo);
    EXPECT_EQ(libro.ValorTexto(0, "Semana.Normal.Fin"), "00:00:00");
}

TEST_F(Libro, LasHorasGuardanLaFechaPeroSeUsaLaHora) {
    cLlamada libro(dir);
    libro.Add();
    libro.Valor(0, "Semana.Normal.Fin", Fecha::Crear(2001, 5, 4, 17, 59, 59));
    EXPECT_EQ(std::get<Fecha>(libro.Valor(0, "Semana.Normal.Fin")),
              Fecha::Crear(2001, 5, 4, 17, 59, 59));
    EXPECT_EQ(libro.ValorTexto(0, "Semana.Normal.Fin"), "17:59:59");
    EXPECT_EQ(libro.Tarifa(0).Fin(0, 0), 17 * 3600 + 59 * 60 + 59);
}

TEST_F(Libro, AñadirBorrarYCopiar) {
    cLlamada libro(dir);
    for (const char* n : {"A", "B", "C"}) {
        libro.Add();
        libro.Valor(libro.Count() - 1, "Nombre", n);
    }
    libro.Copy(0, 2);
    libro.Delete(1);
    EXPECT_EQ(libro.ValorTexto(0, "Nombre") + libro.ValorTexto(1, "Nombre"), "CC");
    libro.Add();
    EXPECT_EQ(libro.ValorTexto(2, "Nombre"), ""); // nuevo y vacio, sin restos
    for (int i = 0; i < 3; ++i) {
        libro.Delete(0);
    }
    EXPECT_THROW(libro.Delete(0), ErrorIndice); // nada que borrar
}

TEST_F(Libro, ElLibroDeSerieNoPisaUnLibroQueYaEsta) {
    InstalarLibroPorDefecto(dir);
    cLlamada libro(dir);
    libro.Load();
    EXPECT_EQ(libro.ValorTexto(0, "Nombre"), "Metropolitana");
    libro.Delete(0);
    libro.Save();
    InstalarLibroPorDefecto(dir);
    libro.Load();
    EXPECT_NE(libro.ValorTexto(0, "Nombre"), "Metropolitana");
}
