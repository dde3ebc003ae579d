// Screenshots of the main window, one per tab, on a made-up data folder,
// and of its dialogs and message boxes.

#include "CapturasVentana.h"

#include "PlataformaPrueba.h"
#include "monitor/EntradasConexion.h"
#include "monitor/EstadoContador.h"
#include "platform/InstanciaUnica.h"
#include "register/Importe.h"
#include "register/Log.h"
#include "settings/ArchivoVariables.h"
#include "settings/Presupuesto.h"
#include "tariff/LibroPorDefecto.h"
#include "ui/EntornoVentana.h"
#include "ui/Mensajes.h"
#include "ui/MenuBandeja.h"
#include "ui/fBono.h"
#include "ui/fComparar.h"
#include "ui/fMain.h"
#include "ui/fMini.h"
#include "ui/fModem.h"
#include "ui/fOtroContador.h"
#include "ui/fProgramas.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontMetrics>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QTabWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

struct Captura {
    QString nombre;
    std::function<QWidget*()> crear; // the widget to grab (owned elsewhere)
};

// Friday 20 March 2026 at 17:50: the call shot crosses into the reduced band.
RelojFijo kReloj(Fecha::Crear(2026, 3, 20, 17, 50, 0));

// A register of some weeks of calls, holidays, bundles and two entries.
void PrepararDatos(const std::filesystem::path& dir) {
    InstalarLibroPorDefecto(dir);
    Log registro(dir);
    const char* tarifas[] = {"Metropolitana", "Provincial", "Infovia"};
    const char* conexiones[] = {"Casa", "Trabajo"};
    for (int i = 0; i < 40; ++i) {
        const Fecha dia = Fecha::Crear(2026, 1, 10).MasDias(i * 2);
        const Fecha hora = Fecha::DesdeSegundos((8 + i % 14) * 3600 + (i * 7 % 60) * 60);
        const int segundos = 300 + i * 97;
        cTiempo d;
        d.ConvTiempo(segundos);
        registro.AñadirItem(dia, hora, d.Valor(), TextoImporte(11.72F + segundos / 60.0F * 2.5F),
                            static_cast<std::uint8_t>(i % 3 == 0), tarifas[i % 3],
                            conexiones[i % 2], "", static_cast<std::int16_t>(i % 5 == 0 ? -1 : 0),
                            100 + i * 13, 20 + i * 3);
    }
    registro.SalvarLog();
    Settings s = ValoresPorDefecto();
    s.DiaFactura = 15;
    s.AnadirImpuestos = true;
    s.Impuestos = 16.0F;
    s.Festivos = {Fecha::Crear(2026, 1, 1), Fecha::Crear(2026, 1, 6), Fecha::Crear(2026, 3, 19),
                  Fecha::Crear(2026, 4, 2), Fecha::Crear(2026, 4, 3)};
    s.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"},
                          {"Trabajo", "Provincial", "Ninguno"}};
    s.Bonos = {
        {0, Fecha::Crear(2026, 2, 15), FechaVariante::Vacia(), "06:12:40"},
        {3, Fecha::Crear(2026, 1, 15), FechaVariante::De(Fecha::Crear(2026, 3, 1)), "12:00:00"}};
    s.Programas = {"/usr/bin/firefox", "/usr/bin/thunderbird"};
    s.AvisoTiempo = true;
    s.TiempoAviso.Valor("01:00:00");
    s.AvisoImporte = true;
    s.ImporteAviso = "1500";
    s.SonidoAviso = "/usr/share/sounds/alsa/Front_Center.wav";
    s.MesReinicio = 2;
    GuardarVariables(dir / "Varibles.Dat", s);
    GuardarPresupuesto(dir, 1500.0);
}

std::unique_ptr<QMessageBox> Caja(QMessageBox::Icon icono, const QString& titulo,
                                  const QString& texto, QMessageBox::StandardButtons botones) {
    return avisos::CrearCaja(nullptr, icono, titulo, texto, botones);
}

// The service meter that holds the folder in the "otro contador" shot.
class OtroContadorEnMarcha : public InstanciaUnica {
public:
    bool Adquirir() override { return false; }
    std::optional<long> Titular() const override { return 4321; }
    bool Relevar(std::chrono::milliseconds) override { return false; }
};

// What that meter left in the folder: a call to "Casa" that began at 17:38.
void EstadoDelServicio(const std::filesystem::path& dir) {
    EstadoContador e;
    e.pid = 4321;
    e.hora = "2026-03-20 17:38:00";
    e.estado = 2;
    e.texto = "Conectado";
    e.conexion = "Casa";
    e.inicio = "2026-03-20 17:38:00";
    e.tarifa = "Metropolitana";
    e.descuento = "BonoNet";
    e.suceso = "Llamada iniciada con Casa (tarifa Metropolitana, descuento BonoNet).";
    GuardarEstadoContador(dir, e);
}

