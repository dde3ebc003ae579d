// The pppd journal as the meter takes it: which records count, how a session
// becomes the modem log the register reads, and that every session enters
// each data folder's register once, priced for the entry its peer names.

#include "platform/linux/DiarioSesiones.h"

#include "CarpetaTemporal.h"
#include "GanchoPpp.h"
#include "core/Fecha.h"
#include "monitor/LlamadaVista.h"
#include "monitor/PropiasAnotadas.h"
#include "monitor/RegistroLog.h"
#include "platform/LineasModemLog.h"
#include "platform/linux/TomaDiarioPpp.h"
#include "tariff/LibroPorDefecto.h"

#include <ctime>
#include <tuple>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// Seconds since 1970 of a local time.
std::int64_t Unix(int año, int mes, int dia, int h, int m, int s) {
    std::tm t{};
    t.tm_year = año - 1900;
    t.tm_mon = mes - 1;
    t.tm_mday = dia;
    t.tm_hour = h;
    t.tm_min = m;
    t.tm_sec = s;
    t.tm_isdst = -1;
    return static_cast<std::int64_t>(std::mktime(&t));
}

std::string Registro(const std::string& iface, const std::string& peer, std::int64_t inicio,
                     std::int64_t fin, std::uint64_t rx, std::uint64_t tx) {
    return "formato=1\ninterfaz=" + iface + "\npid=" + std::to_string(4000 + iface.back()) +
           "\nentrada=" + peer +
           "\ntty=/dev/ttyS0\nvelocidad=115200\ninicio=" + std::to_string(inicio) +
           "\nfin=" + std::to_string(fin) + "\nrecibidos=" + std::to_string(rx) +
           "\nenviados=" + std::to_string(tx) + "\n";
}

class DiarioSesiones : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        fs::create_directories(diario);
        ajustes.EntradasConexion = {{"casa", "Provincial", "Ninguno"},
                                    {"trabajo", "Interprovincial", "Ninguno"}};
    }
    // A link session as the hook leaves it.
    std::string Poner(const std::string& iface, const std::string& peer, std::int64_t inicio,
                      std::int64_t fin, std::uint64_t rx = 153600, std::uint64_t tx = 20480) {
        const std::string nombre = std::to_string(fin) + "-" + iface + "-" +
                                   std::to_string(4000 + iface.back()) + ".sesion";
        Escribir(diario / nombre, Registro(iface, peer, inicio, fin, rx, tx));
        return nombre;
    }
    // One user's data folder and meter.
    struct Usuario {
        explicit Usuario(const fs::path& carpeta, const fs::path& diario, const fs::path& antiguo)
            : log(carpeta), toma(OrigenSesiones{diario, antiguo, carpeta}) {
            fs::create_directories(carpeta);
            InstalarLibroPorDefecto(carpeta);
            log.NombreLog((carpeta / kModemLogLinux).string());
            log.CargarLog();
        }
        TomaDiario::Resultado Tomar(const Settings& a) {
            return toma.Tomar(log, a, bono, pendientes);
        }
        Log log;
        TomaDiarioPpp toma;
        RelojFijo reloj{Fecha::Crear(2026, 3, 10)};
        cBono bono{reloj};
        colConexion pendientes;
    };

    fs::path diario = dir / "sesiones";
    fs::path antiguo = dir / "spool" / "modemlog.txt";
    Settings ajustes;
};

