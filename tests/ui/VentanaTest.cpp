// The main window's load sequence on a prepared data folder, what closing
// and ending do to the user's files, dial-up entries and modems.

#include "CarpetaVentana.h"
#include "platform/LineasModemLog.h"
#include "register/ExportarLlamadas.h"
#include "ui/Mensajes.h"
#include "ui/SenalesTerminar.h"

#include <QStatusBar>
#include <QTableView>
#include <csignal>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

Fecha F(int a, int m, int d) {
    return Fecha::Crear(a, m, d);
}

} // namespace

class Ventana : public CarpetaVentana {
protected:
    // Billing monthly from day 15, taxes of 16 % added; the period the
    // window shows on 20/03/2026 runs from 06/03 (see the billing walk).
    Settings AjustesCon() {
        Settings s = ValoresPorDefecto();
        s.DiaFactura = 15;
        s.perFactura = 0;
        s.AnadirImpuestos = true;
        s.Impuestos = 16.0F;
        s.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"}};
        s.Festivos = {F(2026, 3, 19)};
        return s;
    }
};

TEST_F(Ventana, LaCargaMuestraElPeriodoActualConSusTotales) {
    EscribirRegistro(Llamada(F(2026, 1, 5), 10, "00:10:00", "40") +
                     Llamada(F(2026, 3, 1), 10, "00:20:00", "55") +
                     Llamada(F(2026, 3, 10), 18, "01:00:00", "100") +
                     Llamada(F(2026, 3, 12), 9, "00:05:30", "7.5") +
                     Llamada(F(2026, 3, 20), 11, "00:00:40", "0,5"));
    EscribirAjustes(AjustesCon());
    plataforma.sistema->entradas = {"Casa"};
    auto v = Abrir();

    // Only the calls of the period, each cost with the 16 % added.
    const ModeloRegistro& modelo = Control<TabRegistro>(v.get(), "TabRegistro")->Modelo();
    ASSERT_EQ(modelo.rowCount(), 3);
    EXPECT_EQ(modelo.index(0, 0).data().toString(), "10/03/2026");
    EXPECT_EQ(modelo.index(0, 3).data().toString(), "116,00");
    EXPECT_EQ(Control<QLabel>(v.get(), "lDuracionReg")->text(), "01:06:10");
    EXPECT_EQ(Control<QLabel>(v.get(), "lGastoReg")->text(), "125,28"); // 116 + 8,70 + 0,58
    // The summary is tab 0, shown at load.
    EXPECT_EQ(Control<QTabWidget>(v.get(), "SSTab1")->currentIndex(), fMain::kResumen);
    // The whole billing period (the walk from the first call, 05/01, cuts
    // monthly on the 5th), the days left to its end, and the range the
    // totals sum.
    EXPECT_EQ(Control<QLabel>(v.get(), "lPeriodo")->text(), "06/03/2026 - 05/04/2026");
    EXPECT_EQ(Control<QLabel>(v.get(), "lDiasQuedanBono")->text(), "16");
    EXPECT_EQ(Control<QLabel>(v.get(), "lRangoTotales")->text(),
              "Periodo de facturacion (06/03/2026 - 20/03/2026)");
    EXPECT_EQ(Control<QLabel>(v.get(), "lGastoPer")->text(), "125,28");
    EXPECT_TRUE(Control<QLabel>(v.get(), "lGastadoPrev")->text().endsWith("(dia 15 de 31)"));
    // "Ver todos": the totals say they are the whole register's.
    v->RellenaGrid({});
    EXPECT_EQ(Control<QLabel>(v.get(), "lRangoTotales")->text(),
              "Todo el registro (05/01/2026 - 20/03/2026)");
    EXPECT_EQ(Control<QLabel>(v.get(), "lLlamadas")->text(), "5");
    EXPECT_EQ(Control<QLabel>(v.get(), "lPeriodo")->text(), "06/03/2026 - 05/04/2026");

    // Modem; nothing is written at load, the login entry of a build
    // folder's program neither.
    EXPECT_EQ(v->Datos().Registro.NombreLog(), (dir / "modemlog.txt").string());
    EXPECT_FALSE(plataforma.sistema->cargaAlIniciar);
    EXPECT_EQ(Leer(dir / "Varibles.Dat"), EscribirTextoVariables(AjustesCon()));
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
}

