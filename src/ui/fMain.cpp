#include "fMain.h"

#include "Avisos.h"
#include "Iconos.h"
#include "Mensajes.h"
#include "MenuBandeja.h"
#include "ModeloRegistro.h"
#include "PanelConexion.h"
#include "Proteger.h"
#include "SonidoAviso.h"
#include "TabBono.h"
#include "TabConexiones.h"
#include "TabFestivos.h"
#include "TabOpciones.h"
#include "TabRegistro.h"
#include "TabResumen.h"
#include "TabTarifas.h"
#include "core/Archivo.h"
#include "fMini.h"
#include "fModem.h"
#include "monitor/EntradasConexion.h"
#include "monitor/PerfilEntrada.h"
#include "platform/LecturaFuente.h"
#include "settings/ArchivoVariables.h"
#include "tariff/AjustesTarifa.h"
#include "tariff/PeriodoEnCurso.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QProcess>
#include <QSettings>
#include <QStatusBar>
#include <QSystemTrayIcon>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <iostream>

namespace vorimesk {
namespace {

constexpr int kIntervaloEstado = 1000; // ms
constexpr int kIntervaloHora = 1000;

} // namespace

fMain::fMain(EntornoVentana entorno, QWidget* padre)
    : QMainWindow(padre), entorno_(std::move(entorno)),
      datos_(entorno_.carpetaDatos, *entorno_.reloj), registroMonitor_(datos_.Registro),
      linea_(*entorno_.plataforma.marcador),
      monitor_(*entorno_.reloj, datos_.Ajustes, datos_.Bono, datos_.Conexiones, registroMonitor_,
               linea_, entorno_.carpetaDatos) {
    setWindowTitle("Vorimesk");
    setWindowIcon(IconoPrograma());
    sonido_ = new SonidoAviso(this);
    ElegirModem = [this](const QStringList& modelos) {
        fModem dialogo(modelos, this);
        dialogo.exec();
        return dialogo.Elegido();
    };
    Construir();
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { TerminarSesion(); });
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] {
        if (!terminando_) {
            TerminarSesion();
        }
    });
}

fMain::~fMain() {
    // The mini window has no parent, so it stays up while this one hides.
    delete mini_;
}

void fMain::Construir() {
    ConstruirBarra();
    ConstruirMenuBandeja();

    panel = new PanelConexion(this);
    connect(panel, &PanelConexion::Marcar, this, [this](const QString& entrada) {
        Proteger(this, [&] { linea_.Marcar(entrada.toStdString()); });
    });
    connect(panel, &PanelConexion::Pulsado, this, [this](const QString& entrada) {
        Proteger(this, [&] { Atender(monitor_.Pulsar(entrada.toStdString())); });
    });
    connect(panel, &PanelConexion::Colgar, this,
            [this] { Proteger(this, [&] { Atender(monitor_.Soltar()); }); });

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    tabResumen = new TabResumen(SSTab1);
    tabConexiones = new TabConexiones(datos_, SSTab1);
    tabTarifas = new TabTarifas(datos_, entorno_.carpetaPrograma, SSTab1);
    tabRegistro = new TabRegistro(SSTab1);
    tabFestivos = new TabFestivos(datos_, SSTab1);
    tabBono = new TabBono(datos_, SSTab1);
    tabOpciones = new TabOpciones(datos_, *sonido_, SSTab1);
    SSTab1->addTab(tabResumen, "&Resumen");
    SSTab1->addTab(tabConexiones, "C&onexiones");
    SSTab1->addTab(tabTarifas, "&Tarifas");
    SSTab1->addTab(tabRegistro, "Re&gistro");
    SSTab1->addTab(tabFestivos, "&Festivos");
    SSTab1->addTab(tabBono, "&BonoNet");
    SSTab1->addTab(tabOpciones, "O&pciones");
    connect(SSTab1, &QTabWidget::currentChanged, this,
            [this](int nueva) { Proteger(this, [&] { CambioPestaña(nueva); }); });
    connect(tabBono, &TabBono::GrupoElegido, this, [this](int grupo) {
        monitor_.GrupoBono(static_cast<std::int16_t>(grupo));
        MostrarBono();
    });
    connect(tabOpciones, &TabOpciones::AvisoArmado, this, [this](int umbral) {
        monitor_.ArmarAviso(static_cast<AvisosLlamada::Umbral>(umbral));
    });
    connect(tabBono, &TabBono::BonoCambiado, this, [this] { MostrarBono(); });
    connect(tabRegistro, &TabRegistro::PedirFiltro, this, [this] { AbrirFiltro(); });
    connect(tabBono, &TabBono::FacturacionCambiada, this,
            Protegido(this, [this] { CalcularPeriodo(); }));

    auto* centro = new QWidget(this);
    auto* todo = new QVBoxLayout(centro);
    todo->addWidget(panel);
    todo->addWidget(SSTab1, 1);
    setCentralWidget(centro);
    HacerArrastrable();

    tmEstado = new QTimer(this);
    tmEstado->setObjectName("tmEstado");
    tmEstado->setInterval(kIntervaloEstado);
    connect(tmEstado, &QTimer::timeout, this, Protegido(this, [this] { TickEstado(); }));
    tmHora = new QTimer(this);
    tmHora->setObjectName("tmHora");
    tmHora->setInterval(kIntervaloHora);
    connect(tmHora, &QTimer::timeout, this, Protegido(this, [this] { TickHora(); }));
    resize(860, 600);
}