TEST_F(DiarioSesiones, SoloCuentanLosRegistrosEnterosYVanPorOrdenDeFin) {
    const auto t = Unix(2026, 3, 2, 10, 0, 0);
    Poner("ppp1", "trabajo", t + 10, t + 200);
    Poner("ppp0", "casa", t, t + 100);
    Escribir(diario / "1-ppp2-1.sesion", "formato=2\n" + Registro("ppp2", "", t, t + 5, 0, 0));
    Escribir(diario / "2-ppp3-1.sesion", Registro("ppp3", "", t + 9, t, 0, 0)); // ends before
    Escribir(diario / "3-ppp4-1.sesion", "formato=1\ninterfaz=ppp4\npid=1\ninicio=5\nfin=9\n");
    Escribir(diario / "ppp0-4048.inicio", Registro("ppp0", "casa", t, t, 0, 0));
    Escribir(diario / ".nueva.abc", Registro("ppp5", "", t, t + 1, 0, 0));
    fs::create_symlink(diario / ("" + std::to_string(t + 100) + "-ppp0-4048.sesion"),
                       diario / "4-ppp6-1.sesion");

    const LecturaDiario l = LeerDiario(diario);
    EXPECT_EQ(l.error, "");
    ASSERT_EQ(l.sesiones.size(), 2u);
    EXPECT_EQ(l.sesiones[0].interfaz, "ppp0");
    EXPECT_EQ(l.sesiones[0].Entrada(), "casa");
    EXPECT_EQ(l.sesiones[0].bytes, (Trafico{153600, 20480}));
    EXPECT_EQ(l.sesiones[1].interfaz, "ppp1");
    EXPECT_EQ(l.sesiones[1].fin - l.sesiones[1].inicio, 190);

    EXPECT_EQ(LeerDiario(dir / "no-hay").error, "") << "sin gancho instalado no hay diario";
    EXPECT_TRUE(LeerDiario(dir / "no-hay").sesiones.empty());

    // As the register reads it: the session's own moments in local time,
    // the peer (else the interface) as the entry, speed only in digits.
    SesionPpp s = *LeerSesionPpp("x", Registro("ppp0", "", t, t + 61, 1536, 2560));
    s.velocidad = "115200";
    EXPECT_EQ(
        ModemLogDeSesion(s),
        BloqueSubida(Fecha::Crear(2026, 3, 2, 10, 0, 0), {"ppp0", "/dev/ttyS0", "ppp0", "115200"}) +
            BloqueBajada(Fecha::Crear(2026, 3, 2, 10, 1, 1), {1536, 2560}));
    const std::string raro =
        "formato=1\ninterfaz=ppp0\npid=1\nvelocidad=9 in use\ninicio=" + std::to_string(t) +
        "\nfin=" + std::to_string(t) + "\nrecibidos=0\nenviados=0\n";
    EXPECT_EQ(LeerSesionPpp("x", raro)->velocidad, "");
}

TEST_F(DiarioSesiones, CadaSesionEntraUnaVezEnCadaCarpetaConLaTarifaDeSuEntrada) {
    // Two links that overlap: ppp0 up, ppp1 up, ppp0 down, ppp1 down.
    const auto t = Unix(2026, 3, 2, 10, 0, 0);
    Poner("ppp0", "casa", t, t + 120, 153600, 20480);
    Poner("ppp1", "trabajo", t + 30, t + 210, 2560, 1536);
    Poner("ppp2", "desconocida", t + 300, t + 301, 0, 0);

    Usuario ana(dir / "ana", diario, antiguo);
    const auto r = ana.Tomar(ajustes);
    EXPECT_EQ(r.Error, "");
    EXPECT_EQ(r.Tomadas, 3);
    EXPECT_EQ(r.Añadidas, 3);
    EXPECT_EQ(r.UltimoFin, Fecha::Crear(2026, 3, 2, 10, 5, 1));
    ASSERT_EQ(ana.log.Count(), 3);
    EXPECT_EQ(ana.log.Hora(0), Fecha::Crear(2026, 3, 2, 10, 0, 0).SoloHora());
    EXPECT_EQ(ana.log.Duracion(0), "00:02:00");
    EXPECT_EQ(ana.log.Tarifa(0), "Provincial");
    EXPECT_EQ(ana.log.Conexion(0), "casa");
    EXPECT_EQ(ana.log.Recibidos(0), 150);
    EXPECT_EQ(ana.log.Enviados(0), 20);
    EXPECT_EQ(ana.log.Hora(1), Fecha::Crear(2026, 3, 2, 10, 0, 30).SoloHora());
    EXPECT_EQ(ana.log.Duracion(1), "00:03:00");
    EXPECT_EQ(ana.log.Tarifa(1), "Interprovincial");
    EXPECT_EQ(ana.log.Conexion(1), "trabajo");
    EXPECT_EQ(ana.log.Recibidos(1), 2) << "2560 bytes: mitad a par";
    EXPECT_EQ(ana.log.Tarifa(2), "Metropolitana") << "una entrada sin perfil, la de serie";
    EXPECT_FALSE(Existe(ana.log.NombreLog())) << "el lector borra el log que leyo";
    EXPECT_EQ(ana.pendientes.Count(), 0);

    // Saved at once, and never taken again by this folder.
    Log guardado(dir / "ana");
    guardado.CargarLog();
    EXPECT_EQ(guardado.Count(), 3);
    EXPECT_EQ(ana.Tomar(ajustes).Tomadas, 0);
    EXPECT_EQ(ana.log.Count(), 3);

    // Another user's folder takes them for itself; root's records stay.
    Usuario berta(dir / "berta", diario, antiguo);
    EXPECT_EQ(berta.Tomar(ajustes).Añadidas, 3);
    EXPECT_EQ(Leer(dir / "berta" / TomaDiarioPpp::kArchivoTomadas),
              Leer(dir / "ana" / TomaDiarioPpp::kArchivoTomadas));
    EXPECT_EQ(prueba::Registros(diario).size(), 3u);

    // Once the hook pruned a record, the folder forgets it.
    const std::string nuevo = Poner("ppp0", "casa", t + 900, t + 960);
    for (const auto& e : fs::directory_iterator(diario)) {
        if (e.path().filename() != nuevo) {
            fs::remove(e.path());
        }
    }
    EXPECT_EQ(ana.Tomar(ajustes).Añadidas, 1);
    EXPECT_EQ(Leer(dir / "ana" / TomaDiarioPpp::kArchivoTomadas), nuevo + "\n");
}

