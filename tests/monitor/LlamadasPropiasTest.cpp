// Lo que el contador anota por su cuenta: cada llamada que vio queda en
// "LlamadasVistas" hasta que el log de sesiones del sistema la da; si no
// llega, esa anotacion es la llamada. Nunca se pierde ni se anota dos veces.

#include "Banco.h"
#include "monitor/ArchivoLlamadasVistas.h"
#include "monitor/RegistroLog.h"
#include "platform/LineasModemLog.h"

#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

constexpr int kNada = LecturaConexion::kNada;
constexpr int kConectado = LecturaConexion::kConectado;
constexpr int kDesconectado = LecturaConexion::kDesconectado;
constexpr int kEspera = EsperaLogModem::kSegundosPorDefecto;

class Propias : public CarpetaTemporal {
protected:
    void SetUp() override {
        EscribirLibro(dir);
        ajustes.EntradasConexion = {{"Casa", "Cara", "Ninguno"}};
        Arrancar();
    }
    // Un contador nuevo sobre la misma carpeta, como tras matar el programa.
    void Arrancar() {
        monitor.reset();
        registro.reset();
        log = std::make_unique<Log>(dir);
        log->NombreLog((dir / "modemlog.txt").string());
        log->CargarLog();
        registro = std::make_unique<RegistroLog>(*log);
        monitor = std::make_unique<MonitorConexion>(reloj, ajustes, bono, pendientes, *registro,
                                                    marcador, dir);
    }
    MonitorConexion::Sucesos Ticks(int n, int estado, const std::string& sesion = "ppp0#5#300") {
        MonitorConexion::Sucesos todos;
        for (int i = 0; i < n; ++i) {
            reloj.Avanzar(1);
            LecturaConexion l{estado == kNada ? 0 : 1, estado, "Casa"};
            l.Enlace = estado == kNada ? "" : sesion;
            l.Interfaz = "ppp0";
            l.Pid = 300;
            l.Recibidos = 4096;
            l.Enviados = 2048;
            auto s = monitor->Tick(l);
            todos.insert(todos.end(), s.begin(), s.end());
        }
        return todos;
    }
    static int Cuantos(const MonitorConexion::Sucesos& s, SucesoMonitor::Tipo tipo) {
        return static_cast<int>(std::count_if(
            s.begin(), s.end(), [&](const SucesoMonitor& x) { return x.tipo == tipo; }));
    }
    void Subida(Fecha cuando) {
        AnexarModemLog(dir / "modemlog.txt",
                       BloqueSubida(cuando, {"ppp0", "/dev/ttyS0", "Casa", ""}));
    }
    void Bajada(Fecha cuando) {
        AnexarModemLog(dir / "modemlog.txt", BloqueBajada(cuando, {2048, 1024}));
    }
    // El registro tal como quedo en RegDat.log.
    Log Guardado() {
        Log otro(dir);
        otro.CargarLog();
        return otro;
    }
    int Vistas() { return static_cast<int>(ArchivoLlamadasVistas(dir).Todas().size()); }

    RelojFijo reloj{Miercoles(10, 0, 0)};
    Settings ajustes;
    cBono bono{reloj};
    colConexion pendientes;
    MarcadorFalso marcador;
    std::unique_ptr<Log> log;
    std::unique_ptr<RegistroLog> registro;
    std::unique_ptr<MonitorConexion> monitor;
};

TEST(LlamadaVista, SuTextoVaYVuelveYUnoDañadoNoEsUnaLlamada) {
    LlamadaVista v;
    v.Inicio = Miercoles(10, 0, 1);
    v.Fin = Miercoles(10, 5, 0);
    v.Entrada = "Mi\nproveedor";
    v.Tarifa = "Provincial";
    v.Descuento = "BonoNet";
    v.Interfaz = "ppp0";
    v.Pid = 4242;
    v.Enlace = "ppp0#7#4242";
    v.FechaSesion = Miercoles(10, 0, 2);
    v.Recibidos = 123456789012ULL;
    v.Enviados = 5;
    v.Abierta = false;
    const auto leida = LlamadaVista::Leer(v.Texto());
    ASSERT_TRUE(leida);
    LlamadaVista esperada = v;
    esperada.Entrada = "Miproveedor"; // un nombre nunca parte su linea
    EXPECT_EQ(*leida, esperada);

    for (const char* malo : {"", "llamada=1\n", "llamada=1\ninicio=ayer\n"}) {
        EXPECT_FALSE(LlamadaVista::Leer(malo)) << malo;
    }
    std::string alReves = v.Texto();
    alReves.replace(alReves.find("fin=2024-03-06 10:05:00"), 23, "fin=2024-03-06 09:00:00");
    EXPECT_FALSE(LlamadaVista::Leer(alReves)) << "una llamada que acaba antes de empezar";
}