void fMain::Cargar() {
    // The ledger was created with the window's data, before anything else,
    // and the program checked that it is the only instance before creating
    // the window.
    Proteger(this, [this] { LeerAjustes(); });
    // The threshold alerts are armed from the monitor's start.
    PonerBandeja();
    Proteger(this, [this] { BuscarModem(); });
    Proteger(this, [this] { AplicarCargaAlIniciar(); });
    Proteger(this, [this] { LeerEntradas(); });
    Proteger(this, [this] { CargarRegistro(); });
    Proteger(this, [this] {
        CalcularPeriodo();
        RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
    });
    Proteger(this, [this] {
        tabBono->Mostrar();
        tabTarifas->Refrescar();
        tabConexiones->MostrarTarifas();
        TickHora();
        MostrarAjustes();
    });
    AplicarSiempreVisible();
    tmEstado->start();
    tmHora->start();
    if (entradasNuevas_) {
        SSTab1->setCurrentIndex(kConexiones);
    } else {
        Proteger(this, [this] { CambioPestaña(SSTab1->currentIndex()); });
    }
}

void fMain::LeerAjustes() {
    LecturaVariables lectura =
        LeerVariables(datos_.Carpeta / std::string(Settings::kNombreArchivo));
    datos_.Ajustes = std::move(lectura.valores);
    datos_.RecalculoPendiente = false;
    if (lectura.dañado) {
        Avisar(this, QMessageBox::Warning, QString::fromStdString(lectura.aviso));
    }
    try {
        CargarBono(datos_.Ajustes, datos_.Bono);
        CargarConexiones(datos_.Ajustes, datos_.Conexiones);
    } catch (const Error& error) {
        // Written back from what could be read, the file would lose the
        // rest: it is left alone for this run.
        ajustesGuardables_ = false;
        datos_.Bono.Limpiar();
        throw Error(std::string("Los bonos o las conexiones de ") +
                    std::string(Settings::kNombreArchivo) + " no se pueden leer: " + error.what() +
                    "\nLas opciones no se guardaran al salir, para no perder el archivo.");
    }
}

void fMain::PonerBandeja() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        return;
    }
    bandeja_ = new QSystemTrayIcon(IconoPrograma(), this);
    bandeja_->setToolTip(windowTitle() + "  Desconectado.");
    bandeja_->setContextMenu(mnuOne);
    connect(bandeja_, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason razon) {
                if (razon == QSystemTrayIcon::DoubleClick) {
                    RestaurarVentanas();
                }
            });
    bandeja_->show();
}

