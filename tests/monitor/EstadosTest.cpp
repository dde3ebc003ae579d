// La maquina de estados: cada fila de la tabla de estados, el inicio de una
// llamada una sola vez y su final por cualquier camino.

#include "Banco.h"
#include "monitor/EntradasConexion.h"

#include <algorithm>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
using Tipo = SucesoMonitor::Tipo;

namespace {

constexpr int kNada = LecturaConexion::kNada;
constexpr int kDesconectado = LecturaConexion::kDesconectado;
constexpr int kConectado = LecturaConexion::kConectado;
constexpr int kConectando = LecturaConexion::kConectando;

class Estados : public BancoMonitor {};

TEST_F(Estados, CadaFilaDeLaTabla) {
    const PantallaMonitor& p = Monitor().Pantalla();
    // Estado de pantalla, color del indicador, etiquetas de llamada y lista
    // de conexiones.
    const auto fila = [&] {
        return std::tuple(Codigo(p.EstadoPantalla), p.ColorIndicador, p.EtiquetasLlamada,
                          p.ListaConexiones);
    };
    EXPECT_EQ(Codigo(p.EstadoPantalla), 0);
    EXPECT_EQ(p.PuntaBandeja, "Vorimesk  Desconectado.");
    EXPECT_FALSE(p.MenuDesconectar);

    Tick(kNada);
    EXPECT_EQ(fila(), std::tuple(4, 12, false, true));
    Tick(kConectando, "Trabajo");
    EXPECT_EQ(fila(), std::tuple(1, 14, true, false));
    EXPECT_EQ(p.Conectado, "Trabajo");
    // Un 0 sin llamada abierta: la pantalla sigue en 1 y se vuelve al reposo.
    Tick(kDesconectado, "Trabajo");
    EXPECT_EQ(fila(), std::tuple(1, 12, false, true));
    Tick(kConectado, "Trabajo");
    EXPECT_EQ(fila(), std::tuple(2, 10, true, false));
    EXPECT_TRUE(Monitor().LlamadaAbierta());
    // Tras la llamada el estado de pantalla no cambia: solo el color y las
    // etiquetas.
    Tick(kDesconectado, "Trabajo");
    EXPECT_EQ(fila(), std::tuple(2, 12, false, true));
    EXPECT_FALSE(Monitor().LlamadaAbierta());
}

TEST_F(Estados, UnCodigoDesconocidoNoCambiaNada) {
    Tick(kConectando, "Casa");
    const PantallaMonitor antes = Monitor().Pantalla();
    EXPECT_TRUE(Monitor().TickEstado({1, 7, "Otra"}).empty());
    EXPECT_EQ(std::tuple(Monitor().Pantalla().EstadoPantalla, Monitor().Pantalla().ColorIndicador,
                         Monitor().Pantalla().Conectado),
              std::tuple(antes.EstadoPantalla, antes.ColorIndicador, "Casa"));
    // Con una llamada abierta tampoco la termina.
    Tick(kConectado);
    Monitor().TickEstado({1, 5, "Casa"});
    EXPECT_TRUE(Monitor().LlamadaAbierta());
}

TEST_F(Estados, UnaMarcacionFallidaNoAbreLlamada) {
    ajustes.AvisoConectar = true;
    ajustes.AvisoDesconectar = true;
    auto s = Ticks(5, kConectando);
    auto fin = Ticks(2, kNada);
    s.insert(s.end(), fin.begin(), fin.end());
    EXPECT_EQ(Resumen(s), "");
    EXPECT_EQ(pendientes.Count(), 0);
    EXPECT_TRUE(marcador.colgadas.empty());
    EXPECT_EQ(registro.lecturas, 0);
    EXPECT_EQ(Codigo(Monitor().Pantalla().EstadoPantalla), 4);
}

TEST_F(Estados, MuchosTicksConectadosInicianUnaVez) {
    ajustes.ProgramasAlConectar = true;
    ajustes.Programas = {"/usr/bin/correo", "/usr/bin/noticias"};
    ajustes.AvisoConectar = true;
    ajustes.MiniAlConectar = true;
    ajustes.SonidoAviso = "/tmp/aviso.wav";
    Ticks(3, kConectando);
    const Fecha primero = reloj.Ahora().MasSegundos(1);
    const auto s = Ticks(50, kConectado);
    EXPECT_EQ(Resumen(s), "iniciada sonar programa*2 mini");
    const auto sonido = std::find_if(s.begin(), s.end(),
                                     [](const SucesoMonitor& x) { return x.tipo == Tipo::Sonar; });
    EXPECT_EQ(*sonido, (SucesoMonitor{Tipo::Sonar, "/tmp/aviso.wav", MotivoAviso::Conectar}));
    EXPECT_EQ(pendientes.Count(), 1);
    EXPECT_EQ(Monitor().Enganche(), 65535);
    EXPECT_EQ(Monitor().InicioLlamada(), primero);
    EXPECT_TRUE(Monitor().MedidorActivo());
    EXPECT_FALSE(Monitor().Pantalla().MenuConectar);
    EXPECT_TRUE(Monitor().Pantalla().MenuDesconectar);
}

TEST_F(Estados, UnEnlaceYaLevantadoAlArrancarEsUnaLlamada) {
    registro.fecha = Miercoles(9, 40, 12);   // subio antes de abrir el programa
    ajustes.Programas = {"/usr/bin/correo"}; // lista sin la opcion marcada
    EXPECT_EQ(Resumen(Tick(kConectado, "Casa")), "iniciada");
    EXPECT_EQ(Monitor().InicioLlamada(), reloj.Ahora());
    ASSERT_EQ(pendientes.Count(), 1);
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(9, 40, 12));
    EXPECT_EQ(Monitor().Pantalla().Tiempo, "00:00:00"); // el medidor ya corre
}