TEST_F(Propias, SinLogDelSistemaLaAnotacionEsLaLlamadaYSeAvisaUnaVez) {
    Ticks(60, kConectado);
    EXPECT_EQ(Vistas(), 1) << "anotada desde el primer tick";
    Ticks(1, kDesconectado);
    auto s = Ticks(kEspera - 1, kNada);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 0);
    s = Ticks(1, kNada);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 1);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::SinRegistroSistema), 1);
    Log g = Guardado();
    ASSERT_EQ(g.Count(), 1);
    // Del primer tick arriba al tick que la vio caida, con la tarifa de la
    // entrada y los bytes que conto la interfaz.
    EXPECT_EQ(std::tuple(g.Tarifa(0), g.Conexion(0), g.Duracion(0), g.importe(0)),
              std::tuple("Cara", "Casa", "00:01:00", "100"));
    EXPECT_EQ(std::tuple(g.Recibidos(0), g.Enviados(0)), std::tuple(4, 2));
    EXPECT_EQ(Vistas(), 0);

    // La siguiente tambien, pero el aviso ya se dio.
    Ticks(10, kConectado, "ppp0#6#301");
    Ticks(1, kNada);
    s = Ticks(kEspera, kNada);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 1);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::SinRegistroSistema), 0);
    EXPECT_EQ(Guardado().Count(), 2);
}

TEST_F(Propias, LaSesionDelSistemaQueLlegaSustituyeALaAnotacion) {
    Ticks(1, kConectado);
    Subida(Miercoles(10, 0, 1));
    Ticks(59, kConectado);
    Ticks(1, kDesconectado);
    Bajada(Miercoles(10, 1, 0));
    Ticks(kEspera * 2, kNada);
    EXPECT_EQ(Guardado().Count(), 1);
    EXPECT_EQ(Guardado().Recibidos(0), 2) << "los bytes del log, no los del contador";
    EXPECT_EQ(Vistas(), 0);
}

// pppd muerto con kill -9: su ip-down no corre y el log queda con la sesion
// abierta. La siguiente llamada no la descarta ni corta su espera.
TEST_F(Propias, UnPppdMuertoSinIpDownNoPierdeLaLlamada) {
    Ticks(1, kConectado);
    Subida(Miercoles(10, 0, 1));
    Ticks(29, kConectado);
    Ticks(1, kNada); // 10:00:31
    Ticks(5, kNada);
    Ticks(1, kConectado, "ppp0#6#400"); // otro pppd, 10:00:37
    Subida(Miercoles(10, 0, 37));
    auto s = Ticks(kEspera, kConectado, "ppp0#6#400");
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 1);
    EXPECT_EQ(Guardado().Count(), 1);
    EXPECT_EQ(Guardado().Duracion(0), "00:00:30");
    // La segunda sigue con su pendiente y llega por el log.
    Ticks(1, kNada);
    Bajada(reloj.Ahora());
    Ticks(kEspera * 2, kNada);
    Log g = Guardado();
    ASSERT_EQ(g.Count(), 2);
    EXPECT_EQ(std::tuple(g.Tarifa(1), g.Conexion(1)), std::tuple("Cara", "Casa"));
    EXPECT_EQ(Vistas(), 0);
}

// Cae y vuelve entre dos miradas: dos sesiones, dos llamadas, cada una con
// su tarifa, ni perdidas ni repetidas pase lo que pase con el log.
TEST_F(Propias, UnaCaidaYRemarcadoEnUnTickSonDosLlamadas) {
    Ticks(1, kConectado, "ppp0#5#300");
    Subida(Miercoles(10, 0, 1));
    Ticks(19, kConectado, "ppp0#5#300");
    Bajada(Miercoles(10, 0, 20));
    Subida(Miercoles(10, 0, 21));
    Ticks(20, kConectado, "ppp0#6#300");
    EXPECT_EQ(pendientes.Count(), 2);
    Ticks(1, kNada);
    Bajada(reloj.Ahora());
    Ticks(kEspera * 3, kNada);
    Log g = Guardado();
    ASSERT_EQ(g.Count(), 2);
    EXPECT_EQ(std::tuple(g.Tarifa(0), g.Tarifa(1)), std::tuple("Cara", "Cara"));
    EXPECT_EQ(Vistas(), 0);
}

// El gancho cierra la sesion antes de que la interfaz desaparezca: el log da
// la llamada cuando el contador aun la ve arriba, y la nota que se cierra
// despues no la repite.
TEST_F(Propias, LaSesionLeidaAntesDeQueElContadorCierreLaLlamadaNoSeRepite) {
    Ticks(1, kConectado);
    Subida(Miercoles(10, 0, 1));
    Ticks(9, kConectado);
    Ticks(1, kNada); // la primera acaba sin sus lineas de cierre aun
    Ticks(1, kConectado, "ppp0#6#300");
    Subida(Miercoles(10, 0, 12));
    Ticks(5, kConectado, "ppp0#6#300");
    Bajada(Miercoles(10, 0, 17));       // las dos quedan cerradas en el log
    Ticks(1, kConectado, "ppp0#6#300"); // se leen con la segunda aun arriba
    EXPECT_EQ(Guardado().Count(), 1) << "la primera, que acabo mal, no se lee";
    Ticks(1, kNada);
    Ticks(kEspera * 2, kNada);
    EXPECT_EQ(Guardado().Count(), 2);
    EXPECT_EQ(Vistas(), 0);
}