void fMain::BuscarModem() {
    const std::vector<Modem> modems = entorno_.plataforma.modems->Modems();
    if (modems.empty()) {
        avisos::SinModem(this);
        // The calls still reach the register through the system's log.
        datos_.Registro.NombreLog(entorno_.logSinModem.string());
        return;
    }
    std::size_t elegido = 0;
    if (modems.size() > 1) {
        QSettings preferencias(
            QString::fromStdString((datos_.Carpeta / kArchivoPreferencias).string()),
            QSettings::IniFormat);
        const std::string recordado = preferencias.value("Modem/Clave").toString().toStdString();
        const auto it = std::find_if(modems.begin(), modems.end(),
                                     [&](const Modem& m) { return m.clave == recordado; });
        if (it != modems.end()) {
            elegido = static_cast<std::size_t>(it - modems.begin());
        } else {
            QStringList modelos;
            for (const Modem& m : modems) {
                modelos.append(QString::fromStdString(m.modelo));
            }
            elegido = static_cast<std::size_t>(
                std::clamp(ElegirModem(modelos), 0, static_cast<int>(modems.size()) - 1));
            preferencias.setValue("Modem/Clave", QString::fromStdString(modems[elegido].clave));
        }
    }
    datos_.Registro.NombreLog(modems[elegido].rutaLog.string());
}

void fMain::AplicarCargaAlIniciar() {
    if (datos_.Ajustes.CargarAlIniciar) {
        entorno_.plataforma.cargaAlIniciar->Activar(entorno_.ejecutable);
    } else {
        entorno_.plataforma.cargaAlIniciar->Desactivar();
    }
}

void fMain::LeerEntradas() {
    const std::vector<std::string> entradas = entorno_.plataforma.entradas->Entradas();
    if (entradas == entradasSistema_) {
        return;
    }
    entradasSistema_ = entradas;
    panel->MostrarEntradas(entradas);
    mnuOne->MostrarEntradas(entradas);
    tabConexiones->MostrarEntradas(entradas);
    if (!AñadirEntradasNuevas(datos_.Ajustes, entradas).empty()) {
        entradasNuevas_ = true;
        tabConexiones->MostrarEntradas(entradas);
    }
}

void fMain::CargarRegistro() {
    try {
        datos_.Registro.CargarLog();
    } catch (const Error& error) {
        throw Error(std::string("No se pudo leer el registro de llamadas: ") + error.what() +
                    "\nNo se escribira en el mientras el programa siga abierto, para no perder "
                    "el archivo.");
    }
    registroLeido_ = true;
    datos_.Registro.CopiaUnaVezPorSesion();
}

void fMain::CalcularPeriodo() {
    const Fecha hoy = datos_.RelojPrograma.Hoy();
    const Fecha primera = datos_.Registro.Count() > 0 ? datos_.Registro.Dia(0) : hoy;
    const PeriodoFacturacion p =
        PeriodoEnCurso(datos_.Bono.DiaFactura(), datos_.Bono.perFactura(), primera, hoy);
    datos_.InicioPeriodo = p.inicio;
    datos_.FinPeriodo = p.fin;
}

void fMain::MostrarAjustes() {
    tabOpciones->Mostrar();
    tabFestivos->MostrarFestivos();
    tabBono->Mostrar();
}

void fMain::TickHora() {
    Atender(monitor_.TickHora());
}

void fMain::TickEstado() {
    MonitorConexion::Sucesos sucesos =
        monitor_.TickEstado(LeerFuente(*entorno_.plataforma.conexiones));
    for (SucesoMonitor& s : monitor_.TickActual()) {
        sucesos.push_back(std::move(s));
    }
    Atender(sucesos);
}