bool Guardar(QWidget* w, const QString& ruta) {
    w->show();
    QApplication::processEvents();
    const bool dialogo =
        w->isWindow() && qobject_cast<QMenu*>(w) == nullptr && w->objectName() != "fMini";
    if (!(dialogo ? ConTitulo(w) : w->grab()).save(ruta)) {
        std::fprintf(stderr, "No se pudo guardar %s\n", qPrintable(ruta));
        return false;
    }
    std::printf("%s\n", qPrintable(ruta));
    return true;
}

} // namespace

// The window as a desktop shows it: a plain title bar above it (icon, the
// title in bold, three buttons), so a title that does not fit shows cut.
QPixmap ConTitulo(QWidget* w) {
    const QPixmap cuerpo = w->grab();
    QFont negrita = QApplication::font();
    negrita.setBold(true);
    const int alto = QFontMetrics(negrita).height() + 10;
    QPixmap marco(cuerpo.width(), cuerpo.height() + alto);
    marco.fill(QColor(60, 60, 70));
    QPainter p(&marco);
    p.fillRect(6, 5, alto - 10, alto - 10, QColor(200, 200, 210)); // icon
    for (int i = 1; i <= 3; ++i) {
        p.fillRect(cuerpo.width() - i * (alto - 4), 5, alto - 10, alto - 10, QColor(150, 150, 160));
    }
    p.setFont(negrita);
    p.setPen(Qt::white);
    const int izquierda = alto + 2, derecha = cuerpo.width() - 3 * (alto - 4) - 4;
    p.setClipRect(izquierda, 0, derecha - izquierda, alto);
    p.drawText(QRect(izquierda, 0, derecha - izquierda, alto), Qt::AlignVCenter | Qt::AlignLeft,
               w->windowTitle());
    p.setClipping(false);
    p.drawPixmap(0, alto, cuerpo);
    return marco;
}

