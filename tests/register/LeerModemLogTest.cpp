// The modem log reader behind AñadirLog / CrearLog: sessions rebuilt into
// priced calls, the pending connections, the bono ledger and the log kept or
// deleted. Logs are written with the platform's own formatter, the text the
// pppd hook writes too.

#include "CarpetaTemporal.h"
#include "RegistroAMano.h"
#include "SesionesModem.h"
#include "TarifaAMano.h"
#include "core/CerrojoArchivo.h"
#include "core/Errores.h"
#include "register/Importe.h"
#include "register/Log.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/cLlamada.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

Fecha Lunes(int h, int m, int s = 0) {
    return Fecha::Crear(2026, 3, 2, h, m, s); // a Monday
}

class LeerModemLog : public CarpetaTemporal {
protected:
    void SetUp() override {
        cLlamada libro(dir);
        RellenarLibroPorDefecto(libro);
        libro.Save();
        log = Log(dir); // the data folder exists from here on
        log.NombreLog(ModemLog().string());
    }
    fs::path ModemLog() const { return dir / "modemlog.txt"; }
    bool Añadir() { return log.AñadirLog(bono, festivos, pendientes); }
    void Pendiente(Fecha t, const std::string& tarifa, const std::string& descuento,
                   const std::string& conexion) {
        pendientes.Add(t, tarifa, descuento, conexion);
    }
    // Tariff, connection, cost and bono of call i, to check a call at once.
    std::tuple<std::string, std::string, std::string, int> Llamada(int i) const {
        return {log.Tarifa(i), log.Conexion(i), log.importe(i), log.Bono(i)};
    }
    // A call already in the register before the run: 15/11/1999, "125".
    void UnaLlamadaPrevia() { AñadirLlamadas(log, {{}}); }

    Log log{fs::path()};
    cBono bono;
    std::vector<Fecha> festivos;
    colConexion pendientes;
};

} // namespace

TEST_F(LeerModemLog, UnaSesionCompletaDaUnaLlamadaPreciadaYBorraElLog) {
    UnaLlamadaPrevia();
    Pendiente(Lunes(10, 0), "Metropolitana", "Ninguno", "Casa");
    Pendiente(Lunes(9, 0), "Provincial", "", "Oficina");
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 10)));

    ASSERT_TRUE(Añadir());
    // 11.72 + 10 min at 2.5; 1536 and 2560 bytes are 1.5 and 2.5 KB, to even.
    EXPECT_EQ(log.Registro(1),
              RegistroLlamada::Crear(Fecha::Crear(2026, 3, 2), Fecha::DesdeSegundos(10 * 3600),
                                     "00:10:00", "36.72", 0, "Metropolitana", "Casa", "", 0, 2, 2));
    EXPECT_FALSE(Existe(ModemLog()));
    EXPECT_EQ(pendientes.Count(), 0) << "every pending connection goes, matched or not";
    EXPECT_EQ(log.importe(0), "125") << "the calls already there stay";
}

TEST_F(LeerModemLog, UnaUltimaSesionSinTerminarGuardaElLogParaMasTarde) {
    UnaLlamadaPrevia();
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1));
    Pendiente(Lunes(10, 0), "BonoNet", "BonoNet", "Casa");
    const std::string completa = Sesion(Lunes(10, 0), Lunes(10, 30));

    // Only "in use" of the next session, or the link came up and is still up.
    for (const std::string& abierta :
         {LineaModemLog(Lunes(11, 0), "Modem in use: ppp0"), Subida(Lunes(11, 0))}) {
        Escribir(ModemLog(), completa + abierta);
        EXPECT_FALSE(Añadir());
        EXPECT_EQ(log.Count(), 1);
        EXPECT_EQ(bono.tiempo(0), "10:00:00") << "the dropped call used no bundle time";
        EXPECT_EQ(pendientes.Count(), 1);
    }

    // Once the hook has written the end, the whole log is taken in one run.
    Escribir(ModemLog(), completa + Subida(Lunes(11, 0)) + Bajada(Lunes(11, 5)));
    EXPECT_TRUE(Añadir());
    EXPECT_EQ(log.Count(), 3);
    EXPECT_EQ(bono.tiempo(0), "09:25:00");
    EXPECT_FALSE(Existe(ModemLog()));
}