// Only the installed program starts at login, and only once the user said
// so: the first time it would, it asks.
TEST_F(Ventana, LaCargaAlIniciarEsDelProgramaInstaladoYSePreguntaUnaVez) {
    EXPECT_EQ(Control<QCheckBox>(Abrir().get(), "Check7")->text(), "Cargar al iniciar la sesion.");
    ejecutable = "/usr/bin/vorimesk";
    demostracion = true;
    Abrir();
    // ni la demostracion ni la carpeta de compilacion
    EXPECT_FALSE(plataforma.sistema->cargaAlIniciar);

    demostracion = false;
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::No);
    auto v = Abrir();
    ASSERT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_EQ(respuestas.Vistas()[0].texto.toStdString(),
              "¿Desea que Vorimesk se cargue cada vez que inicie la sesion?\nSe puede cambiar "
              "cuando quiera en Opciones, \"Cargar al iniciar la sesion.\"");
    EXPECT_FALSE(plataforma.sistema->cargaAlIniciar);
    EXPECT_FALSE(Control<QCheckBox>(v.get(), "Check7")->isChecked());
    EXPECT_FALSE(Existe(dir / "Varibles.Dat")); // the answer is saved at exit, as the option
    v.reset();

    // Asked once: with the option ticked again, the entry is written silently,
    // with the options this start had.
    EscribirAjustes(ValoresPorDefecto());
    Abrir();
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_EQ(plataforma.sistema->cargaAlIniciar,
              (std::vector<std::string>{"--datos", dir.string()}));
}

TEST_F(Ventana, UnaCarpetaSinRegistroNiAjustes) {
    plataforma.sistema->cargaAlIniciar.reset();
    auto v = Abrir();
    // The register file is created empty; the settings are the defaults.
    EXPECT_TRUE(Existe(dir / "RegDat.log"));
    EXPECT_FALSE(Existe(dir / "Varibles.Dat"));
    EXPECT_TRUE(Control<QCheckBox>(v.get(), "Check7")->isChecked()); // viene marcado
    EXPECT_EQ(Control<QLabel>(v.get(), "lDuracionReg")->text(), "");
    // A first run: period, days left and forecast tell the same period.
    EXPECT_EQ(Control<QLabel>(v.get(), "lPeriodo")->text(), "20/03/2026 - 01/04/2026");
    EXPECT_EQ(Control<QLabel>(v.get(), "lDiasQuedanBono")->text(), "12");
    EXPECT_TRUE(Control<QLabel>(v.get(), "lGastadoPrev")->text().endsWith("(dia 1 de 13)"));
    EXPECT_EQ(Control<QListWidget>(v.get(), "listaConexiones2")->item(0)->text(),
              "No hay conexiones disponibles.");
    EXPECT_FALSE(Control<QComboBox>(v.get(), "cmbTarifa")->isEnabled());
}

// Closing only hides the windows (the desktop tests); ending saves.
TEST_F(Ventana, TerminarGuardaLosAjustesYNoTocaUnRegistroSinCambios) {
    EscribirRegistro(Llamada(F(2026, 3, 10), 18, "01:00:00", "100"));
    auto v = Abrir();
    Control<QCheckBox>(v.get(), "Check8")->click();
    EXPECT_TRUE(v->Terminar());
    EXPECT_TRUE(LeerVariables(dir / "Varibles.Dat").valores.ColorSegunTarifa);
    EXPECT_EQ(Leer(dir / "RegDat.log"), Llamada(F(2026, 3, 10), 18, "01:00:00", "100"));
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
}

TEST_F(Ventana, UnRegistroIlegibleNoSeSobrescribe) {
    // 32,768 calls cannot be handled: the load is refused and the file kept.
    const std::string una = Llamada(F(2026, 3, 10), 18, "00:01:00", "1");
    std::string muchas;
    for (int i = 0; i < 32768; ++i) {
        muchas += una;
    }
    EscribirRegistro(muchas);
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    auto v = Abrir();
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
    v->RegistroCambiado();
    EXPECT_TRUE(v->Terminar());
    EXPECT_EQ(Leer(dir / "RegDat.log").size(), muchas.size());
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
}

