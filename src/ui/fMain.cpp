#include "fMain.h"

#include "EleccionModem.h"
#include "Iconos.h"
#include "Mensajes.h"
#include "MenuBandeja.h"
#include "ModeloRegistro.h"
#include "PanelConexion.h"
#include "PanelUsoPlanes.h"
#include "PreguntaCargaAlIniciar.h"
#include "Proteger.h"
#include "SonidoAviso.h"
#include "TabBono.h"
#include "TabConexiones.h"
#include "TabFestivos.h"
#include "TabOpciones.h"
#include "TabRegistro.h"
#include "TabResumen.h"
#include "TabTarifas.h"
#include "VigiaPresupuesto.h"
#include "core/Archivo.h"
#include "fMini.h"
#include "fModem.h"
#include "monitor/EntradasConexion.h"
#include "tariff/PeriodosFacturacion.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QSettings>
#include <QStatusBar>
#include <QSystemTrayIcon>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <iostream>

namespace vorimesk {
namespace {

constexpr int kIntervaloEstado = 1000; // ms
constexpr int kIntervaloHora = 1000;
constexpr int kIntervaloBandeja = 2000;
// Closing to the tray is explained once per data folder.
constexpr const char* kClaveBandejaAvisada = "Bandeja/Avisada";

OpcionesPlataforma OpcionesDelContador(const EntornoVentana& e) {
    OpcionesPlataforma o;
    o.carpetaDatos = e.carpetaDatos;
    o.reloj = e.reloj;
    o.entorno = e.sistema;
    return o;
}

} // namespace

fMain::fMain(EntornoVentana entorno, QWidget* padre)
    : QMainWindow(padre), entorno_(std::move(entorno)),
      contador_(OpcionesDelContador(entorno_), entorno_.plataforma) {
    setWindowTitle("Vorimesk");
    setWindowIcon(IconoPrograma());
    HayBandeja = [] { return QSystemTrayIcon::isSystemTrayAvailable(); };
    sonido_ = new SonidoAviso(this);
    ConfirmarForzar = [this](const QString& motivo) {
        return avisos::PreguntarForzarMarcado(this, motivo);
    };
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
        Proteger(this, [&] { Marcar(entrada.toStdString(), false); });
    });
    connect(panel, &PanelConexion::Pulsado, this, [this](const QString& entrada) {
        Proteger(this, [&] { Marcar(entrada.toStdString(), true); });
    });
    connect(panel, &PanelConexion::Colgar, this,
            [this] { Proteger(this, [&] { Atender(contador_.Soltar()); }); });

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");
    tabResumen = new TabResumen(SSTab1);
    tabConexiones = new TabConexiones(datos_, SSTab1);
    tabConexiones->MostrarOrigen(entorno_.plataforma.origen);
    tabTarifas = new TabTarifas(datos_, entorno_.carpetaPrograma, SSTab1);
    tabRegistro = new TabRegistro(SSTab1);
    tabFestivos = new TabFestivos(datos_, SSTab1);
    tabBono = new TabBono(datos_, SSTab1);
    tabOpciones = new TabOpciones(datos_, *sonido_, SSTab1);
    panel->setObjectName("panel");
    tabResumen->setObjectName("TabResumen");
    tabConexiones->setObjectName("TabConexiones");
    tabTarifas->setObjectName("TabTarifas");
    tabRegistro->setObjectName("TabRegistro");
    tabFestivos->setObjectName("TabFestivos");
    tabBono->setObjectName("TabBono");
    tabOpciones->setObjectName("TabOpciones");
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
    connect(tabRegistro, &TabRegistro::Informar, this,
            [this](const QString& texto) { statusBar()->showMessage(texto); });
    ConstruirPrevision();
    connect(tabBono, &TabBono::FacturacionCambiada, this,
            Protegido(this, [this] { sesion_.CalcularPeriodo(); }));

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
    // Stays on the status line while the system has nothing to dial; the
    // passing messages show beside it.
    lSinConexiones = new QLabel(kSinConexionesEstado, this);
    lSinConexiones->setObjectName("lSinConexiones");
    lSinConexiones->setToolTip(kComoAñadirConexion);
    lSinConexiones->hide();
    statusBar()->addPermanentWidget(lSinConexiones);
    tmBandeja = new QTimer(this);
    tmBandeja->setObjectName("tmBandeja");
    tmBandeja->setInterval(kIntervaloBandeja);
    connect(tmBandeja, &QTimer::timeout, this, [this] { BuscarBandeja(); });
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
    Proteger(this, [this] { Arrancar(); });
    Proteger(this, [this] { MostrarPeriodo(); });
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
    const Sesion::LecturaAjustes lectura = sesion_.LeerAjustes();
    if (!lectura.dañado.empty()) {
        Avisar(this, QMessageBox::Warning, QString::fromStdString(lectura.dañado));
    }
    if (!lectura.listasIlegibles.empty()) {
        throw Error(lectura.listasIlegibles);
    }
}

void fMain::BuscarBandeja() {
    if (bandeja_ != nullptr || !HayBandeja()) {
        return;
    }
    tmBandeja->stop();
    PonerBandeja();
}