TEST_F(LeerModemLog, LineasSinClaveTrasUnaSesionRepitenSuLlamada) {
    // A blank line and a line of other text, then a last line with no end:
    // each appends one more copy, and nothing more comes after.
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 10)) + "\r\n" +
                             "03-02-2026 10:10:01.00 - Modem reset\r\n" +
                             "03-02-2026 10:10:02.00 - otra");
    ASSERT_TRUE(Añadir());
    ASSERT_EQ(log.Count(), 4);
    for (int i = 1; i < 4; ++i) {
        EXPECT_EQ(log.Registro(i), log.Registro(0));
    }

    // A new session stops the copies.
    Escribir(ModemLog(),
             Sesion(Lunes(12, 0), Lunes(12, 1)) + "\r\n" + Sesion(Lunes(13, 0), Lunes(13, 1)));
    ASSERT_TRUE(Añadir());
    EXPECT_EQ(log.Count(), 4 + 3);
    EXPECT_EQ(log.Hora(5), log.Hora(4));
    EXPECT_EQ(log.Hora(6), Fecha::DesdeSegundos(13 * 3600));
}

TEST_F(LeerModemLog, SinConexionPendienteSeTarificaConBonoYConservaLaConexionAnterior) {
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1)); // 10DIA
    Pendiente(Lunes(12, 0), "Provincial", "Ninguno", "Oficina");
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 30)) +     // none pending, first of the run
                             Sesion(Lunes(12, 0), Lunes(12, 1)) +  // Oficina
                             Sesion(Lunes(14, 0), Lunes(14, 30))); // none pending again
    ASSERT_TRUE(Añadir());
    ASSERT_EQ(log.Count(), 3);
    // No tariff and no discount: "Metropolitana" with the ledger, which pays
    // the minutes. The second: 11.72 + 1 min at 13.71, no bundle, yet flagged
    // as the day's BonoNet time (the flag follows the hour, not who paid).
    // The third keeps the connection's name from the last session.
    EXPECT_EQ(Llamada(0), std::tuple("", "", "11.72", -1));
    EXPECT_EQ(Llamada(1), std::tuple("Provincial", "Oficina", "25.43", -1));
    EXPECT_EQ(Llamada(2), std::tuple("", "Oficina", "11.72", -1));
    EXPECT_EQ(bono.tiempo(0), "09:00:00");
}

TEST_F(LeerModemLog, BytesEnKilobytesRedondeadosAPar) {
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 1), 3584, 1535) + // 3.5 and 1.499
                             Sesion(Lunes(11, 0), Lunes(11, 1), 0, 2048 * 1024 + 512)); // 2048.5
    ASSERT_TRUE(Añadir());
    EXPECT_EQ(std::tuple(log.Recibidos(0), log.Enviados(0), log.Recibidos(1), log.Enviados(1)),
              std::tuple(4, 1, 0, 2048));
}

TEST_F(LeerModemLog, SinLogOVacioNoHayNadaQueLeer) {
    UnaLlamadaPrevia();
    Pendiente(Lunes(10, 0), "", "", "Casa");
    EXPECT_FALSE(Añadir());
    // Empty, or lines but no session.
    for (const char* nada : {"", "\r\n\r\n03-02-2026 10:00:00.00 - Dialing\r\n"}) {
        Escribir(ModemLog(), nada);
        EXPECT_FALSE(Añadir());
        EXPECT_EQ(log.Count(), 1);
        EXPECT_EQ(pendientes.Count(), 1);
        EXPECT_TRUE(Existe(ModemLog()));
    }

    log.NombreLog("");
    try {
        Añadir();
        ADD_FAILURE() << "sin ruta del log no se lee nada";
    } catch (const Error& e) {
        EXPECT_EQ(std::string(e.what()),
                  "Aun no se inicializado el origen del Log.\nNo se puede crear");
    }
    EXPECT_EQ(log.Count(), 1);
}