TEST_F(Estados, ElPerfilPendienteLlevaTarifaYDescuentoDeLaEntrada) {
    ajustes.EntradasConexion = {{"Casa", "Cara", "BonoNet"}, {"Trabajo", "BonoNet", "Ninguno"}};
    ajustes.Festivos = {Fecha::Crear(2024, 1, 6)};
    registro.fecha = Miercoles(10, 0, 1);
    Ticks(2, kConectado, "Casa");
    ASSERT_EQ(pendientes.Count(), 1);
    const auto perfil = [](const cConexion& c) {
        return std::tuple(c.Conexion(), c.Tarifa(), c.Descuento());
    };
    EXPECT_EQ(perfil(pendientes.Item(1)), std::tuple("Casa", "Cara", "BonoNet"));
    EXPECT_EQ(Monitor().Pantalla().Tarifa2, "Cara");
    registro.LogCompleto();
    Ticks(1, kDesconectado, "Casa");
    EXPECT_EQ(registro.festivosVistos, ajustes.Festivos);

    // Una entrada que el usuario no configuro: los valores de una nueva.
    // La comparacion de nombres es exacta.
    Ticks(1, kConectado, "casa");
    EXPECT_EQ(perfil(pendientes.Item(pendientes.Count())),
              std::tuple("casa", "Metropolitana", "Ninguno"));
}

TEST_F(Estados, ElFinalCuelgaLeeElLogYVuelveAlReposo) {
    ajustes.AvisoDesconectar = true;
    Ticks(30, kConectado, "Casa");
    registro.LogCompleto();
    const auto s = Ticks(1, kDesconectado, "Casa");
    EXPECT_EQ(Resumen(s), "terminada sonar anotadas rellenar");
    EXPECT_EQ(Sonidos(s), std::vector<MotivoAviso>{MotivoAviso::Desconectar});
    // El enlace cayo solo: no se le manda colgar (su pppd puede estar
    // volviendo a marcar).
    EXPECT_TRUE(marcador.colgadas.empty());
    EXPECT_EQ(Monitor().Enganche(), 0);
    EXPECT_FALSE(Monitor().MedidorActivo());
    // Guardado en el acto, con la conexion pendiente vista por el lector.
    EXPECT_EQ(std::tuple(registro.llamadas, registro.guardados, registro.pendientesVistos),
              std::tuple(1, 1, 1));
    EXPECT_EQ(pendientes.Count(), 0);
    EXPECT_FALSE(Monitor().EsperandoLog());
    EXPECT_EQ(Monitor().Pantalla().PuntaBandeja, "  Desconectado.");
    EXPECT_TRUE(Monitor().Pantalla().MenuConectar);
    // El 0 se repite hasta la siguiente marcacion: la llamada no se cierra
    // dos veces.
    EXPECT_EQ(Resumen(Ticks(5, kDesconectado, "Casa")), "");
    EXPECT_TRUE(marcador.colgadas.empty());
}