void fMain::Atender(const MonitorConexion::Sucesos& sucesos) {
    for (const SucesoMonitor& s : sucesos) {
        switch (s.tipo) {
        case SucesoMonitor::Tipo::Sonar:
            sonido_->Reproducir(QString::fromStdString(s.texto));
            emit AvisoSonoro(static_cast<int>(s.motivo));
            break;
        case SucesoMonitor::Tipo::MostrarMini:
            MostrarMini();
            break;
        case SucesoMonitor::Tipo::LlamadaIniciada:
            // A demonstration shows every window a call can have.
            if (entorno_.demostracion) {
                MostrarMini();
            }
            break;
        case SucesoMonitor::Tipo::LanzarPrograma:
            QProcess::startDetached(QString::fromStdString(s.texto), {});
            break;
        case SucesoMonitor::Tipo::RellenarRegistro:
            CalcularPeriodo();
            RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
            break;
        case SucesoMonitor::Tipo::BonoRenovado:
            tabBono->Mostrar();
            MostrarBono();
            break;
        case SucesoMonitor::Tipo::LogSinCerrar:
        case SucesoMonitor::Tipo::SinRegistroSistema:
            statusBar()->showMessage(QString::fromStdString(s.texto));
            break;
        case SucesoMonitor::Tipo::ErrorRegistro:
            // Not modal: the timers go on while the user reads it.
            statusBar()->showMessage(QString::fromStdString(s.texto));
            std::cerr << "Vorimesk: " << s.texto << "\n";
            break;
        default:
            // The call's own display (mini window included) is painted from
            // the monitor's values below.
            break;
        }
    }
    if (std::any_of(sucesos.begin(), sucesos.end(), PideGuardarSesion)) {
        GuardarAjustesEnLlamada();
    }
    MostrarPantalla();
}

// What a crash must not lose goes to disk at once; a failure is told without
// stopping the meter.
void fMain::GuardarAjustesEnLlamada() {
    try {
        GuardarAjustes();
    } catch (const Error& e) {
        statusBar()->showMessage(QString::fromStdString(e.what()));
        std::cerr << "Vorimesk: " << e.what() << "\n";
    }
}

void fMain::MostrarPantalla() {
    const PantallaMonitor& p = monitor_.Pantalla();
    panel->Mostrar(p);
    if (mini_ != nullptr) {
        mini_->Mostrar(p);
    }
    mnuOne->mnu(MenuBandeja::kConectar)->setEnabled(p.MenuConectar);
    mnuOne->mnu(MenuBandeja::kDesconectar)->setEnabled(p.MenuDesconectar);
    if (bandeja_ != nullptr) {
        bandeja_->setToolTip(QString::fromStdString(p.PuntaBandeja));
    }
    if (monitor_.LlamadaAbierta() && p.Descuento == kDescuentoBonoNet) {
        MostrarBono();
    }
}

void fMain::RellenaGrid(const CriteriosFiltro& criterios) {
    listado_ = ListarRegistro(
        datos_.Registro, criterios, [this](Fecha dia) { return datos_.TipoDia(dia); },
        datos_.Coste(), datos_.RelojPrograma.Hoy());
    tabRegistro->Mostrar(datos_.Registro, listado_, datos_.Coste());
}

std::vector<std::array<std::string, 10>> fMain::FilasVisibles() const {
    return tabRegistro->Modelo().Filas();
}

void fMain::RegistroCambiado() {
    registroSucio_ = true;
    GuardarRegistro();
    CalcularPeriodo();
    RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
}

void fMain::CambioPestaña(int nueva) {
    if (nueva != pestañaAnterior_ && datos_.RecalculoPendiente) {
        // Cleared first: answering No does not ask again until the next edit.
        datos_.RecalculoPendiente = false;
        pestañaAnterior_ = nueva;
        if (avisos::PreguntarRecalculo(this)) {
            Recalcular();
        }
    }
    pestañaAnterior_ = nueva;
    if (nueva == kResumen) {
        MostrarResumen();
        MostrarBono();
    } else if (nueva == kConexiones) {
        tabConexiones->MostrarTarifas();
    } else if (nueva == kTarifas) {
        tabTarifas->Refrescar();
    }
}