TEST_F(LeerModemLog, SesionesIncompletasSegunSuContadorNoSonLlamadasNiGastanBono) {
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1)); // 10DIA, paid from as no discount is pending
    // No call, but each session is finished, so the log goes: up and closed
    // with no byte counts (1 + 2 + 16), a log that begins after its "in use"
    // (2 + 4 + 8 + 16 = 30) and only the end of a session (4 + 8 + 16).
    for (const std::string& incompleta :
         {LineaModemLog(Lunes(10, 0), "Modem in use") + LineaModemLog(Lunes(10, 0), "CONNECT") +
              LineaModemLog(Lunes(10, 5), "Modem closed."),
          LineaModemLog(Lunes(10, 0), "CONNECT") + Bajada(Lunes(10, 5)), Bajada(Lunes(10, 5))}) {
        Escribir(ModemLog(), incompleta);
        EXPECT_TRUE(Añadir()) << incompleta;
        EXPECT_EQ(log.Count(), 0);
        EXPECT_EQ(bono.tiempo(0), "10:00:00");
        EXPECT_FALSE(Existe(ModemLog()));
    }
    // Only the complete session after one closed with no bytes draws on it.
    Escribir(ModemLog(), LineaModemLog(Lunes(10, 0), "Modem in use: ppp0 /dev/ttyS0 casa") +
                             LineaModemLog(Lunes(10, 0), "CONNECT 115200") +
                             LineaModemLog(Lunes(10, 30), "Modem closed.") +
                             Sesion(Lunes(11, 0), Lunes(11, 5)));
    EXPECT_TRUE(Añadir());
    EXPECT_EQ(log.Count(), 1);
    EXPECT_EQ(bono.tiempo(0), "09:55:00");
}

TEST_F(LeerModemLog, UnLogQueNoFormaFechasNoCambiaNada) {
    UnaLlamadaPrevia();
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1));
    Pendiente(Lunes(10, 0), "", "", "Casa");
    const std::string buena = Sesion(Lunes(10, 0), Lunes(10, 30));
    const std::vector<std::string> malas = {
        buena + "13-45-2026 11:00:00.00 - Modem in use\r\n", // no such date
        buena + "CONNECT\r\n",                               // no stamp at all
        buena + Subida(Lunes(11, 0)) + "03-02-2026 11:xx:00.00 - Modem closed.\r\n",
        buena + "03-02-2026 11:00:00.00 - Modem in use\r\n" + Bajada(Lunes(11, 5)) +
            LineaModemLog(Lunes(11, 5), "Reads : 1"), // 1 + 4 + 8 + 16 + 4: no CONNECT
        buena + LineaModemLog(Lunes(11, 0), "Modem in use") +
            LineaModemLog(Lunes(11, 0), "CONNECT") + Bajada(Lunes(11, 1), 1) +
            LineaModemLog(Lunes(11, 1), "Reads : 99999999999999"), // no 32-bit KB count
    };
    for (const std::string& mala : malas) {
        Escribir(ModemLog(), mala);
        EXPECT_THROW(Añadir(), Error) << mala;
        EXPECT_EQ(log.Count(), 1) << mala;
        EXPECT_EQ(bono.tiempo(0), "10:00:00") << mala;
        EXPECT_EQ(pendientes.Count(), 1);
        EXPECT_EQ(Leer(ModemLog()), mala);
    }
}

TEST_F(LeerModemLog, DescuentoBonoNetOVacioPagaConElBonoYOtroNo) {
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1)); // 10DIA
    bono.DarAlta(2, Fecha::Crear(2026, 3, 1)); // 10NOCHE
    Pendiente(Lunes(10, 0), "BonoNet", "BonoNet", "Casa");
    Pendiente(Lunes(11, 0), "BonoNet", "Tarifa plana", "Casa");
    Pendiente(Lunes(20, 0), "BonoNet", "", "Casa");
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 45)) + Sesion(Lunes(11, 0), Lunes(11, 10)) +
                             Sesion(Lunes(20, 0), Lunes(22, 0)));
    ASSERT_TRUE(Añadir());
    // Another discount pays every minute; the evening goes to the night bundle.
    EXPECT_EQ(Llamada(0), std::tuple("BonoNet", "Casa", "11.72", -1));
    EXPECT_EQ(Llamada(1), std::tuple("BonoNet", "Casa", "36.72", -1));
    EXPECT_EQ(Llamada(2), std::tuple("BonoNet", "Casa", "11.72", -1));
    EXPECT_EQ(bono.TotalTiempoGrupo(cBono::kGrupoDia), "09:15:00");
    EXPECT_EQ(bono.TotalTiempoGrupo(cBono::kGrupoNoche), "08:00:00");
}

