// The window beside the meter as a service: another meter already on the
// data folder, the alerts as desktop notifications, the place of the window
// kept across starts, and Qt's own dialogs in Spanish.

#include "BusPrivado.h"
#include "CarpetaVentana.h"
#include "monitor/EstadoContador.h"
#include "platform/Plataforma.h"
#include "ui/Arranque.h"
#include "ui/NotificacionAviso.h"
#include "ui/TraduccionQt.h"
#include "ui/fOtroContador.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTranslator>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

// Every text a dialog shows on its buttons and labels.
QStringList Textos(const QWidget& w) {
    QStringList t{w.windowTitle()};
    for (const QAbstractButton* b : w.findChildren<QAbstractButton*>()) {
        t << b->text();
    }
    for (const QLabel* l : w.findChildren<QLabel*>()) {
        t << l->text();
    }
    return t;
}

void Captura(QWidget& w, const QString& nombre) {
    const QString carpeta = QString(VORIMESK_CAPTURAS);
    QDir().mkpath(carpeta);
    w.grab().save(carpeta + "/" + nombre + ".png");
}

} // namespace

class Servicio : public CarpetaVentana {
protected:
    // vorimesk-cli vigilar on the scripted modem over the test's data folder,
    // as the user service would run it.
    pid_t LanzarVigilar() {
        const std::string datos = dir.string();
        const std::string guion =
            std::string(VORIMESK_FUENTES_PRUEBA) + "/data/guiones/dos-llamadas.guion";
        const std::string salida = (dir / "salida.txt").string();
        std::vector<const char*> argv = {VORIMESK_CLI, "--datos",     datos.c_str(), "vigilar",
                                         "--simular",  guion.c_str(), nullptr};
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(), O_WRONLY | O_CREAT, 0600);
        pid_t pid = -1;
        posix_spawn(&pid, VORIMESK_CLI, &acciones, nullptr, const_cast<char* const*>(argv.data()),
                    environ);
        posix_spawn_file_actions_destroy(&acciones);
        for (int i = 0; i < 200 && !CargarEstadoContador(dir); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return pid;
    }
    EntornoVentana Entorno() {
        EntornoVentana e;
        e.carpetaDatos = dir;
        e.carpetaPrograma = dir / "programa";
        e.ejecutable = dir / "programa" / "vorimesk";
        e.plataforma = plataforma.Crear();
        e.sistema.modemLog = (dir / "sinmodem.txt").string();
        e.reloj = &reloj;
        return e;
    }
};

TEST_F(Servicio, LaVentanaDiceQueOtroContadorVigilaYPuedeRelevarlo) {
    if (!fs::exists("/proc/self/exe")) {
        GTEST_SKIP()
            << "sin /proc (un chroot sin montarlo) no se sabe que programa tiene el cerrojo";
    }
    ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (dir / "nadie").string()).c_str(), 1);
    const pid_t pid = LanzarVigilar();
    ASSERT_GT(pid, 0);
    ASSERT_TRUE(CargarEstadoContador(dir).has_value()) << Leer(dir / "salida.txt");

    const auto instancia = CrearInstanciaUnica(dir);
    ASSERT_FALSE(instancia->Adquirir());
    RelojSistema relojSistema;
    fOtroContador dialogo(dir, *instancia, relojSistema);
    dialogo.Refrescar();
    const QString todo = Textos(dialogo).join("\n");
    EXPECT_TRUE(todo.contains(QString("(proceso %1) ya vigila").arg(pid))) << todo.toStdString();
    EXPECT_TRUE(dialogo.lEstado->text().startsWith("Estado: ")) << todo.toStdString();
    EXPECT_TRUE(dialogo.lEstado->text().contains("Ultimo suceso")) << todo.toStdString();
    EXPECT_TRUE(dialogo.cmdRelevar->isEnabled());
    dialogo.show();
    Captura(dialogo, "otro-contador");

    dialogo.cmdRelevar->click();
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
    int estado = -1;
    ASSERT_EQ(::waitpid(pid, &estado, 0), pid);
    EXPECT_TRUE(WIFEXITED(estado) && WEXITSTATUS(estado) == 0) << Leer(dir / "salida.txt");
    EXPECT_TRUE(instancia->Adquirir());
    EXPECT_NE(Leer(dir / "salida.txt").find("Registro y ajustes guardados."), std::string::npos);
}

TEST_F(Servicio, LosAvisosDeLaVentanaLleganComoNotificaciones) {
    BusPrivado bus(dir);
    if (!bus.Razon().empty()) {
        GTEST_SKIP() << bus.Razon();
    }
    auto v = Abrir();
    ASSERT_EQ(v->Bandeja(), nullptr) << "sin bandeja, por D-Bus";
    NotificarAvisos(*v);
    emit v->AvisoSonoro(static_cast<int>(MotivoAviso::Hora));
    ASSERT_TRUE(bus.Esperar("Notify")) << bus.Llamadas();
    EXPECT_NE(bus.Llamadas().find("\"Vorimesk\" \"Es la hora: son las "), std::string::npos)
        << bus.Llamadas();
}

TEST_F(Servicio, LaVentanaVuelveDondeEstabaSinTocarLosAjustes) {
    QRect donde;
    {
        auto v = Arrancar(Entorno());
        donde = QRect(QPoint(140, 90), v->size() + QSize(30, 20));
        v->setGeometry(donde);
        QApplication::processEvents();
        v->TerminarSesion();
    }
    const std::string ajustes = Leer(dir / "Varibles.Dat");
    auto v = Arrancar(Entorno());
    EXPECT_EQ(v->geometry(), donde);
    EXPECT_EQ(Leer(dir / "Varibles.Dat"), ajustes);
    EXPECT_NE(Leer(dir / fMain::kArchivoPreferencias).find("Geometria"), std::string::npos);
}

// The print and file dialogs that Qt draws itself, in Spanish once its
// catalogue is loaded as the programs load it.
TEST(TraduccionQt, DialogosDeQtEnCastellano) {
    const QLocale antes;
    QTranslator* traduccion = CargarTraduccionQt(*qApp);
    if (traduccion == nullptr) {
        QLocale::setDefault(antes);
        GTEST_SKIP() << "no esta qtbase_es.qm (paquete qt6-translations-l10n)";
    }
    {
        QFileDialog archivo(nullptr, "Abrir registro", QDir::tempPath());
        archivo.setOption(QFileDialog::DontUseNativeDialog);
        archivo.resize(640, 420);
        archivo.show();
        Captura(archivo, "dialogo-archivo");
        const QStringList t = Textos(archivo);
        EXPECT_TRUE(t.contains("Cancelar")) << t.join(" | ").toStdString();
        EXPECT_FALSE(t.contains("Cancel")) << t.join(" | ").toStdString();
        EXPECT_TRUE(t.contains("Ver en:")) << t.join(" | ").toStdString();

        QPrinter impresora;
        impresora.setOutputFormat(QPrinter::PdfFormat);
        QPrintDialog imprimir(&impresora);
        imprimir.show();
        Captura(imprimir, "dialogo-imprimir");
        const QStringList p = Textos(imprimir);
        EXPECT_TRUE(p.contains("Cancelar")) << p.join(" | ").toStdString();
        EXPECT_FALSE(p.contains("Cancel") || p.contains("&Options >>") || p.contains("Print"))
            << p.join(" | ").toStdString();
    }
    QCoreApplication::removeTranslator(traduccion);
    delete traduccion;
    QLocale::setDefault(antes);
}
