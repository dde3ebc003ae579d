#include "register/Log.h"

#include "CarpetaTemporal.h"
#include "RegistroAMano.h"
#include "core/Errores.h"
#include "register/LogModem.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class RegistroLog : public CarpetaTemporal {
protected:
    fs::path Registro() const { return dir / "RegDat.log"; }
    fs::path Bak() const { return dir / "RegDat.bak"; }

    static std::string Llamadas(std::initializer_list<CamposAMano> campos) {
        std::string bytes;
        for (const CamposAMano& c : campos) {
            bytes += RegistroAMano(c);
        }
        return bytes;
    }
    static CamposAMano Dia(double dia) {
        CamposAMano c;
        c.dia = dia;
        return c;
    }
    Log Cargado() {
        Log log(dir);
        log.CargarLog();
        return log;
    }
};

} // namespace

TEST_F(RegistroLog, RegistroAusenteOVacioCargaSinLlamadasYSeCrea) {
    Log log(dir);
    log.CargarLog();
    EXPECT_EQ(log.NombreSaveLog(), Registro().string());
    EXPECT_EQ(Leer(Registro()), "");
    EXPECT_EQ(fs::status(Registro()).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
    log.CargarLog();
    EXPECT_EQ(log.Count(), 0);
}

TEST_F(RegistroLog, ElFinDelRegistroLoMarcanElArchivoYElPrimerDiaCero) {
    // A record whose Dia is 0 in the middle ends the register there.
    Escribir(Registro(), Llamadas({Dia(36479), Dia(0.0), Dia(36481)}));
    EXPECT_EQ(Cargado().Count(), 1);
    Escribir(Registro(), Llamadas({Dia(36479), Dia(-0.0), Dia(36481)}));
    EXPECT_EQ(Cargado().Count(), 1);
    // A partial last record reads as zeros and ends it too.
    Escribir(Registro(),
             Llamadas({Dia(36479), Dia(36480)}) + RegistroAMano(Dia(36481)).substr(0, 40));
    Log log = Cargado();
    ASSERT_EQ(log.Count(), 2);
    EXPECT_EQ(log.Dia(1), Fecha::Crear(1999, 11, 16));
    // The calls behind the zero day are gone after the next save.
    Escribir(Registro(), Llamadas({Dia(36479), Dia(0.0), Dia(36481)}));
    Log otro = Cargado();
    otro.SalvarLog();
    EXPECT_EQ(Leer(Registro()), Llamadas({Dia(36479)}));
    // A day that is no date still counts as a call; only reading it fails.
    Escribir(Registro(), Llamadas({Dia(std::nan("")), Dia(36480)}));
    Log raro = Cargado();
    EXPECT_EQ(raro.Count(), 2);
    EXPECT_THROW(raro.Dia(0), ErrorDesbordamiento);
}

TEST_F(RegistroLog, CamposEnElLimiteDeSuAnchuraSeGuardanComoAMano) {
    Log log(dir);
    log.CargarLog();
    // Every text exactly at its width, then one character too long.
    log.AñadirItem(Fecha::Crear(1999, 11, 15), Fecha::DesdeSegundos(14 * 3600 + 5 * 60), "12:34:56",
                   "12345678", 255, "ABCDEFGHIJKLMNOP", "Conexion de casa", "0123456789", -1,
                   INT32_MAX, INT32_MIN);
    log.AñadirItem(Fecha::Crear(2030, 1, 2), Fecha::DesdeSegundos(23 * 3600 + 59 * 60 + 59), "1:30",
                   " 9,5 ", 1, "Telefónica Tarifa Plana", "Ñandú €€€€€€€€€€€€", "reservado de mas",
                   0, 0, -1);
    log.SalvarLog();

    const CamposAMano a{.dia = 36479.0,
                        .hora = (14 * 3600 + 5 * 60) / 86400.0,
                        .duracion = "12:34:56",
                        .importe = "12345678",
                        .tipo = 255,
                        .tarifa = "ABCDEFGHIJKLMNOP",
                        .conexion = "Conexion de casa",
                        .reservada = "0123456789",
                        .bono = -1,
                        .recibidos = INT32_MAX,
                        .enviados = INT32_MIN};
    const CamposAMano b{.dia = Fecha::Crear(2030, 1, 2).AOle(),
                        .hora = (23 * 3600 + 59 * 60 + 59) / 86400.0,
                        .duracion = "1:30",
                        .importe = " 9,5",
                        .tipo = 1,
                        .tarifa = "Telef\xF3nica Tarif",
                        .conexion = "\xD1"
                                    "and\xFA \x80\x80\x80\x80\x80\x80\x80\x80\x80\x80",
                        .reservada = "reservado ",
                        .recibidos = 0,
                        .enviados = -1};
    EXPECT_EQ(Leer(Registro()), RegistroAMano(a) + RegistroAMano(b));

    // Read back: texts cut and trimmed, Duracion as stored, the band -1.
    Log l = Cargado();
    EXPECT_EQ(std::tuple(l.Tarifa(1), l.Conexion(1), l.Reservada(1), l.importe(1), l.Duracion(1)),
              std::tuple("Telefónica Tarif", "Ñandú €€€€€€€€€€", "reservado", "9,5", "1:30    "));
    EXPECT_EQ(std::tuple(l.Tipo(0), l.Banda(0), l.Banda(1), l.Bono(0)), std::tuple(255, -1, 1, -1));
    EXPECT_EQ(std::pair(l.Recibidos(0), l.Enviados(0)), std::pair(INT32_MAX, INT32_MIN));
    EXPECT_EQ(l.Hora(1).TextoIso() + " " + l.Dia(1).TextoIso(),
              "1899-12-30 23:59:59 2030-01-02 00:00:00");
}

TEST_F(RegistroLog, CargarYSalvarDevuelveCadaByte) {
    // Bits no conversion of ours would produce: a start time that is not a
    // whole second, NULs in the reserved field, bytes of every value.
    const CamposAMano a{.hora = 0.58680555555555558,
                        .tarifa = std::string("\x01\x7F\x81\x8D\x8F\x90\x9D\xA0\xFF") + "\t",
                        .reservada = std::string(10, '\0')};
    const CamposAMano b{
        .dia = -1.25, .duracion = "", .importe = "\xFF\xFE", .tipo = 7, .bono = 12345};
    const std::string original = Llamadas({a, b, Dia(2958465.99999)});
    Escribir(Registro(), original);
    Log log = Cargado();
    ASSERT_EQ(log.Count(), 3);
    log.SalvarLog();
    EXPECT_EQ(Leer(Registro()), original);
    EXPECT_EQ(Leer(Bak()), original);
}

TEST_F(RegistroLog, SalvarDejaElAnteriorComoBak) {
    Log log(dir);
    log.SalvarLog(); // nothing before and nothing now: no file at all
    EXPECT_FALSE(Existe(Registro()));
    EXPECT_FALSE(Existe(Bak()));

    log.AñadirItem(RegistroLlamada::Crear(Fecha::Crear(2024, 5, 1), {}, "00:01:00", "10", 0,
                                          "Metropolitana", "Casa", "", 0, 1, 2));
    log.SalvarLog();
    const std::string uno = Leer(Registro());
    EXPECT_EQ(uno.size(), 85u);
    EXPECT_FALSE(Existe(Bak()));

    log.AñadirItem(log.Registro(0));
    log.SalvarLog();
    EXPECT_EQ(Leer(Bak()), uno);
    EXPECT_EQ(Leer(Registro()), uno + uno);

    // An empty register leaves no register file, only the backup.
    log.BorrarItem(0);
    log.BorrarItem(0);
    log.SalvarLog();
    EXPECT_FALSE(Existe(Registro()));
    EXPECT_EQ(Leer(Bak()), uno + uno);
    // A later load starts an empty file again.
    EXPECT_EQ(Cargado().Count(), 0);
    EXPECT_TRUE(Existe(Registro()));
}

TEST_F(RegistroLog, SinNombreLibreParaEnlazarLaCopiaSeEscribeEntera) {
    Escribir(Registro(), Llamadas({Dia(36479)}));
    for (int i = 0; i < 100; ++i) {
        Escribir(dir / ("RegDat.bak." + std::to_string(::getpid()) + "." + std::to_string(i)), "");
    }
    Cargado().SalvarLog();
    EXPECT_EQ(Leer(Bak()), Llamadas({Dia(36479)}));
}

TEST_F(RegistroLog, UnFalloAlGuardarNoTocaNadaDelUsuario) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root escribe en carpetas de solo lectura";
    }
    Escribir(Registro(), Llamadas({Dia(36479)}));
    Log log = Cargado();
    log.AñadirItem(log.Registro(0));
    fs::permissions(dir, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THROW(log.SalvarLog(), ErrorArchivo);
    fs::permissions(dir, fs::perms::owner_all);
    EXPECT_EQ(Leer(Registro()), Llamadas({Dia(36479)}));
    EXPECT_EQ(log.Count(), 2);
}