TEST_F(LeerModemLog, ElMesDeFacturaRellenaLosBonosUnaVezPorMes) {
    bono.DiaFactura(15);
    const std::int16_t b = bono.DarAlta(1, Fecha::Crear(2026, 1, 1)); // 50DIA
    bono.tiempo(b, "05:00:00");
    const auto Dia = [](int mes, int dia, int h) { return Fecha::Crear(2026, mes, dia, h, 0, 0); };
    // 2 Mar: before the billing day, first of the run; no refill, its month
    // is remembered. 3 Mar: same month. 16 Mar: after the billing day.
    // 6 Apr: another month before the billing day: refilled first.
    Escribir(ModemLog(),
             Sesion(Dia(3, 2, 10), Dia(3, 2, 11)) + Sesion(Dia(3, 3, 10), Dia(3, 3, 11)) +
                 Sesion(Dia(3, 16, 10), Dia(3, 16, 11)) + Sesion(Dia(4, 6, 10), Dia(4, 6, 12)));
    ASSERT_TRUE(Añadir());
    ASSERT_EQ(log.Count(), 4);
    EXPECT_EQ(bono.tiempo(b), "48:00:00");

    // Without the April call the ledger ends drawn down from 5 hours.
    bono.tiempo(b, "05:00:00");
    Escribir(ModemLog(),
             Sesion(Dia(3, 2, 10), Dia(3, 2, 11)) + Sesion(Dia(3, 3, 10), Dia(3, 3, 11)));
    ASSERT_TRUE(Añadir());
    EXPECT_EQ(bono.tiempo(b), "03:00:00");
}

TEST_F(LeerModemLog, CrearLogEmpiezaDeCero) {
    UnaLlamadaPrevia();
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 1)));
    EXPECT_TRUE(log.CrearLog(bono, festivos, pendientes));
    ASSERT_EQ(log.Count(), 1);
    EXPECT_EQ(log.Dia(0), Fecha::Crear(2026, 3, 2));
}

