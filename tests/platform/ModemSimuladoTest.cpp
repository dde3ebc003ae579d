// The scripted modem: its script, the codes it reports over time and the
// session log it leaves, which must be what the pppd hook would write.

#include "platform/simulated/ModemSimulado.h"

#include "CarpetaTemporal.h"
#include "core/Errores.h"
#include "platform/LineasModemLog.h"
#include "platform/Plataforma.h"

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

const Fecha kT0 = Fecha::Crear(2024, 3, 9, 23, 59, 50);

// Calls at 2..10 (up from 5), a failed dial at 12..14, a call up at 15..17.
constexpr const char* kGuion = R"(# dos llamadas y un fallo
espera 2
llamada casa marcar=3 conectado=5 recibidos=5000 enviados=1000
espera 2
fallo trabajo marcar=2   # no contesta
espera 1
llamada "Mi proveedor" conectado=2 velocidad=57600 interfaz=ppp1
entrada vacaciones
)";

class Simulado : public prueba::CarpetaTemporal {
protected:
    ModemSimulado Crear(const char* texto = kGuion) {
        return ModemSimulado(Guion::Analizar(texto), reloj, log);
    }
    void En(ModemSimulado& m, int segundo) {
        reloj.Poner(kT0.MasSegundos(segundo));
        l = m.Leer();
    }
    std::optional<Trafico> Bytes() const {
        if (!l.Recibidos || !l.Enviados) {
            return std::nullopt;
        }
        return Trafico{*l.Recibidos, *l.Enviados};
    }
    std::string Subida(int segundo, const std::string& entrada, const std::string& velocidad,
                       const std::string& interfaz = "ppp0") {
        return BloqueSubida(kT0.MasSegundos(segundo),
                            {interfaz, "/dev/ttySIM0", entrada, velocidad});
    }
    std::string Bajada(int segundo, Trafico t) { return BloqueBajada(kT0.MasSegundos(segundo), t); }
    std::string Log() { return fs::exists(log) ? Leer(log) : std::string("(sin log)"); }

    RelojFijo reloj{kT0};
    fs::path log = dir / "modemlog.txt";
    LecturaConexion l; // the last look
};

TEST_F(Simulado, CodigosSegundoASegundoComoLosDaLinux) {
    auto m = Crear();
    std::string visto;
    for (int s = 0; s <= 18; ++s) {
        En(m, s);
        visto += std::to_string(l.IntState) + l.EntryName + " ";
        EXPECT_EQ(l.Count, (l.IntState == 2 || l.IntState == 3) ? 1 : 0) << s;
    }
    // 0 names the call that ended; a failed dial names nothing.
    // The end is told on one look, then the line is idle as on Linux.
    EXPECT_EQ(visto, "-1 -1 3casa 3casa 3casa 2casa 2casa 2casa 2casa 2casa 0casa -1 3trabajo "
                     "3trabajo -1 2Mi proveedor 2Mi proveedor 0Mi proveedor -1 ");
}

TEST_F(Simulado, ElLogSeEscribeAlSubirYAlBajarElEnlace) {
    auto m = Crear();
    En(m, 4);
    EXPECT_FALSE(fs::exists(log)) << "marcando aun no hay sesion";
    En(m, 5);
    const std::string subida = Subida(5, "casa", "115200");
    EXPECT_EQ(Log(), subida);
    En(m, 7);
    EXPECT_EQ(Bytes(), (Trafico{2000, 400})) << "bytes repartidos por el tiempo conectado";
    En(m, 9);
    EXPECT_EQ(Log(), subida);
    En(m, 10);
    EXPECT_EQ(Log(), subida + Bajada(10, {5000, 1000}));
    EXPECT_EQ(Bytes(), (Trafico{5000, 1000}));
    En(m, 14);
    EXPECT_EQ(Log(), subida + Bajada(10, {5000, 1000})) << "un fallo no deja rastro";
    EXPECT_EQ(Bytes(), std::nullopt);
    En(m, 17);
    EXPECT_EQ(Log(), subida + Bajada(10, {5000, 1000}) +
                         Subida(15, "Mi proveedor", "57600", "ppp1") + Bajada(17, {0, 0}));
}

TEST_F(Simulado, UnSaltoDelRelojEscribeCadaBloqueEnSuMomento) {
    auto m = Crear();
    En(m, 3600);
    EXPECT_EQ(l.IntState, 0);
    EXPECT_EQ(Log(), Subida(5, "casa", "115200") + Bajada(10, {5000, 1000}) +
                         Subida(15, "Mi proveedor", "57600", "ppp1") + Bajada(17, {0, 0}));
}

TEST_F(Simulado, ColgarCortaLaLlamadaYElGuionSigueDesdeAhi) {
    auto m = Crear();
    En(m, 7);
    EXPECT_EQ(m.Colgar("trabajo"), 0) << "otra entrada no se cuelga";
    EXPECT_EQ(m.Colgar(" casa "), 1);
    EXPECT_EQ(Log(), Subida(5, "casa", "115200") + Bajada(7, {2000, 400}));
    En(m, 7);
    EXPECT_EQ(l.IntState, 0);
    EXPECT_EQ(Bytes(), (Trafico{2000, 400}));
    En(m, 9); // the "espera 2" now ends at 9 and the failed dial begins
    EXPECT_EQ(l.IntState, 3);
    EXPECT_EQ(m.Colgar("casa"), 0);

    // Hanging up while dialling is a failed dial: -1 and nothing logged.
    EXPECT_EQ(m.Colgar("trabajo"), 1);
    En(m, 9);
    EXPECT_EQ(l.IntState, -1);
    En(m, 10);
    EXPECT_EQ(l.IntState, 2);
    EXPECT_EQ(l.EntryName, "Mi proveedor");
}