// Cada sesion del enlace es su llamada: si entre dos miradas el enlace cayo
// y volvio (otra interfaz u otro pppd), la abierta termina y empieza otra en
// el mismo tick, con su propia conexion pendiente; nada se cuelga.
TEST_F(Estados, OtraSesionEnElMismoTickEsOtraLlamada) {
    ajustes.EntradasConexion = {{"Casa", "Provincial", "Ninguno"}};
    sesion = "ppp0#5#300";
    Ticks(10, kConectado);
    sesion = "ppp0#6#300";
    const auto s = Ticks(1, kConectado);
    EXPECT_EQ(Resumen(s), "iniciada terminada rellenar");
    EXPECT_TRUE(Monitor().LlamadaAbierta());
    EXPECT_EQ(Codigo(Monitor().Pantalla().EstadoPantalla), 2);
    EXPECT_TRUE(marcador.colgadas.empty());
    ASSERT_EQ(pendientes.Count(), 2);
    EXPECT_EQ(pendientes.Item(2).Tarifa(), "Provincial");
    EXPECT_EQ(Monitor().InicioLlamada(), reloj.Ahora());
    // La misma sesion en los ticks siguientes no abre nada mas.
    EXPECT_EQ(Resumen(Ticks(5, kConectado)), "");
    // Una fuente que no distingue sesiones (sin identidad) no corta nada.
    sesion.clear();
    EXPECT_EQ(Resumen(Ticks(5, kConectado)), "");
}

// La espera del log de una llamada no la cancela la siguiente: el log que no
// se cierra se avisa a su tiempo aunque otra llamada este en curso.
TEST_F(Estados, LaSiguienteLlamadaNoCancelaLaEsperaDelLog) {
    Ticks(10, kConectado);
    registro.LogAbierto();
    Ticks(1, kDesconectado);
    EXPECT_TRUE(Monitor().EsperandoLog());
    Ticks(1, kConectado);
    EXPECT_TRUE(Monitor().EsperandoLog());
    EXPECT_EQ(Resumen(Ticks(EsperaLogModem::kSegundosPorDefecto, kConectado)),
              "anotadas rellenar sinCerrar sinLog");
}

// El lector vacia la lista de pendientes al leer un log; la llamada que sigue
// en curso conserva la suya para cuando se lea su sesion.
TEST_F(Estados, LaLlamadaEnCursoConservaSuPendienteTrasUnaLectura) {
    ajustes.EntradasConexion = {{"Casa", "Provincial", "Ninguno"}};
    Ticks(10, kConectado);
    registro.LogAbierto();
    Ticks(1, kDesconectado);
    Ticks(2, kConectado);
    registro.LogCompleto();
    EXPECT_EQ(Resumen(Ticks(1, kConectado)), "anotadas rellenar");
    ASSERT_EQ(pendientes.Count(), 1);
    EXPECT_EQ(pendientes.Item(1).Tarifa(), "Provincial");
}

TEST_F(Estados, CaerDe2AMenos1Oa3TambienTerminaLaLlamada) {
    Ticks(10, kConectado, "Casa");
    registro.LogCompleto();
    EXPECT_EQ(Resumen(Ticks(1, kNada)), "terminada anotadas rellenar");
    EXPECT_EQ(Codigo(Monitor().Pantalla().EstadoPantalla), 4);

    // El origen paso directamente a marcar otra vez.
    Ticks(10, kConectado, "Casa");
    registro.LogCompleto();
    EXPECT_EQ(Resumen(Ticks(1, kConectando, "Casa")), "terminada anotadas rellenar");
    EXPECT_EQ(registro.llamadas, 2);
    // Y la siguiente subida es otra llamada.
    EXPECT_EQ(Resumen(Ticks(1, kConectado, "Casa")), "iniciada");
}