TEST_F(DiarioSesiones, ElLogCompartidoDeAntesSeLeeUnaVez) {
    // Written by the old hook: a call the meter saw (its pending connection
    // kept in the settings) and an unfinished one.
    const Fecha t = Fecha::Crear(2026, 3, 1, 9, 0, 0);
    const std::string completa = BloqueSubida(t, {"ppp0", "/dev/ttyS0", "casa", "115200"}) +
                                 BloqueBajada(t.MasSegundos(90), {1024, 2048});
    Escribir(antiguo, completa + BloqueSubida(t.MasSegundos(600), {"ppp0", "", "casa", ""}));
    Usuario ana(dir / "ana", diario, antiguo);
    ana.pendientes.Add(t, "Provincial", "Ninguno", "casa");
    Poner("ppp1", "trabajo", Unix(2026, 3, 2, 10, 0, 0), Unix(2026, 3, 2, 10, 1, 0));

    const auto r = ana.Tomar(ajustes);
    EXPECT_EQ(r.Error, "");
    EXPECT_EQ(r.Añadidas, 2);
    ASSERT_EQ(ana.log.Count(), 2);
    EXPECT_EQ(ana.log.Duracion(0), "00:01:30");
    EXPECT_EQ(ana.log.Tarifa(0), "Provincial");
    EXPECT_EQ(ana.log.Tarifa(1), "Interprovincial");
    EXPECT_FALSE(Existe(antiguo)) << "se borra como antes, donde se puede";
    EXPECT_FALSE(Existe(ana.log.NombreLog())) << "la sesion sin cerrar no se queda";

    // Put back by someone: not read a second time.
    Escribir(antiguo, completa);
    EXPECT_EQ(ana.Tomar(ajustes).Añadidas, 0);

    // Only a plain file of root's or the user's own counts.
    Usuario berta(dir / "berta", diario, antiguo);
    fs::remove(antiguo);
    Escribir(dir / "falso.txt", completa);
    fs::create_symlink(dir / "falso.txt", antiguo);
    EXPECT_EQ(berta.Tomar(ajustes).Añadidas, 1) << "solo la sesion del diario";
}

TEST_F(DiarioSesiones, AlAcabarUnaLlamadaSeEsperaLaSesionQueLaCubre) {
    Usuario ana(dir / "ana", diario, antiguo);
    RegistroLog registro(ana.log);
    const auto t = Unix(2026, 3, 2, 10, 0, 0);
    // Without the hook's journal there is nothing to wait for.
    registro.UsarDiario(ajustes, std::make_shared<TomaDiarioPpp>(
                                     OrigenSesiones{dir / "no-hay", antiguo, dir / "ana"}));
    registro.LlamadaTerminada(FechaLocal(t));
    EXPECT_FALSE(registro.ExisteModemLog());

    registro.UsarDiario(
        ajustes, std::make_shared<TomaDiarioPpp>(OrigenSesiones{diario, antiguo, dir / "ana"}));
    // An older session not taken yet does not cover the call that ended.
    Poner("ppp1", "trabajo", t - 500, t - 400);
    EXPECT_FALSE(registro.ExisteModemLog());
    registro.LlamadaTerminada(FechaLocal(t + 1));
    EXPECT_TRUE(registro.ExisteModemLog());
    EXPECT_TRUE(registro.AñadirLog(ana.bono, ajustes.Festivos, ana.pendientes));
    EXPECT_TRUE(registro.ExisteModemLog()) << "la de esta llamada aun no esta";
    EXPECT_FALSE(registro.AñadirLog(ana.bono, ajustes.Festivos, ana.pendientes));
    // The hook's record: pppd saw the link a moment before the meter did.
    Poner("ppp0", "casa", t, t + 60);
    EXPECT_TRUE(registro.AñadirLog(ana.bono, ajustes.Festivos, ana.pendientes));
    EXPECT_FALSE(registro.ExisteModemLog());
    EXPECT_EQ(ana.log.Count(), 2);
}

