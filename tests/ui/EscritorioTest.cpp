// The main window on the desktop: "Siempre visible" kept in step between
// the toolbar and the tray menu, the mini window's round trip, the tray menu
// during a call, the start-up banner and the knock of a second start.

#include "CarpetaVentana.h"
#include "RespuestasDialogo.h"
#include "ui/Arranque.h"
#include "ui/PuertaInstancia.h"
#include "ui/fAbout.h"

#include <QGroupBox>
#include <QMouseEvent>
#include <QScreen>
#include <QStatusBar>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

QString LeyendaMini(const fMain& v) {
    return Control<QAction>(&v, "mnuMini")->text();
}

// The frame of the live meter's figures.
QGroupBox* MarcoMedidor(const fMain& v) {
    return qobject_cast<QGroupBox*>(
        Control<QLabel>(Control<PanelConexion>(&v, "panel"), "lTiempo")->parentWidget());
}

bool EncimaDeTodo(const QWidget& w) {
    return w.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

} // namespace

class Escritorio : public CarpetaVentana {
protected:
    std::unique_ptr<fMain> AbrirVisible() {
        auto v = Abrir();
        v->show();
        return v;
    }
    void Tick(fMain& v, int estado) {
        plataforma.sistema->estado = estado;
        plataforma.sistema->entrada = "Casa";
        reloj.Avanzar(1);
        v.TickEstado();
    }
};

TEST_F(Escritorio, SiempreVisibleVaALaParEnBarraYBandeja) {
    auto v = AbrirVisible();
    QAction* chincheta = Control<QAction>(v.get(), "accFijar");
    QAction* item = Control<QAction>(v.get(), "mnuSiempreVisible");
    ASSERT_FALSE(chincheta->isChecked());

    chincheta->trigger();
    EXPECT_TRUE(v->Datos().Ajustes.SiempreVisible);
    EXPECT_TRUE(item->isChecked());
    EXPECT_TRUE(EncimaDeTodo(*v));
    EXPECT_TRUE(v->isVisible()); // changing the flags must not leave it hidden

    item->trigger();
    EXPECT_FALSE(chincheta->isChecked());
    EXPECT_FALSE(EncimaDeTodo(*v));

    // Saved on, it comes back pressed in both places.
    Settings s = ValoresPorDefecto();
    s.SiempreVisible = true;
    EscribirAjustes(s);
    auto otra = Abrir();
    EXPECT_TRUE(Control<QAction>(otra.get(), "accFijar")->isChecked());
    EXPECT_TRUE(Control<QAction>(otra.get(), "mnuSiempreVisible")->isChecked());
}

TEST_F(Escritorio, IdaYVueltaDeLaMiniVentana) {
    auto v = AbrirVisible();
    Control<QAction>(v.get(), "mnuMini")->trigger();
    ASSERT_NE(v->Mini(), nullptr);
    EXPECT_TRUE(EncimaDeTodo(*v->Mini()));
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(LeyendaMini(*v), "&Ventana normal");

    Control<QAction>(v.get(), "mnuMini")->trigger();
    QApplication::processEvents(); // the mini window is deleted on close
    EXPECT_EQ(v->Mini(), nullptr);
    EXPECT_EQ(LeyendaMini(*v), "&MiniVentana");

    // From the toolbar, then closed with its own button: the tray item is
    // left as it was. Offscreen there is no tray to come back from, so the
    // normal window comes back at once.
    Control<QAction>(v.get(), "accMini")->trigger();
    ASSERT_NE(v->Mini(), nullptr);
    Control<QPushButton>(v->Mini(), "cmdCerrar")->click();
    QApplication::processEvents();
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(LeyendaMini(*v), "&Ventana normal");
    Control<QAction>(v.get(), "mnuMini")->trigger();
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(LeyendaMini(*v), "&MiniVentana");
}