bool CapturarVentana(const QString& carpeta) {
    QTemporaryDir temporal;
    const std::filesystem::path dir = temporal.path().toStdString();
    PrepararDatos(dir);

    PlataformaPrueba plataforma;
    plataforma.sistema->entradas = {"Casa", "Trabajo"};
    plataforma.sistema->modems = {{"ttyS0", "Modem de prueba", dir / "modemlog.txt"}};
    EntornoVentana entorno;
    entorno.carpetaDatos = dir;
    entorno.plataforma = plataforma.Crear();
    entorno.plataforma.origen = "Conexiones de NetworkManager y de pppd (/etc/ppp/peers)";
    entorno.reloj = &kReloj;
    fMain ventana(entorno);
    ventana.Cargar();
    PlataformaPrueba vacia;
    vacia.sistema->modems = plataforma.sistema->modems;
    EntornoVentana entornoVacio = entorno;
    entornoVacio.plataforma = vacia.Crear();
    fMain sinConexiones(entornoVacio);

    auto* SSTab1 = ventana.findChild<QTabWidget*>("SSTab1");
    auto* mnuOne = ventana.findChild<QMenu*>("mnuOne");
    auto* mnuCon = ventana.findChild<QMenu*>("mnuCon");
    std::vector<std::unique_ptr<QWidget>> dueños;
    auto propio = [&](std::unique_ptr<QWidget> w) {
        dueños.push_back(std::move(w));
        return dueños.back().get();
    };
    const char* pestañas[] = {"resumen",  "conexiones", "tarifas", "registro",
                              "festivos", "bononet",    "opciones"};
    std::vector<Captura> capturas;
    for (int i = 0; i < 7; ++i) {
        capturas.push_back({QString("principal-%1-%2").arg(i).arg(pestañas[i]), [&, i] {
                                SSTab1->setCurrentIndex(i);
                                return static_cast<QWidget*>(&ventana);
                            }});
    }
    std::vector<std::string> programas = ventana.Datos().Ajustes.Programas;
    OtroContadorEnMarcha otroContador;
    BonoGuardado nuevo;
    nuevo.Alta = kReloj.Hoy();
    const BonoGuardado dado{3, Fecha::Crear(2026, 1, 15),
                            FechaVariante::De(Fecha::Crear(2026, 3, 1)), "12:00:00"};
    capturas.insert(
        capturas.end(),
        {
            {"bono-alta",
             [&] { return propio(std::make_unique<fBono>(nuevo, true, kReloj.Hoy())); }},
            {"bono-modificar",
             [&] { return propio(std::make_unique<fBono>(dado, false, kReloj.Hoy())); }},
            {"modem",
             [&] {
                 return propio(std::make_unique<fModem>(
                     QStringList{"Modem interno (ttyS0)", "U.S. Robotics 56K USB (ttyUSB0)"}));
             }},
            {"programas", [&] { return propio(std::make_unique<fProgramas>(programas)); }},
            {"otro-contador",
             [&] {
                 EstadoDelServicio(dir);
                 return propio(std::make_unique<fOtroContador>(dir, otroContador, kReloj));
             }},
            {"comparar-tarifas",
             [&] {
                 return propio(std::make_unique<fComparar>(
                     fComparar::FuenteDe(ventana.Datos(), ventana.UltimoListado())));
             }},
            {"programas-anadir",
             [&] {
                 auto d = fProgramas::CrearDialogoAbrir(nullptr);
                 d->setDirectory("/usr/share/applications");
                 d->resize(760, 460);
                 return propio(std::move(d));
             }},
            {"aviso-recalculo",
             [&] {
                 return propio(Caja(QMessageBox::Question, avisos::kTituloRecalculo,
                                    avisos::kTextoRecalculo, QMessageBox::Yes | QMessageBox::No));
             }},
            {"aviso-conexion-nueva",
             [&] {
                 return propio(Caja(QMessageBox::Warning, kTituloConexionNueva, kAvisoConexionNueva,
                                    QMessageBox::Ok));
             }},
            {"aviso-sin-modem",
             [&] {
                 return propio(Caja(QMessageBox::Critical, avisos::kTituloSinModem,
                                    avisos::kTextoSinModem, QMessageBox::Ok));
             }},
            {"aviso-carga-al-iniciar",
             [&] {
                 return propio(Caja(QMessageBox::Question, avisos::kTituloCargaAlIniciar,
                                    avisos::kTextoCargaAlIniciar,
                                    QMessageBox::Yes | QMessageBox::No));
             }},
            {"aviso-sigue-en-bandeja",
             [&] {
                 return propio(Caja(QMessageBox::Information, "Vorimesk",
                                    avisos::kTextoSigueEnBandeja, QMessageBox::Ok));
             }},
            // "Ver todos": the totals name the whole register, the period
            // block stays the billing period.
            {"principal-resumen-ver-todos",
             [&] {
                 ventana.RellenaGrid({});
                 SSTab1->setCurrentIndex(fMain::kResumen);
                 return static_cast<QWidget*>(&ventana);
             }},
            // A system with nothing to dial: "Conectar" is off and the status
            // line says how to add a connection.
            {"principal-sin-conexiones",
             [&] {
                 sinConexiones.Cargar();
                 return static_cast<QWidget*>(&sinConexiones);
             }},
        });

    // A call to "Casa" twelve minutes in, with the mini window and the tray
    // menu as they are during it.
    capturas.push_back({"principal-llamada", [&] {
                            plataforma.sistema->estado = LecturaConexion::kConectado;
                            plataforma.sistema->entrada = "Casa";
                            for (int i = 0; i < 12; ++i) {
                                ventana.TickEstado();
                                kReloj.Avanzar(60);
                            }
                            ventana.TickEstado();
                            ventana.TickHora();
                            SSTab1->setCurrentIndex(fMain::kResumen);
                            return static_cast<QWidget*>(&ventana);
                        }});
    capturas.push_back({"mini-ventana", [&] {
                            ventana.MostrarMini();
                            return static_cast<QWidget*>(ventana.Mini());
                        }});
    // Its context menu, the way back to the normal window without a tray.
    capturas.push_back({"mini-ventana-menu", [&] {
                            auto* menu = new QMenu(ventana.Mini());
                            menu->addActions(ventana.Mini()->actions());
                            menu->popup(QPoint(40, 40));
                            return static_cast<QWidget*>(menu);
                        }});
    // The call over: the panel says the state and names the last call.
    capturas.push_back({"principal-tras-llamada", [&] {
                            plataforma.sistema->estado = LecturaConexion::kDesconectado;
                            ventana.TickEstado();
                            plataforma.sistema->estado = LecturaConexion::kNada;
                            kReloj.Avanzar(1);
                            ventana.TickEstado();
                            return static_cast<QWidget*>(&ventana);
                        }});
    // An entry whose tariff the book does not hold.
    capturas.push_back({"principal-tarifa-desconocida", [&] {
                            ventana.Datos().Ajustes.EntradasConexion[1].Tarifa = "Borrada";
                            plataforma.sistema->estado = LecturaConexion::kConectado;
                            plataforma.sistema->entrada = "Trabajo";
                            for (int i = 0; i < 3; ++i) {
                                kReloj.Avanzar(20);
                                ventana.TickEstado();
                            }
                            return static_cast<QWidget*>(&ventana);
                        }});
    capturas.push_back({"menu-bandeja", [&] {
                            mnuOne->popup(QPoint(40, 40));
                            return static_cast<QWidget*>(mnuOne);
                        }});
    capturas.push_back({"menu-bandeja-conectar", [&] {
                            mnuCon->popup(QPoint(40, 40));
                            return static_cast<QWidget*>(mnuCon);
                        }});

    for (const Captura& c : capturas) {
        QWidget* w = c.crear();
        if (!Guardar(w, carpeta + "/" + c.nombre + ".png")) {
            return false;
        }
        if (w != &ventana) {
            w->hide();
        }
        if (w == &sinConexiones) {
            ventana.RellenaGrid(
                CriteriosFiltro::Periodo(ventana.InicioPeriodo(), ventana.FinPeriodo()));
        }
    }
    return true;
}