void fMain::PonerBandeja() {
    if (!HayBandeja()) {
        // A session starts programs before its panel: the icon comes when
        // the tray does.
        tmBandeja->start();
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
    const bool hayModem = contador_.ElegirLogModem([this](const std::vector<Modem>& modems) {
        return ModemElegido(modems, datos_.Carpeta / kArchivoPreferencias, ElegirModem);
    });
    if (!hayModem) {
        // The calls still reach the register through the system's log.
        avisos::SinModem(this);
    }
}

void fMain::AplicarCargaAlIniciar() {
    vorimesk::AplicarCargaAlIniciar(this, entorno_, datos_.Ajustes.CargarAlIniciar,
                                    datos_.Carpeta / kArchivoPreferencias);
}

void fMain::LeerEntradas() {
    const std::vector<std::string> entradas = contador_.EntradasDelSistema();
    if (entradas == entradasSistema_) {
        return;
    }
    entradasSistema_ = entradas;
    panel->MostrarEntradas(entradas);
    lSinConexiones->setVisible(entradas.empty());
    mnuOne->MostrarEntradas(entradas);
    tabConexiones->MostrarEntradas(entradas);
    if (!contador_.AñadirEntradasNuevas(entradas).empty()) {
        entradasNuevas_ = true;
        tabConexiones->MostrarEntradas(entradas);
    }
}

void fMain::Arrancar() {
    MonitorConexion::Sucesos sucesos;
    try {
        sucesos = contador_.Arrancar();
    } catch (const Error& error) {
        throw Error(std::string("No se pudo leer el registro de llamadas: ") + error.what() +
                    "\nNo se escribira en el mientras el programa siga abierto, para no perder "
                    "el archivo.");
    }
    // The calls made while the meter was closed could not be taken.
    for (const SucesoMonitor& s : sucesos) {
        if (s.tipo == SucesoMonitor::Tipo::ErrorRegistro) {
            throw Error(s.texto);
        }
    }
}

void fMain::MostrarPeriodo() {
    sesion_.CalcularPeriodo();
    RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
}

void fMain::MostrarAjustes() {
    tabOpciones->Mostrar();
    tabFestivos->MostrarFestivos();
    tabBono->Mostrar();
}

void fMain::RellenaGrid(const CriteriosFiltro& criterios) {
    listado_ = ListarRegistro(
        datos_.Registro, criterios, [this](Fecha dia) { return datos_.TipoDia(dia); },
        datos_.Coste(), datos_.RelojPrograma.Hoy());
    criterios_ = criterios;
    tabRegistro->Mostrar(datos_.Registro, listado_, datos_.Coste());
    // The summary follows every fill, so a call just recorded shows there too.
    MostrarResumen();
}

std::string fMain::RangoListado() const {
    return TextoRango(criterios_, listado_, datos_.InicioPeriodo, datos_.FinPeriodo);
}

void fMain::Informar(const std::string& texto) {
    statusBar()->showMessage(QString::fromStdString(texto));
}

std::vector<std::array<std::string, 10>> fMain::FilasVisibles() const {
    return tabRegistro->Modelo().Filas();
}

void fMain::RegistroCambiado() {
    sesion_.RegistroCambiado();
    MostrarPeriodo();
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
    const Fecha hoy = datos_.RelojPrograma.Hoy();
    const Fecha primera = datos_.Registro.Count() > 0 ? datos_.Registro.Dia(0) : hoy;
    // The whole billing period, to its last day, as the forecast counts it.
    const PeriodoFacturacion periodo =
        PeriodoCompleto(datos_.Bono.DiaFactura(), datos_.Bono.perFactura(), primera, hoy);
    ResumenPeriodo r;
    r.inicio = periodo.inicio;
    r.fin = periodo.fin;
    r.rango = RangoListado();
    r.tiempo = listado_.TotalTiempo;
    r.coste = static_cast<double>(listado_.TotalCentimos) / 100.0;
    r.llamadas = listado_.NumeroLlamadas;
    r.diasQuedan = static_cast<int>(periodo.fin.Dias() - hoy.Dias());
    tabResumen->Mostrar(r);
    tabResumen->UsoPlanes().Actualizar(datos_);
    presupuesto_->Actualizar();
}

void fMain::Recalcular() {
    const RecalculoLog r = sesion_.Recalcular();
    RellenaGrid(CriteriosFiltro::Periodo(datos_.InicioPeriodo, datos_.FinPeriodo));
    tabBono->Mostrar();
    MostrarBono();
    avisos::TarifasDesconocidas(this, r);
}

void fMain::GuardarTodo() {
    contador_.Parar();
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
    const bool bandeja = bandeja_ != nullptr && HayBandeja();
    if (bandeja) {
        DecirDondeSigue();
    }
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

void fMain::DecirDondeSigue() {
    QSettings ini(QString::fromStdString((datos_.Carpeta / kArchivoPreferencias).string()),
                  QSettings::IniFormat);
    if (ini.value(kClaveBandejaAvisada, false).toBool()) {
        return;
    }
    ini.setValue(kClaveBandejaAvisada, true);
    Avisar(this, QMessageBox::Information, avisos::kTextoSigueEnBandeja);
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
