#pragma once
// The main window over the user's session (Sesion: settings, BonoNet ledger,
// pending list, register, tariff book, and when they are written): it asks,
// shows and forwards. It holds the tray icon and hosts the toolbar, the
// connection panel with the live meter and the tabbed area SSTab1 (summary,
// dial-up entries, tariffs, register grid, holidays, BonoNet and options).
// Cargar runs the load sequence; the close box only hides the windows (to the
// tray, or minimised when there is no tray), and only Terminar ends the
// program, the session saving what it keeps until the exit. The toolbar, the tray menu, the mini
// window and always-on-top live in fMainEscritorio.cpp.

#include "AnfitrionRegistro.h"
#include "EntornoVentana.h"
#include "meter/Contador.h"

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <optional>

class QAction;
class QLabel;
class QSystemTrayIcon;
class QTabWidget;
class QTimer;

namespace vorimesk {

class AvisoCuentaAtras;
class BarraPrincipal;
class MenuBandeja;
class PanelConexion;
class fMini;
class SonidoAviso;
class TabBono;
class TabConexiones;
class TabFestivos;
class TabOpciones;
class TabRegistro;
class TabResumen;
class TabTarifas;
class VigiaPresupuesto;

class fMain : public QMainWindow, public AnfitrionRegistro {
    Q_OBJECT
public:
    // Tabs of SSTab1.
    static constexpr int kResumen = 0, kConexiones = 1, kTarifas = 2, kRegistro = 3, kFestivos = 4,
                         kBono = 5, kOpciones = 6;
    // Where the modem chosen among several is remembered, in the data folder.
    static constexpr const char* kArchivoPreferencias = "Vorimesk.ini";

    explicit fMain(EntornoVentana entorno, QWidget* padre = nullptr);
    ~fMain() override;

    // The load sequence. Failures are shown to the user; the window is then
    // left working with what could be read.
    void Cargar();

    // Register tools.
    void RellenaGrid(const CriteriosFiltro& criterios) override;
    Fecha InicioPeriodo() const override { return datos_.InicioPeriodo; }
    Fecha FinPeriodo() const override { return datos_.FinPeriodo; }
    std::vector<std::array<std::string, 10>> FilasVisibles() const override;
    const Listado& ListadoActual() const override { return listado_; }
    std::string RangoListado() const override;
    void RegistroCambiado() override;
    // On the status line.
    void Informar(const std::string& texto) override;

    // The normal exit: saves register and settings, closes every window and
    // ends the event loop. When saving fails the user is told and the
    // program goes on, so nothing is lost; false then.
    bool Terminar();
    // The session ends (logout, SIGTERM): saves what can be saved, tells
    // nobody, and ends the event loop.
    void TerminarSesion();
    // The session saves what it keeps until the exit.
    void GuardarTodo();

    // Window activation: looks for new dial-up entries and tells the user.
    void AlActivar();
    // Asks about re-pricing the register, as a tab change does.
    void CambioPestaña(int nueva);

    // One tick of the state timer (tmEstado): the connection source is read
    // and the monitor runs its state machine and, during a call, the live
    // meter; then what it asked for is done and its display shown.
    void TickEstado();
    // One tick of the clock timer (tmHora): the "A la hora" alert and the
    // monthly renewal of the bundles.
    void TickHora();

    // Tray item 1 and toolbar button 3: flips "Siempre visible" and keeps
    // both in step.
    void CambiarSiempreVisible(bool arriba);
    // Tray item 0: the mini window in place of the normal windows, or back.
    void AlternarMini();
    void IrAMini();
    void IrANormal();
    // Shows the mini window without hiding this one (on connecting).
    void MostrarMini();
    fMini* Mini() const;
    // The tray's double-click: every window the close box hid comes back.
    void RestaurarVentanas();
    void MostrarAcercaDe();
    void AbrirAyuda();
    void AbrirFiltro();