// El log de la primera esta cerrado pero detras hay otra sesion abierta: no
// se puede leer aun, y la anotacion espera a que se lea con la siguiente.
TEST_F(Propias, UnaSesionCerradaDetrasDeUnaAbiertaSeEsperaSinLimite) {
    Ticks(1, kConectado);
    Subida(Miercoles(10, 0, 1));
    Ticks(9, kConectado);
    Bajada(Miercoles(10, 0, 10));
    Subida(Miercoles(10, 0, 10)); // la siguiente ya esta en el log
    Ticks(1, kNada);
    Ticks(1, kConectado, "ppp0#6#300");
    Ticks(kEspera * 2, kConectado, "ppp0#6#300");
    EXPECT_EQ(Guardado().Count(), 0);
    EXPECT_EQ(registro->EstadoEnLog(Miercoles(10, 0, 1)), SesionEnLog::Cerrada);
    EXPECT_EQ(registro->EstadoEnLog(Miercoles(10, 0, 10)), SesionEnLog::Abierta);
    EXPECT_EQ(registro->EstadoEnLog(Miercoles(9, 0, 0)), SesionEnLog::Ausente);
    Ticks(1, kNada);
    Bajada(reloj.Ahora());
    Ticks(kEspera * 2, kNada);
    EXPECT_EQ(Guardado().Count(), 2);
    EXPECT_EQ(Vistas(), 0);
}

// El contador muerto a mitad de llamada: al volver, el mismo enlace sigue
// arriba y la llamada continua desde su inicio de verdad.
TEST_F(Propias, ElContadorMuertoRetomaLaLlamadaDesdeSuInicio) {
    const Fecha inicio = reloj.Ahora().MasSegundos(1);
    Ticks(45, kConectado);
    Arrancar(); // sin cerrar nada, como un kill -9
    Ticks(15, kConectado);
    EXPECT_EQ(monitor->InicioLlamada(), inicio);
    Ticks(1, kNada);
    Ticks(kEspera, kNada);
    Log g = Guardado();
    ASSERT_EQ(g.Count(), 1);
    EXPECT_EQ(g.Duracion(0), "00:01:00");

    // Si al volver el enlace ya no esta, la llamada acaba en lo ultimo
    // guardado (cada 30 s) y se anota tras la espera.
    Ticks(40, kConectado, "ppp0#9#500");
    Arrancar();
    Ticks(kEspera + 1, kNada);
    g = Guardado();
    ASSERT_EQ(g.Count(), 2);
    EXPECT_EQ(g.Duracion(1), "00:00:30");
    EXPECT_EQ(Vistas(), 0);
}

// A journal that keeps every session but, for these calls, gets none.
class DiarioSinSesion : public TomaDiario {
public:
    Resultado Tomar(Log&, const Settings&, cBono&, colConexion&) override { return {}; }
    bool HaySesiones() const override { return true; }
    bool PuedeLlegar(const std::string&, int pid) const override { return pid == vivo; }
    void Anotada(const LlamadaVista& v) override { anotadas.push_back(v.Pid); }
    std::vector<int> anotadas;
    int vivo = 300; // the pppd still running (its ip-down may write yet)
};

// The record waits only while its pppd may still write the session: the
// moment it has exited, the record is the call; when the meter stops, every
// ended call is in the register file.
TEST_F(Propias, LaAnotacionEsLaLlamadaEnCuantoNingunaSesionPuedeLlegarYAlParar) {
    auto diario = std::make_shared<DiarioSinSesion>();
    registro->UsarDiario(ajustes, diario);
    Ticks(20, kConectado);
    Ticks(1, kNada);
    auto s = Ticks(5, kNada);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 0) << "pppd 300 sigue vivo";
    diario->vivo = 0;
    s = Ticks(1, kNada);
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 1);
    ASSERT_EQ(Guardado().Count(), 1);
    EXPECT_EQ(Guardado().Duracion(0), "00:00:20");

    diario->vivo = 300;
    Ticks(10, kConectado, "ppp0#6#300");
    Ticks(1, kNada);
    s = monitor->Parar();
    EXPECT_EQ(Cuantos(s, SucesoMonitor::Tipo::LlamadasAnotadas), 1);
    EXPECT_EQ(Guardado().Count(), 2);
    EXPECT_EQ(Vistas(), 0);
    // Both may still be corrected by a session that comes later.
    EXPECT_EQ(diario->anotadas, (std::vector<int>{300, 300}));
}

} // namespace