TEST_F(RegistroLog, EliminarLogLoApartaComoBAK) {
    Log log(dir);
    log.EliminarLog(); // no path yet: nothing happens
    Escribir(Registro(), Llamadas({Dia(36479)}));
    log.CargarLog();
    log.EliminarLog();
    EXPECT_FALSE(Existe(Registro()));
    EXPECT_EQ(Leer(dir / "RegDat.BAK"), Llamadas({Dia(36479)}));
    EXPECT_THROW(log.EliminarLog(), ErrorArchivo); // nothing left to rename
    EXPECT_EQ(log.Count(), 1);
}

TEST_F(RegistroLog, IndicesHuecoDeReservaYBorrado) {
    Escribir(Registro(), Llamadas({Dia(36479), Dia(36480), Dia(36481)}));
    Log log = Cargado();
    log.BorrarItem(-1);
    log.BorrarItem(3);
    EXPECT_EQ(log.Count(), 3);
    // The spare slot reads as an empty call; beyond it is out of range.
    EXPECT_EQ(log.Duracion(3), "        ");
    EXPECT_EQ(log.Dia(3), Fecha());
    EXPECT_THROW(log.Tarifa(4), ErrorIndice);
    EXPECT_THROW(log.Dia(-1), ErrorIndice);
    log.BorrarItem(1);
    ASSERT_EQ(log.Count(), 2);
    EXPECT_EQ(log.Dia(1), Fecha::Crear(1999, 11, 17));
    // BorrarLog empties it, as an archive is read into it.
    log.BorrarLog();
    EXPECT_EQ(log.Count(), 0);
    EXPECT_EQ(log.Dia(0), Fecha());
}