TEST_F(Simulado, EntradasYModemsDelGuion) {
    auto m = Crear();
    EXPECT_EQ(m.Entradas(),
              (std::vector<std::string>{"casa", "trabajo", "Mi proveedor", "vacaciones"}));
    EXPECT_EQ(m.Modems(), (std::vector<Modem>{{"sim0", "Modem simulado", log}}));
    auto dos = Crear("modem Acme 56K\nmodem  \"Otro   modem\"\n");
    EXPECT_EQ(dos.Modems(),
              (std::vector<Modem>{{"sim0", "Acme 56K", log}, {"sim1", "Otro   modem", log}}));
    m.Marcar("casa");
    EXPECT_EQ(m.Marcadas(), (std::vector<std::string>{"casa"}));
    En(m, 1);
    EXPECT_EQ(l.IntState, -1) << "marcar no adelanta el guion";
}

TEST(Guion, ErroresDicenLaLineaYQueFalla) {
    const std::vector<std::pair<std::string, std::string>> casos = {
        {"espera 1\nllamar casa conectado=3\n", "linea 2: orden desconocida \"llamar\""},
        {"llamada casa marcar=3\n", "linea 1: una llamada necesita conectado="},
        {"llamada casa conectado=-5\n", "\"-5\" no es un numero valido para conectado"},
        {"fallo casa\n", "linea 1: un fallo necesita marcar="},
        {"fallo casa marcar=2 conectado=4\n", "no se entiende \"conectado=4\""},
        {"llamada \"Mi casa conectado=4\n", "falta la comilla"},
        {"llamada\n", "falta el nombre de la entrada"},
        {"espera 99999999999999999999\n", "no es un numero valido para espera"},
        {"\n\n# nada\nmodem\n", "linea 4: falta el modelo"},
    };
    for (const auto& [texto, mensaje] : casos) {
        try {
            Guion::Analizar(texto, "prueba.guion");
            ADD_FAILURE() << "sin error: " << texto;
        } catch (const Error& e) {
            EXPECT_NE(std::string(e.what()).find(mensaje), std::string::npos)
                << texto << " -> " << e.what();
            EXPECT_EQ(std::string(e.what()).rfind("prueba.guion, linea ", 0), 0u) << e.what();
        }
    }
}

TEST(Guion, LosGuionesQueSeDistribuyenTienenDosLlamadas) {
    const char* fuentes = std::getenv("VORIMESK_FUENTES");
    const fs::path carpeta =
        fs::path(fuentes ? fuentes : VORIMESK_FUENTES_COMPILADAS) / "data" / "guiones";
    for (const char* nombre : {"dos-llamadas.guion", "demostracion.guion"}) {
        const Guion g = Guion::Leer(carpeta / nombre);
        int llamadas = 0;
        for (const auto& p : g.Pasos()) {
            llamadas += p.tipo == PasoGuion::Tipo::Llamada;
        }
        EXPECT_EQ(llamadas, 2) << nombre;
    }
    EXPECT_THROW(Guion::Leer(carpeta / "no-existe.guion"), ErrorArchivo);
}

using Fabrica = prueba::CarpetaTemporal;

TEST_F(Fabrica, ConGuionTodoEsElMismoModemYSinGuionElSistema) {
    Escribir(dir / "g.guion", "llamada casa conectado=60\n");
    RelojFijo reloj(kT0);
    OpcionesPlataforma o;
    o.carpetaDatos = dir;
    o.guion = dir / "g.guion";
    o.reloj = &reloj;
    o.entorno = {};
    Plataforma p = CrearPlataforma(o);
    p.conexiones->Leer();
    EXPECT_EQ(p.marcador->Colgar("casa"), 1);
    EXPECT_EQ(p.conexiones->Leer().IntState, 0);
    EXPECT_TRUE(fs::exists(p.modems->Modems().at(0).rutaLog));
    EXPECT_EQ(p.modems->Modems().at(0).rutaLog, dir / kModemLogSimulado);
    p.cargaAlIniciar->Activar("/usr/bin/vorimesk", {});
    EXPECT_TRUE(p.cargaAlIniciar->Activada());
    ASSERT_TRUE(p.instancia->Adquirir());
    EXPECT_TRUE(fs::exists(dir / "vorimesk.lock")) << "sin XDG_RUNTIME_DIR, en la carpeta de datos";

    o.reloj = nullptr;
    EXPECT_THROW(CrearPlataforma(o), Error);

    OpcionesPlataforma s;
    s.carpetaDatos = dir;
    s.raices = {dir / "sys", dir / "proc", dir / "run", dir / "peers"};
    s.entorno.modemLog = (dir / "spool" / "m.txt").string();
    s.entorno.xdgRuntimeDir = dir.string();
    s.entorno.home = (dir / "casa").string();
    Escribir(dir / "peers" / "movistar", "");
    Plataforma l = CrearPlataforma(s);
    EXPECT_EQ(l.entradas->Entradas(), (std::vector<std::string>{"movistar"}));
    EXPECT_EQ(l.modems->Modems(), std::vector<Modem>{}) << "sin puertos serie";
    l.cargaAlIniciar->Activar("/usr/bin/vorimesk", {});
    EXPECT_TRUE(fs::exists(dir / "casa" / ".config" / "autostart" / "vorimesk.desktop"));
    EXPECT_FALSE(l.instancia->Adquirir()) << "el mismo cerrojo ya lo tiene la otra plataforma";
}

} // namespace