TEST_F(Escritorio, LaMiniVentanaLlevaALaNormalConDobleClicYSuMenu) {
    auto v = AbrirVisible();
    Control<QAction>(v.get(), "accMini")->trigger();
    ASSERT_NE(v->Mini(), nullptr);
    ASSERT_FALSE(v->isVisible());
    QTest::mouseDClick(Control<QLabel>(v->Mini(), "lTiempo"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(v->Mini(), nullptr);
    EXPECT_EQ(LeyendaMini(*v), "&MiniVentana");

    Control<QAction>(v.get(), "accMini")->trigger();
    ASSERT_NE(v->Mini(), nullptr);
    EXPECT_EQ(v->Mini()->contextMenuPolicy(), Qt::ActionsContextMenu);
    QAction* normal = nullptr;
    for (QAction* a : v->Mini()->actions()) {
        if (a->text() == "&Ventana normal") {
            normal = a;
        }
    }
    ASSERT_NE(normal, nullptr);
    normal->trigger();
    QApplication::processEvents();
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(v->Mini(), nullptr);
}

TEST_F(Escritorio, SinLlamadaElPanelDiceSuEstadoYLaUltimaLlamadaSeNombra) {
    Settings s = ValoresPorDefecto();
    s.EntradasConexion = {{"Casa", "Metropolitana", "Ninguno"}};
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa"};
    auto v = AbrirVisible();
    Tick(*v, LecturaConexion::kNada);
    EXPECT_TRUE(Control<QLabel>(v.get(), "lMsgEstado")->isVisible());
    EXPECT_EQ(Control<QLabel>(v.get(), "lMsgEstado")->text(), "Sin conexion.");
    QApplication::processEvents();
    const QRect medidor = MarcoMedidor(*v)->geometry();
    const QRect boton = Control<QPushButton>(v.get(), "cmdConexion")->geometry();
    for (int i = 0; i < 10; ++i) {
        Tick(*v, LecturaConexion::kConectado);
    }
    EXPECT_EQ(Control<QLabel>(v.get(), "lMsgEstado")->text(), "Conectado.");
    EXPECT_EQ(MarcoMedidor(*v)->title(), "Llamada en curso");
    // During the call the panel keeps its layout: the entries stay, greyed
    // out, and nothing moves.
    QApplication::processEvents();
    EXPECT_TRUE(Control<QListWidget>(v.get(), "listaConexiones")->isVisible());
    EXPECT_FALSE(Control<QListWidget>(v.get(), "listaConexiones")->isEnabled());
    EXPECT_EQ(MarcoMedidor(*v)->geometry(), medidor);
    EXPECT_EQ(Control<QPushButton>(v.get(), "cmdConexion")->geometry(), boton);
    Tick(*v, LecturaConexion::kDesconectado);
    Tick(*v, LecturaConexion::kNada);
    // The figures left are the last call's, and the panel says so.
    EXPECT_TRUE(Control<QLabel>(v.get(), "lMsgEstado")->isVisible());
    EXPECT_FALSE(Control<QLabel>(v.get(), "lMsgEstado")->text().isEmpty());
    EXPECT_NE(Control<QLabel>(Control<PanelConexion>(v.get(), "panel"), "lTiempo")->text(),
              "00:00:00");
    EXPECT_EQ(MarcoMedidor(*v)->title(), "Ultima llamada");

    // Dialling again clears them: the meter starts from nothing.
    Control<QPushButton>(v.get(), "cmdConexion")->click();
    Tick(*v, LecturaConexion::kConectando);
    EXPECT_EQ(Control<QLabel>(v.get(), "lTiempo")->text(), "00:00:00");
    EXPECT_EQ(Control<QLabel>(v.get(), "lGasto")->text(), "0,00");
    EXPECT_EQ(MarcoMedidor(*v)->title(), "Llamada en curso");
}

// With nothing to dial "Conectar" is off and says how to add a connection;
// a dial that comes to nothing gives the button back with the reason.
TEST_F(Escritorio, ConectarSinConexionesYMarcadoQueNoLlega) {
    auto v = AbrirVisible();
    auto* conectar = Control<QPushButton>(v.get(), "cmdConexion");
    EXPECT_FALSE(conectar->isEnabled());
    EXPECT_TRUE(conectar->toolTip().contains("/etc/ppp/peers"));
    EXPECT_TRUE(conectar->toolTip().contains("NetworkManager"));
    auto* estado = Control<QLabel>(v.get(), "lSinConexiones");
    EXPECT_TRUE(estado->isVisible());
    EXPECT_TRUE(estado->text().contains("/etc/ppp/peers"));
    EXPECT_TRUE(estado->text().contains("NetworkManager"));

    plataforma.sistema->entradas = {"Casa"};
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok); // "Hay conexiones nuevas en el sistema."
    v->AlActivar();
    EXPECT_TRUE(conectar->isEnabled());
    EXPECT_FALSE(estado->isVisible());
    Tick(*v, LecturaConexion::kNada);
    conectar->click();
    for (int i = 0; i < 29; ++i) {
        Tick(*v, LecturaConexion::kNada);
    }
    EXPECT_TRUE(conectar->isChecked()); // 29 s: still waiting
    Tick(*v, LecturaConexion::kNada);
    EXPECT_FALSE(conectar->isChecked());
    EXPECT_EQ(conectar->text(), "Co&nectar");
    EXPECT_EQ(v->statusBar()->currentMessage(),
              "No se ha podido conectar con \"Casa\": no ha respondido en 30 segundos.");

    // A refusal is told at once.
    conectar->click();
    plataforma.sistema->aviso = "pon: no existe el par \"Casa\".";
    Tick(*v, LecturaConexion::kNada);
    EXPECT_FALSE(conectar->isChecked());
    EXPECT_EQ(v->statusBar()->currentMessage(),
              "No se ha podido conectar con \"Casa\": pon: no existe el par \"Casa\".");
}

// A tray that appears after the program (as at login) gets its icon; the
// first close to it says where the program went, once.
TEST_F(Escritorio, LaBandejaQueLlegaDespuesYElPrimerCierre) {
    auto v = AbrirVisible();
    ASSERT_EQ(v->Bandeja(), nullptr); // offscreen there is no tray
    v->HayBandeja = [] { return true; };
    v->BuscarBandeja();
    ASSERT_NE(v->Bandeja(), nullptr);
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    v->close();
    EXPECT_FALSE(v->isVisible());
    ASSERT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_TRUE(respuestas.Vistas()[0].texto.startsWith(
        "Vorimesk sigue en marcha en la bandeja del sistema"));
    v->RestaurarVentanas();
    v->close();
    EXPECT_FALSE(v->isVisible());
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
}

TEST_F(Escritorio, UnaLlamadaConTarifaDesconocidaLoDice) {
    Settings s = ValoresPorDefecto();
    s.EntradasConexion = {{"Casa", "Borrada", "Ninguno"}};
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa"};
    auto v = AbrirVisible();
    for (int i = 0; i < 6; ++i) {
        Tick(*v, LecturaConexion::kConectado);
    }
    EXPECT_EQ(Control<QLabel>(Control<PanelConexion>(v.get(), "panel"), "lTiempo")->text(),
              "00:00:05");
    EXPECT_EQ(Control<QLabel>(Control<PanelConexion>(v.get(), "panel"), "lGasto")->text(),
              "tarifa desconocida");
}

TEST_F(Escritorio, LaLlamadaSeVeEnLaMiniVentanaYElMenuDeLaBandeja) {
    Settings s = ValoresPorDefecto();
    s.MiniAlConectar = true;
    s.EntradasConexion = {{"Casa", "Metropolitana", "Ninguno"}};
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa", "Trabajo"};
    auto v = AbrirVisible();
    QAction* conectar = Control<QAction>(v.get(), "mnuConectar");
    QAction* desconectar = Control<QAction>(v.get(), "mnuDesconectar");

    // "&Conectar con" picks the entry in the list and dials it.
    Tick(*v, LecturaConexion::kNada);
    Control<QMenu>(v.get(), "mnuCon")->actions()[1]->trigger();
    EXPECT_EQ(plataforma.sistema->marcadas, std::vector<std::string>{"Trabajo"});
    EXPECT_EQ(Control<PanelConexion>(v.get(), "panel")->EntradaElegida(), "Trabajo");

    for (int i = 0; i < 75; ++i) {
        Tick(*v, LecturaConexion::kConectado);
    }
    // Shown on connecting, beside the normal window, with the meter's figures.
    ASSERT_NE(v->Mini(), nullptr);
    EXPECT_TRUE(v->isVisible());
    EXPECT_EQ(Control<QLabel>(v->Mini(), "lTiempo")->text(), "00:01:14");
    EXPECT_EQ(Control<QLabel>(v->Mini(), "lGasto")->text(),
              Control<QLabel>(v.get(), "lGasto")->text());
    EXPECT_NE(Control<QLabel>(v.get(), "lGasto")->text(), "0,00");
    EXPECT_FALSE(conectar->isEnabled());
    EXPECT_TRUE(Control<QPushButton>(v.get(), "cmdConexion")->isChecked());

    desconectar->trigger();
    EXPECT_EQ(plataforma.sistema->colgadas, std::vector<std::string>{"Casa"});
    EXPECT_FALSE(Control<QPushButton>(v.get(), "cmdConexion")->isChecked());
    EXPECT_FALSE(desconectar->isEnabled());
}

TEST_F(Escritorio, ElBotonDeConexionMarcaYCuelga) {
    plataforma.sistema->entradas = {"Casa"};
    auto v = AbrirVisible();
    Tick(*v, LecturaConexion::kNada);
    Control<QPushButton>(v.get(), "cmdConexion")->click();
    EXPECT_EQ(plataforma.sistema->marcadas, std::vector<std::string>{"Casa"});
    Tick(*v, LecturaConexion::kConectado);
    EXPECT_TRUE(v->Monitor().LlamadaAbierta());
    Control<QPushButton>(v.get(), "cmdConexion")->click();
    EXPECT_EQ(plataforma.sistema->colgadas, std::vector<std::string>{"Casa"});
    EXPECT_FALSE(v->Monitor().LlamadaAbierta());
}

TEST_F(Escritorio, LaCruzOcultaLasVentanasYLaBandejaLasDevuelve) {
    auto v = AbrirVisible();
    v->MostrarMini();
    v->close();
    // Offscreen there is no tray: the windows are minimised instead.
    EXPECT_TRUE(v->isMinimized() || !v->isVisible());
    v->RestaurarVentanas();
    EXPECT_TRUE(v->isVisible() && !v->isMinimized());
    ASSERT_NE(v->Mini(), nullptr);
    EXPECT_TRUE(v->Mini()->isVisible() && !v->Mini()->isMinimized());
    EXPECT_FALSE(Existe(dir / "Varibles.Dat")); // closing writes nothing
}

TEST_F(Escritorio, ElCartelDeInicioSeVaTrasLaCarga) {
    EntornoVentana e;
    e.carpetaDatos = dir;
    e.plataforma = plataforma.Crear();
    e.reloj = &reloj;
    bool visto = false;
    auto v = Arrancar(e, [&](fAbout& cartel) {
        visto = cartel.isVisible() && Control<QLabel>(&cartel, "lMsg")->isVisibleTo(&cartel) &&
                Control<QLabel>(&cartel, "lMsg")->text() == "Cargando el programa..." &&
                !Control<QPushButton>(&cartel, "cmdCerrar")->isVisibleTo(&cartel) &&
                EncimaDeTodo(cartel);
    });
    EXPECT_TRUE(visto);
    EXPECT_TRUE(v->isVisible());
    for (QWidget* w : QApplication::topLevelWidgets()) {
        EXPECT_FALSE(qobject_cast<fAbout*>(w) != nullptr && w->isVisible());
    }
}

TEST(MiniVentana, SeArrastraPorSuCuerpoYSeColocaArriba) {
    fMini mini;
    mini.Colocar();
    mini.show();
    const QRect pantalla = mini.screen()->availableGeometry();
    EXPECT_LT(pantalla.right() - mini.geometry().right(), pantalla.width() / 4);
    EXPECT_LT(mini.y() - pantalla.top(), pantalla.height() / 4);

    // Without a window manager to move it, the window follows the mouse.
    const QPoint antes = mini.pos();
    const QPointF dentro(5, 5);
    const QPointF global = Control<QLabel>(&mini, "lTiempo")->mapToGlobal(dentro);
    auto enviar = [&](QEvent::Type tipo, QPointF donde, Qt::MouseButtons botones) {
        QMouseEvent e(tipo, dentro, donde, Qt::LeftButton, botones, Qt::NoModifier);
        QApplication::sendEvent(Control<QLabel>(&mini, "lTiempo"), &e);
    };
    enviar(QEvent::MouseButtonPress, global, Qt::LeftButton);
    enviar(QEvent::MouseMove, global + QPointF(-30, 20), Qt::LeftButton);
    enviar(QEvent::MouseButtonRelease, global + QPointF(-30, 20), Qt::NoButton);
    EXPECT_EQ(mini.pos(), antes + QPoint(-30, 20));
}

TEST(PuertaInstancia, LaSegundaCopiaLlamaALaPrimera) {
    const QString nombre = "vorimesk-prueba-" + QString::number(QCoreApplication::applicationPid());
    EXPECT_FALSE(PuertaInstancia::Llamar(nombre)); // nobody listening yet
    PuertaInstancia puerta(nombre);
    ASSERT_TRUE(puerta.Abrir());
    QSignalSpy llamadas(&puerta, &PuertaInstancia::Llamada);
    EXPECT_TRUE(PuertaInstancia::Llamar(nombre));
    EXPECT_TRUE(llamadas.wait(2000));
}

TEST_F(Escritorio, LaAyudaEInternetDicenQueFaltaParaAbrirse) {
    // No browser opens anything offscreen: each says what it could not
    // open, and where the help is.
    auto v = AbrirVisible();
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    Control<QAction>(v.get(), "accAyuda")->trigger();
    respuestas.Responder(QMessageBox::Ok);
    Control<QPushButton>(v.get(), "cmdInternet")->click();
    ASSERT_EQ(respuestas.Vistas().size(), 2u);
    EXPECT_TRUE(respuestas.Vistas()[0].texto.contains("ayuda/index.html"))
        << respuestas.Vistas()[0].texto.toStdString();
    EXPECT_TRUE(respuestas.Vistas()[1].texto.contains("https://es.wikipedia.org/"))
        << respuestas.Vistas()[1].texto.toStdString();
    for (const CajaVista& c : respuestas.Vistas()) {
        EXPECT_TRUE(c.texto.contains("navegador")) << c.texto.toStdString();
    }
}