TEST_F(RegistroLog, TotalDuracionSumaCadaLlamada) {
    Log log(dir);
    EXPECT_EQ(log.TotalDuracion(), "00:00:00");
    for (const char* d : {"01:30:00", "00:45:30", "99:59:59", "0:0:31"}) {
        log.AñadirItem({}, {}, d, "0", 0, "", "", "", 0, 0, 0);
    }
    EXPECT_EQ(log.TotalDuracion(), "102:16:00");
}

TEST_F(RegistroLog, NoMasDe32767Llamadas) {
    Log log(dir);
    const RegistroLlamada r = RegistroLlamada::Crear(Fecha::Crear(2024, 1, 1), {}, "00:00:01", "1",
                                                     0, "", "", "", 0, 0, 0);
    for (int i = 0; i < 32767; ++i) {
        log.AñadirItem(r);
    }
    EXPECT_EQ(log.Count(), 32767);
    EXPECT_THROW(log.AñadirItem(r), ErrorDesbordamiento);
    log.SalvarLog();
    EXPECT_EQ(Cargado().Count(), 32767);
    // One record more in the file cannot be loaded; the register stays.
    Escribir(Registro(), Leer(Registro()) + RegistroAMano(Dia(36479)));
    Log otro(dir);
    otro.AñadirItem(r);
    EXPECT_THROW(otro.CargarLog(), ErrorDesbordamiento);
    EXPECT_EQ(otro.Count(), 1);
}

TEST(LogModem, ElSelloDeUnaLineaVaEnSusDiecinueveColumnas) {
    // The stamp alone is a whole line; year 100 is the first a register date holds.
    EXPECT_EQ(FechaHoraDeLinea("01-15-0100 14:05:00"), Fecha::Crear(100, 1, 15, 14, 5, 0));
    EXPECT_THROW(FechaHoraDeLinea("01-15-0100 14:05:0"), ErrorTipo);
    EXPECT_THROW(FechaHoraDeLinea("01-15-0099 14:05:00"), ErrorTipo);
}

TEST_F(RegistroLog, DateConexionLeeElUltimoInicioDeSesion) {
    Log log(dir);
    EXPECT_THROW(log.DateConexion(), Error); // no log path yet
    log.NombreLog((dir / "modemlog.txt").string());
    EXPECT_EQ(log.DateConexion(), Fecha::DesdeOle(1.0)); // no log, empty, no session
    for (const char* sin : {"", "11-15-1999 14:05:00.12 - Dialing\r\n"}) {
        Escribir(dir / "modemlog.txt", sin);
        EXPECT_EQ(log.DateConexion(), Fecha::DesdeOle(1.0));
    }

    Escribir(dir / "modemlog.txt", "11-15-1999 14:05:00.12 - COM1 in use\r\n"
                                   "11-15-1999 14:05:30.00 - CONNECT 33600\r\n"
                                   "11-15-1999 14:10:00.00 - COM1 closed\r\n"
                                   "02-29-2032 23:59:58.00 - COM1 in use\n"
                                   "02-29-2032 23:59:59.00 - Dialing\n");
    EXPECT_EQ(log.DateConexion(), Fecha::Crear(2032, 2, 29, 23, 59, 58));
    // The stamp is taken from the columns before the last hyphen ahead of
    // "in use", wherever that hyphen is.
    for (const char* malo :
         {"11-15-1999 14:05:00.12 - COM1 - in use\n", "in use",
          "13-15-1999 14:05:00.12 - COM1 in use\n", "01-15-0099 14:05:00.12 - COM1 in use\n"}) {
        Escribir(dir / "modemlog.txt", malo);
        EXPECT_THROW(log.DateConexion(), ErrorTipo) << malo;
    }
}