TEST_F(Estados, LaHoraDeInicioEsperaAQueElGanchoEscribaLaSesion) {
    registro.fecha = kSinSesion; // el enlace subio antes que el "in use"
    Ticks(1, kConectado);
    EXPECT_EQ(pendientes.Item(1).fecha(), kSinSesion);
    registro.fecha = Miercoles(10, 0, 2);
    Ticks(3, kConectado);
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(10, 0, 2));
    // Una vez firme, no se vuelve a leer el log en cada tick.
    const int consultas = registro.consultasFecha;
    Ticks(20, kConectado);
    EXPECT_EQ(registro.consultasFecha, consultas);
    registro.LogCompleto();
    Ticks(1, kDesconectado);

    // La siguiente llamada no toma la sesion de la anterior: el log aun no
    // tiene la suya cuando sube el enlace.
    Ticks(1, kConectado);
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(10, 0, 2));
    registro.fecha = Miercoles(10, 0, 40);
    Ticks(1, kConectado);
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(10, 0, 40));
}

TEST_F(Estados, LaHoraDeInicioSeLeeUnaVezMasAlTerminar) {
    Ticks(1, kConectado);
    registro.fecha = Miercoles(10, 0, 1);
    registro.LogAbierto(); // que el perfil siga en la lista tras leer
    Monitor().TickEstado({0, kDesconectado, "Casa"});
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(10, 0, 1));
}

TEST_F(Estados, UnLogSinCierreNoBloqueaYSeAbandonaALosDosMinutos) {
    Ticks(10, kConectado);
    registro.LogAbierto();
    EXPECT_EQ(Resumen(Ticks(1, kDesconectado)), "terminada rellenar");
    EXPECT_LE(registro.lecturas, EsperaLogModem::kIntentosPorTick);

    // Sigue intentandolo en los ticks siguientes, pocas veces por tick.
    const int antes = registro.lecturas;
    EXPECT_EQ(Resumen(Ticks(119, kDesconectado)), "");
    EXPECT_GE(registro.lecturas - antes, 119);
    EXPECT_LE(registro.lecturas - antes, 119 * EsperaLogModem::kIntentosPorTick);
    EXPECT_TRUE(Monitor().EsperandoLog());

    // Se deja de esperar, y la llamada se anota con lo que vio el contador
    // (guardada en el acto), avisando de que falta el registro del sistema.
    EXPECT_EQ(Resumen(Ticks(1, kDesconectado)), "anotadas rellenar sinCerrar sinLog");
    EXPECT_FALSE(Monitor().EsperandoLog());
    const int alAbandonar = registro.lecturas;
    Ticks(30, kDesconectado);
    EXPECT_EQ(registro.lecturas, alAbandonar);
    EXPECT_TRUE(registro.existeLog); // se queda para la proxima llamada
    EXPECT_EQ(std::tuple(registro.llamadas, registro.guardados), std::tuple(1, 1));
    ASSERT_EQ(registro.vistasAnotadas.size(), 1u);
    EXPECT_EQ(registro.vistasAnotadas[0].Fin, Miercoles(10, 0, 11));
}

TEST_F(Estados, LasLineasDeCierreQueLleganTardeSeAnotanEnUnTickPosterior) {
    Ticks(10, kConectado);
    registro.LogAbierto();
    Ticks(5, kDesconectado);
    EXPECT_EQ(registro.llamadas, 0);
    registro.LogCompleto();
    EXPECT_EQ(Resumen(Ticks(1, kDesconectado)), "anotadas rellenar");
    EXPECT_EQ(std::tuple(registro.llamadas, registro.guardados), std::tuple(1, 1));
    EXPECT_FALSE(Monitor().EsperandoLog());
}