TEST_F(Ventana, ConexionesNuevasDelSistema) {
    Settings s = AjustesCon();
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa", "Trabajo"};
    auto v = Abrir();
    // Appended with the default tariff and discount; tab 1 is shown.
    ASSERT_EQ(v->Datos().Ajustes.EntradasConexion.size(), 2u);
    EXPECT_EQ(v->Datos().Ajustes.EntradasConexion[1],
              (EntradaConexion{"Trabajo", "Metropolitana", "Ninguno"}));
    EXPECT_EQ(Control<QTabWidget>(v.get(), "SSTab1")->currentIndex(), fMain::kConexiones);

    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    v->AlActivar();
    ASSERT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_EQ(respuestas.Vistas()[0].texto,
              "Hay conexiones nuevas en el sistema.\nSe inicializaran con los valores por "
              "defecto.\nSe aconseja cambiarlos por los correctos.");
    EXPECT_TRUE(v->Datos().RecalculoPendiente);
    // A later activation with the same entries says nothing; a new entry does.
    v->AlActivar();
    plataforma.sistema->entradas.push_back("Movil");
    respuestas.Responder(QMessageBox::Ok);
    v->AlActivar();
    EXPECT_EQ(respuestas.Vistas().size(), 2u);
    EXPECT_FALSE(respuestas.Pendientes());

    // With no connection, a double click on an entry dials it.
    v->TickEstado();
    Control<QListWidget>(v.get(), "listaConexiones")->setCurrentRow(1);
    emit Control<QListWidget>(v.get(), "listaConexiones")
        ->itemDoubleClicked(Control<QListWidget>(v.get(), "listaConexiones")->item(1));
    EXPECT_EQ(plataforma.sistema->marcadas, std::vector<std::string>{"Trabajo"});
    // A refused dial is told on the status line, idle as the window is.
    plataforma.sistema->aviso = "NetworkManager no ha podido activar \"Trabajo\".";
    v->TickEstado();
    EXPECT_FALSE(Control<QLabel>(v.get(), "lMsgEstado")->isHidden());
    EXPECT_EQ(Control<QLabel>(v.get(), "lMsgEstado")->text(),
              "NetworkManager no ha podido activar \"Trabajo\".");
    plataforma.sistema->aviso.clear();
    v->TickEstado();
    // Then the status line says the idle state again.
    EXPECT_NE(Control<QLabel>(v.get(), "lMsgEstado")->text(),
              "NetworkManager no ha podido activar \"Trabajo\".");
}

TEST_F(Ventana, ElModemElegidoEntreVariosSeRecuerda) {
    plataforma.sistema->modems = {{"ttyS0", "Interno", dir / "a.txt"},
                                  {"ttyUSB0", "USB", dir / "b.txt"}};
    int preguntas = 0;
    auto abrir = [&] {
        EntornoVentana e;
        e.carpetaDatos = dir;
        e.plataforma = plataforma.Crear();
        e.reloj = &reloj;
        auto v = std::make_unique<fMain>(e);
        v->ElegirModem = [&](const QStringList& modelos) {
            ++preguntas;
            EXPECT_EQ(modelos, (QStringList{"Interno", "USB"}));
            return 1;
        };
        v->Cargar();
        return v;
    };
    EXPECT_EQ(abrir()->Datos().Registro.NombreLog(), (dir / "b.txt").string());
    EXPECT_EQ(abrir()->Datos().Registro.NombreLog(), (dir / "b.txt").string());
    EXPECT_EQ(preguntas, 1);

    // No modem: the user is told, and the system's log is read.
    plataforma.sistema->modems.clear();
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    auto v = Abrir();
    ASSERT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_EQ(respuestas.Vistas()[0].texto,
              "No tiene ningun modem instalado\nInstale uno y vuelva a ejecutar el programa");
    EXPECT_EQ(v->Datos().Registro.NombreLog(), (dir / "sinmodem.txt").string());
}