void fMain::MostrarResumen() {
    ResumenPeriodo r;
    r.inicio = datos_.InicioPeriodo;
    r.fin = datos_.FinPeriodo;
    r.tiempo = listado_.TotalTiempo;
    r.coste = listado_.TotalCoste;
    r.llamadas = listado_.NumeroLlamadas;
    r.diasQuedan = DiasHastaFacturacion(datos_.RelojPrograma.Hoy(), datos_.Bono.DiaFactura());
    tabResumen->Mostrar(r);
}

void fMain::MostrarBono() {
    const auto grupo = static_cast<std::int16_t>(tabBono->Grupo());
    const PantallaMonitor& p = monitor_.Pantalla();
    // During a BonoNet call the live meter's figures are the ones to show.
    if (monitor_.LlamadaAbierta() && p.Descuento == kDescuentoBonoNet) {
        tabResumen->MostrarBono(TabBono::NombreGrupo(grupo), p.BonoGastado, p.BonoQueda);
        return;
    }
    tabResumen->MostrarBono(TabBono::NombreGrupo(grupo), datos_.Bono.TiempoGastadoGrupo(grupo),
                            datos_.Bono.TotalTiempoGrupo(grupo));
}

void fMain::Recalcular() {
    // A failure leaves every call as it was; a success is saved at once.
    datos_.Registro.ModificarLog(datos_.Bono, FestivosDeAjustes(datos_.Ajustes));
    registroSucio_ = true;
    GuardarRegistro();
    RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
    tabBono->Mostrar();
    MostrarBono();
}

void fMain::GuardarRegistro() {
    if (registroLeido_ && registroSucio_) {
        datos_.Registro.SalvarLog();
        registroSucio_ = false;
    }
}

void fMain::GuardarAjustes() {
    if (!ajustesGuardables_) {
        return;
    }
    GuardarBono(datos_.Bono, datos_.Ajustes);
    GuardarConexiones(datos_.Conexiones, datos_.Ajustes);
    GuardarVariables(datos_.Carpeta / std::string(Settings::kNombreArchivo), datos_.Ajustes);
}

void fMain::GuardarTodo() {
    GuardarRegistro();
    GuardarAjustes();
}

bool fMain::Terminar() {
    if (!Proteger(this, [this] { GuardarTodo(); })) {
        return false;
    }
    terminando_ = true;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w != this && w->isVisible()) {
            w->close();
        }
    }
    close();
    QCoreApplication::quit();
    return true;
}

void fMain::TerminarSesion() {
    try {
        GuardarTodo();
    } catch (const Error& error) {
        std::cerr << "Vorimesk: " << error.what() << "\n";
    }
    terminando_ = true;
    QCoreApplication::quit();
}

void fMain::closeEvent(QCloseEvent* evento) {
    if (terminando_) {
        evento->accept();
        return;
    }
    // The close box keeps the program running: to the tray, or minimised
    // when the desktop has no tray to come back from.
    evento->ignore();
    const bool bandeja = bandeja_ != nullptr && QSystemTrayIcon::isSystemTrayAvailable();
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (!w->isVisible() || w->windowType() == Qt::Popup || w->windowType() == Qt::ToolTip) {
            continue;
        }
        if (bandeja) {
            ocultas_.append(w);
            w->hide();
        } else {
            w->showMinimized();
        }
    }
}

void fMain::changeEvent(QEvent* evento) {
    QMainWindow::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange && isActiveWindow()) {
        // After the event: the message box must not open inside it.
        QTimer::singleShot(0, this, [this] { Proteger(this, [this] { AlActivar(); }); });
    }
}

void fMain::showEvent(QShowEvent* evento) {
    QMainWindow::showEvent(evento);
    // The first showing counts as an activation: a desktop without a window
    // manager never activates the window.
    if (!mostrada_) {
        mostrada_ = true;
        QTimer::singleShot(0, this, [this] { Proteger(this, [this] { AlActivar(); }); });
    }
}

void fMain::AlActivar() {
    LeerEntradas();
    if (entradasNuevas_) {
        entradasNuevas_ = false;
        datos_.RecalculoPendiente = true;
        avisos::ConexionNueva(this);
    }
}

} // namespace vorimesk