    // Chooses among several modems (fModem); tests put their own.
    std::function<int(const QStringList& modelos)> ElegirModem;
    // Whether to dial anyway a connection a limit refuses (`motivo` says
    // why); tests put their own.
    std::function<bool(const QString& motivo)> ConfirmarForzar;
    // Whether the desktop has a tray now; tests put their own.
    std::function<bool()> HayBandeja;
    // Puts the tray icon up once a tray is there (tmBandeja asks until then).
    void BuscarBandeja();

    DatosSesion& Datos() { return datos_; }
    const MonitorConexion& Monitor() const { return monitor_; }
    const Listado& UltimoListado() const { return listado_; }
    QSystemTrayIcon* Bandeja() const { return bandeja_; }

signals:
    // The alert sound was asked for (a MotivoAviso), whether or not the file
    // could be played.
    void AvisoSonoro(int motivo);
    // A limit of the connection's plan acted (notice, refusal, countdown,
    // hang-up), in the words of the status line.
    void AvisoLimite(const QString& texto);

protected:
    void closeEvent(QCloseEvent* evento) override;
    void changeEvent(QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

private:
    void Construir();
    void ConstruirBarra();
    void ConstruirMenuBandeja();
    void ConstruirPrevision();
    void PonerBandeja();
    void DecirDondeSigue();
    void HacerArrastrable();
    void AbrirImprimir();
    void AbrirArchivo();
    void AbrirGrafico();
    void LeerAjustes();
    void Arrancar();
    void BuscarModem();
    void AplicarCargaAlIniciar();
    void LeerEntradas();
    void MostrarAjustes();
    void AplicarSiempreVisible();
    void Atender(const MonitorConexion::Sucesos& sucesos);
    void AvisarLimite(const SucesoMonitor& s);
    void MostrarCuentaAtras(const SucesoMonitor& s);
    // Dials `entrada` from the button (`pulsar`) or the tray; a limit's
    // refusal asks the user whether to dial this once anyway.
    void Marcar(const std::string& entrada, bool pulsar);
    void MostrarPantalla();
    void MostrarResumen();
    void MostrarBono();
    void Recalcular();
    // The register's grid shows the current period afresh.
    void MostrarPeriodo();

    // Found by their object names from outside (tests, screenshots).
    QTabWidget* SSTab1 = nullptr;
    PanelConexion* panel = nullptr;
    TabResumen* tabResumen = nullptr;
    TabConexiones* tabConexiones = nullptr;
    TabTarifas* tabTarifas = nullptr;
    TabRegistro* tabRegistro = nullptr;
    TabFestivos* tabFestivos = nullptr;
    TabBono* tabBono = nullptr;
    TabOpciones* tabOpciones = nullptr;
    BarraPrincipal* Toolbar1 = nullptr;
    // Built even when the desktop has no tray, so its rules hold the same.
    MenuBandeja* mnuOne = nullptr;
    QTimer* tmEstado = nullptr;
    QTimer* tmHora = nullptr;
    QTimer* tmBandeja = nullptr;
    QLabel* lSinConexiones = nullptr;

    EntornoVentana entorno_;
    Contador contador_;
    Sesion& sesion_ = contador_.DatosUsuario();
    DatosSesion& datos_ = sesion_.Datos();
    MonitorConexion& monitor_ = contador_.Monitor();
    SonidoAviso* sonido_ = nullptr;
    VigiaPresupuesto* presupuesto_ = nullptr;
    QSystemTrayIcon* bandeja_ = nullptr;
    QPointer<fMini> mini_;
    QPointer<AvisoCuentaAtras> cuentaAtras_;
    std::optional<std::string> rechazado_; // the last refusal's reason
    // The windows the close box hid, for the tray to bring back.
    QList<QPointer<QWidget>> ocultas_;
    Listado listado_;
    CriteriosFiltro criterios_;
    // The cost of the call the register took last, in cents: the meter ends
    // on the register's figure, not on its last tick's.
    std::optional<std::int64_t> centimosAnotados_;
    int pestañaAnterior_ = kResumen;
    bool entradasNuevas_ = false;
    bool terminando_ = false;
    bool mostrada_ = false;
    std::optional<std::vector<std::string>> entradasSistema_;
};

} // namespace vorimesk