TEST_F(Ventana, AlAcabarLaSesionSeGuardanLosAjustes) {
    auto v = Abrir();
    Control<QCheckBox>(v.get(), "Check9")->click();
    SenalesTerminar senales;
    int recibida = 0;
    QObject::connect(&senales, &SenalesTerminar::Terminar, v.get(), [&](int senal) {
        recibida = senal;
        v->TerminarSesion();
    });
    std::raise(SIGTERM);
    for (int i = 0; i < 50 && recibida == 0; ++i) {
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    EXPECT_EQ(recibida, SIGTERM);
    EXPECT_TRUE(LeerVariables(dir / "Varibles.Dat").valores.MiniAlConectar);
}

TEST_F(Ventana, UnaLlamadaDelSistemaLlegaAlRegistroYALaRejilla) {
    Settings s = AjustesCon();
    s.AvisoConectar = true;
    s.AvisoTiempo = true;
    s.TiempoAviso.Valor("00:00:30");
    s.SonidoAviso = (dir / "aviso.wav").string();
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa"};
    auto v = Abrir();
    QSignalSpy sonidos(v.get(), &fMain::AvisoSonoro);
    const auto log = dir / "modemlog.txt";
    auto tick = [&](int estado) {
        plataforma.sistema->estado = estado;
        plataforma.sistema->entrada = "Casa";
        reloj.Avanzar(1);
        v->TickEstado();
    };

    AnexarModemLog(log, BloqueSubida(reloj.Ahora(), {"ppp0", "/dev/ttyS0", "Casa", ""}));
    tick(LecturaConexion::kConectado);
    EXPECT_FALSE(Control<QListWidget>(v.get(), "listaConexiones")->isEnabled());
    for (int i = 0; i < 40; ++i) {
        tick(LecturaConexion::kConectado);
    }
    // Connecting and passing 30 seconds sound once each; ticking the time
    // alert's box again lets it sound once more.
    ASSERT_EQ(sonidos.count(), 2);
    EXPECT_EQ(sonidos[0][0].toInt(), int(MotivoAviso::Conectar));
    EXPECT_EQ(sonidos[1][0].toInt(), int(MotivoAviso::Tiempo));
    Control<QCheckBox>(v.get(), "Check3")->click();
    Control<QCheckBox>(v.get(), "Check3")->click();
    tick(LecturaConexion::kConectado);
    EXPECT_EQ(sonidos.count(), 3);

    AnexarModemLog(log, BloqueBajada(reloj.Ahora(), {4096, 2048}));
    tick(LecturaConexion::kDesconectado);
    EXPECT_TRUE(Control<QListWidget>(v.get(), "listaConexiones")->isEnabled());
    // The call is in the file and in the grid of the period.
    Log guardado(dir);
    guardado.CargarLog();
    EXPECT_EQ(guardado.Tarifa(0), "Metropolitana");
    const ModeloRegistro& modelo = Control<TabRegistro>(v.get(), "TabRegistro")->Modelo();
    EXPECT_EQ(modelo.index(0, 7).data().toString(), "Casa");
    // The meter's last figure is the register's for the call.
    EXPECT_EQ(Control<QLabel>(Control<PanelConexion>(v.get(), "panel"), "lGasto")->text(),
              modelo.index(0, 3).data().toString());
    EXPECT_FALSE(Existe(log));
    // The summary, open all along, counts it at once.
    EXPECT_EQ(Control<QLabel>(v.get(), "lLlamadas")->text(), "1");
}

TEST_F(Ventana, ExportarGuardaLoQueListaLaRejilla) {
    EscribirRegistro(Llamada(F(2026, 3, 2), 10, "00:10:00", "36.72") +
                     Llamada(F(2026, 3, 5), 12, "00:01:00", "13.5") +
                     Llamada(F(2026, 3, 9), 18, "01:00:00", "100"));
    auto v = Abrir();
    // The filter's result: the calls of 3 to 9 March.
    v->RellenaGrid(CriteriosFiltro::Periodo(F(2026, 3, 3), F(2026, 3, 9)));
    const Log& r = v->Datos().Registro;
    for (const char* nombre : {"llamadas.csv", "llamadas.JSON"}) {
        const auto ruta = dir / nombre;
        Control<TabRegistro>(v.get(), "TabRegistro")->ElegirArchivoExportar = [&] {
            return QString::fromStdString(ruta.string());
        };
        ASSERT_TRUE(Control<TabRegistro>(v.get(), "TabRegistro")->Exportar()) << nombre;
        // The same writer as "vorimesk-cli exportar".
        EXPECT_EQ(Leer(ruta), TextoExportado(r, {1, 2}, FormatoDeArchivo(ruta))) << nombre;
        EXPECT_EQ(v->statusBar()->currentMessage().toStdString(),
                  "Se han exportado 2 llamadas a " + ruta.string() + ".");
    }
    EXPECT_NE(Leer(dir / "llamadas.csv").find("2026-03-05;12:00:00"), std::string::npos);
    EXPECT_EQ(nlohmann::json::parse(Leer(dir / "llamadas.JSON"))["llamadas"].size(), 2u);
    Control<TabRegistro>(v.get(), "TabRegistro")->ElegirArchivoExportar = [] { return QString(); };
    EXPECT_FALSE(Control<TabRegistro>(v.get(), "TabRegistro")->Exportar()); // cancelled
}