TEST_F(LeerModemLog, ElLectorEsperaAlGanchoQueTieneElCerrojo) {
    Escribir(ModemLog(), Sesion(Lunes(10, 0), Lunes(10, 1)));
    std::atomic<bool> terminado{false};
    std::thread lector;
    {
        // The hook's lock file, by the name the hook gives it.
        const CerrojoArchivo gancho(dir / ".modemlog.txt.lock");
        lector = std::thread([&] {
            Añadir();
            terminado = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        EXPECT_FALSE(terminado) << "the reader must wait while the hook writes";
        // The hook's block goes out before the reader reads.
        std::ofstream(ModemLog(), std::ios::app) << Sesion(Lunes(11, 0), Lunes(11, 1));
    }
    lector.join();
    EXPECT_TRUE(terminado);
    EXPECT_EQ(log.Count(), 2);
    EXPECT_FALSE(Existe(ModemLog()));
}

TEST_F(LeerModemLog, ModificarLogSoloReescribeImporteTipoYBono) {
    // A tariff whose reduced band is empty, to see band -1 stored as 255.
    {
        cLlamada libro(dir);
        libro.Load();
        const Dia d{{"6", "08:00:00", "17:59:59"}, {"3", "00:00:00", "00:00:00"}};
        PonerTarifa(libro, "SinReducida", "10", "00:00:00", d, d, d);
        libro.Save();
    }
    const auto Registro = [](Fecha dia, std::int32_t hora, const char* duracion, const char* tarifa,
                             const char* conexion, const char* reservada) {
        return RegistroLlamada::Crear(dia, Fecha::DesdeSegundos(hora), duracion, "999", 7, tarifa,
                                      conexion, reservada, 0, 123456, -5);
    };
    log.AñadirItem(
        Registro(Lunes(0, 0), 10 * 3600, "00:10:00", "Metropolitana", "Telefónica", "reservado!"));
    log.AñadirItem(Registro(Lunes(0, 0), 20 * 3600, "00:01:00", "SinReducida", "", ""));
    log.AñadirItem(Registro(Lunes(0, 0), 21 * 3600, "00:01:00", "NoExiste", "X", ""));
    log.AñadirItem(Registro(Lunes(0, 0), 22 * 3600, "1:0:0", "", "Y", "")); // odd duration text
    // A record whose Hora carries a date part: only its time of day counts.
    RegistroLlamada raro = Registro(Lunes(0, 0), 0, "00:01:00", "Provincial", "Z", "");
    raro.Hora = 36000.5;
    log.AñadirItem(raro);
    std::vector<RegistroLlamada> antes;
    for (int i = 0; i < log.Count(); ++i) {
        antes.push_back(log.Registro(i));
    }
    bono.DarAlta(0, Fecha::Crear(2026, 1, 1));
    bono.tiempo(0, "00:00:00");

    const RecalculoLog r = log.ModificarLog(bono, festivos);
    // The ledger starts full; a call of a tariff the book does not hold
    // keeps what it had, and is reported; no tariff is Metropolitana, here
    // an hour at night with no night bundle; every call goes against the
    // ledger.
    EXPECT_EQ(r.LlamadasSinTarifa, 1);
    EXPECT_EQ(r.TarifasDesconocidas, std::vector<std::string>{"NoExiste"});
    const auto precio = [&](int i) { return std::pair(log.importe(i), int(log.Tipo(i))); };
    EXPECT_EQ(precio(0), std::pair(std::string("11.72"), 0));
    EXPECT_EQ(precio(1), std::pair(std::string("13"), 255));
    EXPECT_EQ(precio(2), std::pair(std::string("999"), 7));
    EXPECT_EQ(log.Bono(0), -1);
    EXPECT_FLOAT_EQ(LeerImporte(log.importe(3)), 11.72f + 1.04f / 60.0f * 3600.0f);
    EXPECT_EQ(log.Tipo(3), 1);
    EXPECT_EQ(log.importe(4), "11.72");
    EXPECT_EQ(bono.tiempo(0), "09:49:00");

    for (int i = 0; i < log.Count(); ++i) {
        char a[RegistroLlamada::kTamaño], d[RegistroLlamada::kTamaño];
        antes[static_cast<std::size_t>(i)].Codificar(a);
        log.Registro(i).Codificar(d);
        // Dia, Hora, Duracion | Tarifa, Conexion, Reservada | Recibidos, Enviados
        EXPECT_EQ(std::string(a, i == 2 ? 33 : 24), std::string(d, i == 2 ? 33 : 24)) << i;
        EXPECT_EQ(std::string(a + 33, 42), std::string(d + 33, 42)) << i;
        EXPECT_EQ(std::string(a + 77, 8), std::string(d + 77, 8)) << i;
    }
}

TEST_F(LeerModemLog, ModificarLogRellenaElBonoPorMesDeFactura) {
    bono.DiaFactura(15);
    bono.DarAlta(0, Fecha::Crear(2026, 1, 1)); // 10DIA
    bono.tiempo(0, "01:00:00");                // the run starts it full anyway
    const auto Dos = [&](int mes, int dia, const char* duracion) {
        log.AñadirItem(Fecha::Crear(2026, mes, dia), Fecha::DesdeSegundos(10 * 3600), duracion, "",
                       0, "", "", "", 0, 0, 0);
    };
    Dos(3, 10, "02:00:00"); // refilled: 8 h left
    Dos(3, 12, "02:00:00"); // same month: 6 h
    Dos(4, 6, "02:00:00");  // refilled: 8 h
    Dos(4, 20, "01:00:00"); // after the billing day: 7 h
    log.ModificarLog(bono, festivos);
    EXPECT_EQ(bono.tiempo(0), "07:00:00");
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(log.importe(i), "11.72") << i;
    }
}

TEST_F(LeerModemLog, ModificarLogQueFallaNoCambiaNada) {
    log.AñadirItem(Lunes(0, 0), Fecha::DesdeSegundos(36000), "00:10:00", "0", 0, "", "", "", 0, 0,
                   0);
    RegistroLlamada roto = log.Registro(0);
    roto.Dia = std::numeric_limits<double>::quiet_NaN();
    log.AñadirItem(roto);
    bono.DarAlta(0, Fecha::Crear(2026, 1, 1));
    bono.tiempo(0, "01:00:00");
    EXPECT_THROW(log.ModificarLog(bono, festivos), ErrorDesbordamiento);
    EXPECT_EQ(log.importe(0), "0");
    EXPECT_EQ(bono.tiempo(0), "01:00:00");
}