// A call the meter recorded itself (its pppd had gone with no session) and
// the session that comes after all: the call is corrected where it stands,
// with pppd's start, time and bytes, never added twice. A session of another
// pppd on the other interface is a call of its own.
TEST_F(DiarioSesiones, UnaSesionQueLlegaTardeCorrigeLaLlamadaAnotadaPorElContador) {
    Usuario ana(dir / "ana", diario, antiguo);
    RegistroLog registro(ana.log);
    registro.UsarDiario(
        ajustes, std::make_shared<TomaDiarioPpp>(OrigenSesiones{diario, antiguo, dir / "ana"}));
    const auto t = Unix(2026, 3, 2, 10, 0, 0);
    const auto vista = [&](const std::string& iface, int pid, const std::string& entrada) {
        LlamadaVista v;
        v.Inicio = FechaLocal(t + 2);
        v.Fin = FechaLocal(t + 61);
        v.Entrada = entrada;
        v.Tarifa = "Provincial";
        v.Descuento = "Ninguno";
        v.Interfaz = iface;
        v.Pid = pid;
        v.Recibidos = 1024;
        return v;
    };
    ASSERT_EQ(registro.AnotarVista(vista("ppp0", 4048, "casa"), dir / "v.log", ana.bono, {}), 1);
    ASSERT_EQ(registro.AnotarVista(vista("ppp1", 7777, "trabajo"), dir / "v.log", ana.bono, {}), 1);
    Poner("ppp0", "casa", t, t + 60, 153600, 20480);
    Poner("ppp1", "trabajo", t + 1, t + 50); // pid 4049, not the record's 7777

    const TomaDiario::Resultado r = ana.Tomar(ajustes);
    EXPECT_EQ(r.Corregidas, 1);
    EXPECT_EQ(r.Añadidas, 1);
    Log guardado(dir / "ana");
    guardado.CargarLog();
    ASSERT_EQ(guardado.Count(), 3);
    EXPECT_EQ(std::tuple(guardado.Hora(0).TextoIso().substr(11), guardado.Duracion(0),
                         guardado.Recibidos(0), guardado.Conexion(0)),
              std::tuple("10:00:00", "00:01:00", 150, "casa"));
    EXPECT_EQ(guardado.Recibidos(1), 1) << "the other record stands";
    EXPECT_EQ(guardado.Duracion(2), "00:00:49");
    EXPECT_EQ(PropiasAnotadas(dir / "ana").Leer().size(), 1u);
    EXPECT_EQ(ana.Tomar(ajustes).Tomadas, 0) << "each session once";
}

// The session of an ended link may still come only while the journal is
// there, the hook marked the link's start and its pppd has not exited (a
// zombie has); with the pid unknown, it may.
TEST_F(DiarioSesiones, LaSesionPuedeLlegarMientrasSuPppdNoHaTerminado) {
    for (const char* pid : {"500", "501", "502"}) {
        Escribir(diario / ("ppp0-" + std::string(pid) + ".inicio"), "formato=1\n");
    }
    Escribir(dir / "proc" / "500" / "stat", "500 (pppd) S 1 500 500 0 -1\n");
    Escribir(dir / "proc" / "501" / "stat", "501 (pppd) Z 1 501 501 0 -1\n");
    Escribir(dir / "proc" / "503" / "stat", "503 (pppd) S 1 503 503 0 -1\n");
    Escribir(diario / "1772442000-ppp1-501-x.sesion", "formato=1\n");
    OrigenSesiones origen{diario, antiguo, dir, dir / "proc"};
    const TomaDiarioPpp toma(origen);
    EXPECT_TRUE(toma.PuedeLlegar("ppp0", 500));
    EXPECT_FALSE(toma.PuedeLlegar("ppp0", 501));
    EXPECT_FALSE(toma.PuedeLlegar("ppp0", 502));
    EXPECT_FALSE(toma.PuedeLlegar("ppp0", 503)) << "el gancho no marco su inicio";
    EXPECT_TRUE(toma.PuedeLlegar("ppp1", 501)) << "ya esta en el diario";
    EXPECT_TRUE(toma.PuedeLlegar("ppp0", 0));
    origen.diario = dir / "sin-gancho";
    EXPECT_FALSE(TomaDiarioPpp(origen).PuedeLlegar("ppp0", 500));
}

} // namespace