TEST_F(Estados, UnaLlamadaNuevaNoCortaLaEsperaDelLogDeLaAnterior) {
    Ticks(10, kConectado);
    registro.LogAbierto();
    Ticks(2, kDesconectado);
    Ticks(1, kConectado);
    EXPECT_TRUE(Monitor().EsperandoLog());
    const int lecturas = registro.lecturas;
    Ticks(5, kConectado);
    EXPECT_GT(registro.lecturas, lecturas);
    // Al acabar esta, se lee el log con las dos.
    registro.LogCompleto(2);
    Ticks(1, kDesconectado);
    EXPECT_EQ(registro.llamadas, 2);
}

TEST_F(Estados, UnFalloDelRegistroSeAvisaYNoSeRepite) {
    Ticks(3, kConectado);
    registro.LogAbierto();
    registro.fallaLectura = true;
    EXPECT_EQ(Resumen(Ticks(1, kDesconectado)), "terminada rellenar error");
    EXPECT_FALSE(Monitor().EsperandoLog());
    EXPECT_EQ(Resumen(Ticks(5, kDesconectado)), "");
    EXPECT_EQ(registro.lecturas, 1);

    // Sin ruta del log, DateConexion falla: se avisa una vez por llamada.
    registro.fallaLectura = false;
    registro.fallaFecha = true;
    EXPECT_EQ(Resumen(Ticks(10, kConectado)), "iniciada error");
    EXPECT_TRUE(Monitor().LlamadaAbierta());
}

TEST_F(Estados, ElUsuarioCuelgaYLosUltimosTicksDelEnlaceNoAbrenOtraLlamada) {
    Ticks(10, kConectado, "Casa");
    registro.LogAbierto();
    EXPECT_EQ(Resumen(Monitor().Soltar()), "terminada rellenar");
    EXPECT_EQ(marcador.colgadas, std::vector<std::string>{"Casa"});
    EXPECT_EQ(Resumen(Ticks(2, kConectado, "Casa")), ""); // pppd aun no ha bajado la interfaz
    registro.LogCompleto();
    Ticks(1, kDesconectado, "Casa");
    EXPECT_EQ(registro.llamadas, 1);
    EXPECT_EQ(Resumen(Ticks(1, kConectado, "Casa")), "iniciada");
}

TEST_F(Estados, PulsarSinConexionMarcaLaEntradaElegida) {
    Tick(kNada);
    Monitor().Pulsar("Trabajo");
    Monitor().Pulsar("Trabajo"); // ya pulsado: nada
    EXPECT_EQ(marcador.marcadas, std::vector<std::string>{"Trabajo"});
    EXPECT_TRUE(Monitor().Pantalla().BotonConexion);
    // Cuando sube, la llamada empieza igual que si la hubiera visto el monitor.
    ajustes.AvisoConectar = true;
    Ticks(1, kConectando, "Trabajo");
    EXPECT_EQ(Resumen(Ticks(1, kConectado, "Trabajo")), "iniciada sonar");
}

TEST(EntradasConexion, LasNuevasEntranConLosValoresPorDefecto) {
    Settings a;
    a.EntradasConexion = {{"Casa", "Cara", "BonoNet"}, {"Vieja", "BonoNet", "Ninguno"}};
    const auto nuevas = AñadirEntradasNuevas(a, {"Trabajo", "Casa", "casa", "Trabajo"});
    EXPECT_EQ(nuevas, (std::vector<std::string>{"Trabajo", "casa"}));
    // The entry no longer there stays.
    EXPECT_EQ(a.EntradasConexion,
              (std::vector<EntradaConexion>{{"Casa", "Cara", "BonoNet"},
                                            {"Vieja", "BonoNet", "Ninguno"},
                                            {"Trabajo", "Metropolitana", "Ninguno"},
                                            {"casa", "Metropolitana", "Ninguno"}}));
    EXPECT_TRUE(AñadirEntradasNuevas(a, {"Casa"}).empty());
}

} // namespace
