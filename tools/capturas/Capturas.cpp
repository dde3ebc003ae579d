// Writes a PNG of every window and dialog into the folder given as argument,
// for a person to look at (make screenshots; also at 200% with
// QT_SCALE_FACTOR=2). The main window's tabs and dialogs are in
// CapturasVentana.cpp. The register tools show a register of simulated calls
// from January to March, and the printed report goes to "informe.pdf".

#include "AnfitrionFalso.h"
#include "CapturasVentana.h"
#include "LlamadasSimuladas.h"
#include "register/Copias.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/LibroTarifas.h"
#include "tariff/PlanesJson.h"
#include "tariff/cBono.h"
#include "ui/AvisoCuentaAtras.h"
#include "ui/Mensajes.h"
#include "ui/PanelTarifa.h"
#include "ui/PanelUsoPlanes.h"
#include "ui/PilaPrograma.h"
#include "ui/TabResumen.h"
#include "ui/TablaBandas.h"
#include "ui/fAbout.h"
#include "ui/fArchivo.h"
#include "ui/fFiltro.h"
#include "ui/fGrafico.h"
#include "ui/fImprimir.h"
#include "ui/fPelmorad.h"
#include "ui/fPer.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimeEdit>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace vorimesk;

namespace {

// The data every tool window looks at.
struct Datos {
    QTemporaryDir temporal;
    std::filesystem::path carpeta{temporal.path().toStdString()};
    RelojFijo reloj{Fecha::Crear(2026, 3, 20, 18, 30, 0)};
    Log registro{carpeta};
    LibroTarifas libro{carpeta};
    cBono bono{reloj};
    std::unique_ptr<prueba::AnfitrionFalso> anfitrion;
    // Calls from January 2025 to March 2026, for the graphs over years.
    Log variosAños{carpeta / "varios"};

    Datos() {
        prueba::LlenarConLlamadas(registro, carpeta, Fecha::Crear(2026, 1, 1), 79);
        prueba::LlenarConLlamadas(variosAños, carpeta / "varios", Fecha::Crear(2025, 1, 5), 435);
        bono.DiaFactura(15);
        anfitrion = std::make_unique<prueba::AnfitrionFalso>(registro, libro.Actual(), reloj.Hoy());
        anfitrion->inicio = Fecha::Crear(2026, 2, 16);
        anfitrion->fin = Fecha::Crear(2026, 3, 15, 23, 59, 59);
        anfitrion->RellenaGrid(CriteriosFiltro::Periodo(anfitrion->inicio, anfitrion->fin));
        // Two archives made earlier, listed in the index.
        std::filesystem::create_directory(carpeta / "Copias");
        Copias copias(Copias::CarpetaDe(carpeta));
        copias.Archivar(registro, "Copia000.CPR", "Enero", Fecha::Crear(2026, 1, 1),
                        Fecha::Crear(2026, 1, 31), false);
        copias.Archivar(registro, "Copia001.CPR", "Febrero", Fecha::Crear(2026, 2, 1),
                        Fecha::Crear(2026, 2, 28), false);
        copias.GuardarIndice();
    }
};

struct Captura {
    const char* nombre;
    std::function<std::unique_ptr<QWidget>(Datos&)> crear;
};

// A data folder with the shipped tariff book, alive until the program ends.
std::filesystem::path CarpetaConLibro() {
    static QTemporaryDir dir;
    const std::filesystem::path ruta = dir.path().toStdString();
    InstalarLibroPorDefecto(ruta);
    return ruta;
}

std::unique_ptr<fPelmorad> Editor(int tarifa) {
    auto v = std::make_unique<fPelmorad>(CarpetaConLibro());
    v->Seleccionar(tarifa);
    return v;
}

// The editor while the user is getting a tariff wrong: a price with a comma,
// a Saturday with hours left out and overlapping.
std::unique_ptr<QWidget> EditorConProblemas() {
    auto v = Editor(2);
    auto* semana = v->findChild<QWidget*>("tablas_0");
    auto* sabado = v->findChild<QWidget*>("tablas_1");
    auto* precio = semana->findChild<QLineEdit*>("txtPrecio_1");
    precio->setText("5,94");
    emit precio->textEdited("5,94");
    sabado->findChild<QTimeEdit*>("tmeInicio_1")->setTime(QTime(16, 0));
    sabado->findChild<QTimeEdit*>("tmeFin_1")->setTime(QTime(9, 0));
    return v;
}

// A data plan on "Metropolitana": 300 MB a cycle; "Casa" renews on the
// 15th, "Oficina" is a bucket taken on 1 January.
void PonerPlanes(const std::filesystem::path& carpeta) {
    GuardarPlanes(carpeta, LeerPlanes(R"({"formato":"vorimesk-planes","version":1,
        "planes":[{"Tarifa":"Metropolitana","IncluidoMB":300,"PrecioMB":12.5,"PasoKB":100,
                   "MinimoSesion":5,"ReducidaGratis":false,"CuotaPeriodo":1500}],
        "conexiones":[{"Conexion":"Casa","Ciclo":{"Dia":15}},
                      {"Conexion":"Oficina","Ciclo":{"Desde":"2026-01-01"}}]})"));
}

std::unique_ptr<QWidget> EditorConVolumen() {
    static QTemporaryDir dir;
    const std::filesystem::path ruta = dir.path().toStdString();
    InstalarLibroPorDefecto(ruta);
    PonerPlanes(ruta);
    auto v = std::make_unique<fPelmorad>(ruta);
    v->Seleccionar(0);
    return v;
}

std::unique_ptr<QWidget> ResumenConPlanes(Datos& d) {
    PonerPlanes(d.carpeta);
    auto t = std::make_unique<TabResumen>();
    const auto usos =
        UsoDeCarpeta(d.carpeta, {}, d.bono, d.registro.Registros(),
                     {{"Casa", "Metropolitana"}, {"Oficina", "Metropolitana"}}, d.reloj.Hoy());
    t->UsoPlanes().Mostrar(usos.value_or(std::vector<UsoConexion>{}));
    t->setMinimumWidth(640);
    return t;
}

std::unique_ptr<QWidget> Asistente(Datos& d, std::int16_t accion, int pasos,
                                   const std::function<void(fArchivo&)>& antes = {}) {
    auto w = std::make_unique<fArchivo>(*d.anfitrion, d.registro, d.bono, d.reloj, d.carpeta);
    w->findChild<QListWidget*>("lAccion")->setCurrentRow(accion);
    for (int i = 0; i < pasos; ++i) {
        if (i == pasos - 1 && antes) {
            antes(*w);
        }
        w->Siguiente();
    }
    return w;
}

void ElegirCopia(fArchivo& w, const char* nombre) {
    auto* File1 = w.findChild<QListWidget*>("File1");
    const auto e = File1->findItems(nombre, Qt::MatchExactly);
    if (!e.isEmpty()) {
        File1->setCurrentItem(e.front());
    }
}

std::unique_ptr<QWidget> Grafico(Datos& d, int vista, int tipo, int dato, int mes = -1) {
    auto g = std::make_unique<fGrafico>(d.registro, d.reloj);
    g->findChild<QRadioButton*>(QString("Option1_%1").arg(vista))->click();
    g->findChild<QComboBox*>("cmbTipoGraf")->setCurrentIndex(tipo);
    g->findChild<QComboBox*>("cmbTipoDato")->setCurrentIndex(dato);
    if (mes >= 0) {
        g->findChild<QComboBox*>("Combo1")->setCurrentIndex(mes);
    }
    return g;
}

std::vector<Captura> Capturas() {
    return {
        {"acerca-de", [](Datos&) { return std::make_unique<fAbout>(); }},
        {"limite-cuenta-atras",
         [](Datos&) -> std::unique_ptr<QWidget> {
             return std::make_unique<AvisoCuentaAtras>(
                 "La conexion Movil ha llegado al 100% de su volumen (1,00 de 1,00 MB). La "
                 "llamada se colgara dentro de 30 segundos.",
                 30);
         }},
        {"limite-marcar-rechazado",
         [](Datos&) -> std::unique_ptr<QWidget> {
             return avisos::CajaForzarMarcado(
                 nullptr, "La conexion Movil ha llegado al 100% de su volumen (1,50 de 1,00 MB). "
                          "No se marca hasta que se renueve el ciclo.");
         }},
        {"banner-inicio",
         [](Datos&) {
             auto a = std::make_unique<fAbout>();
             a->ModoBanner(true);
             return a;
         }},
        {"pelmorad", [](Datos&) { return Editor(0); }},
        {"pelmorad-problemas", [](Datos&) { return EditorConProblemas(); }},
        {"filtro",
         [](Datos& d) {
             auto f = std::make_unique<fFiltro>(*d.anfitrion, d.reloj);
             f->findChild<QPushButton*>("bFec")->click();
             f->findChild<QDateEdit*>("fecDesde")->setDate(QDate(2026, 2, 16));
             f->findChild<QPushButton*>("bTiempo")->click();
             f->findChild<QTimeEdit*>("HoraTiempo")->setTime(QTime(0, 30, 0));
             f->findChild<QPushButton*>("bDia")->click();
             f->findChild<QComboBox*>("Combo4")->setCurrentIndex(2);
             return f;
         }},
        {"selector-periodos",
         [](Datos& d) {
             PilaPrograma().Meter(std::int64_t{15});
             PilaPrograma().Meter(std::int64_t{0});
             PilaPrograma().Meter(d.registro.Dia(0));
             return std::make_unique<fPer>(d.reloj);
         }},
        {"archivo-1-accion", [](Datos& d) { return Asistente(d, 0, 0); }},
        {"archivo-2-periodo", [](Datos& d) { return Asistente(d, 0, 1); }},
        {"archivo-3-nombre", [](Datos& d) { return Asistente(d, 0, 2); }},
        {"archivo-4-conservar", [](Datos& d) { return Asistente(d, 0, 3); }},
        {"archivo-recuperar-modo", [](Datos& d) { return Asistente(d, 1, 1); }},
        {"archivo-recuperar-lista",
         [](Datos& d) {
             auto w = Asistente(d, 1, 2, [](fArchivo& a) {
                 a.findChild<QRadioButton*>("Option3")->setChecked(true);
             });
             ElegirCopia(static_cast<fArchivo&>(*w), "Copia001.CPR");
             return w;
         }},
        {"archivo-ver",
         [](Datos& d) {
             return Asistente(d, 2, 2, [](fArchivo& a) { ElegirCopia(a, "Copia001.CPR"); });
         }},
        {"archivo-borrar",
         [](Datos& d) {
             return Asistente(d, 3, 2, [](fArchivo& a) { ElegirCopia(a, "Copia000.CPR"); });
         }},
        {"grafico-anual-barras2d", [](Datos& d) { return Grafico(d, 0, 0, 0); }},
        {"grafico-mensual-barras3d", [](Datos& d) { return Grafico(d, 1, 1, 1); }},
        {"grafico-diario-lineas", [](Datos& d) { return Grafico(d, 2, 2, 2, 1); }},
        {"grafico-diario-area", [](Datos& d) { return Grafico(d, 2, 3, 1, 2); }},
        {"grafico-diario-barras3d", [](Datos& d) { return Grafico(d, 2, 1, 0, 0); }},
        {"grafico-mensual-tiempo-barras2d", [](Datos& d) { return Grafico(d, 1, 0, 2); }},
        {"grafico-mensual-todos-los-anos",
         [](Datos& d) {
             auto g = std::make_unique<fGrafico>(d.variosAños, d.reloj);
             g->findChild<QRadioButton*>("Option1_1")->click();
             return g;
         }},
        {"grafico-anual-varios-anos",
         [](Datos& d) { return std::make_unique<fGrafico>(d.variosAños, d.reloj); }},
        // Shown, then back to the yearly view: the window keeps its size.
        {"grafico-anual-tras-diario",
         [](Datos& d) {
             auto g = std::make_unique<fGrafico>(d.registro, d.reloj);
             g->findChild<QRadioButton*>("Option1_2")->click();
             g->adjustSize();
             g->show();
             QApplication::processEvents();
             g->findChild<QRadioButton*>("Option1_0")->click();
             return g;
         }},
        {"imprimir", [](Datos& d) { return std::make_unique<fImprimir>(*d.anfitrion, d.libro); }},
        {"pelmorad-volumen", [](Datos&) { return EditorConVolumen(); }},
        {"resumen-planes", [](Datos& d) { return ResumenConPlanes(d); }},
        {"grafico-mensual-mb", [](Datos& d) { return Grafico(d, 1, 0, 3); }},
        {"grafico-diario-mb", [](Datos& d) { return Grafico(d, 2, 0, 3, 2); }},
    };
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    const QString carpeta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : "screenshots";
    QDir().mkpath(carpeta);
    Datos datos;
    for (const Captura& c : Capturas()) {
        auto ventana = c.crear(datos);
        ventana->adjustSize();
        ventana->show();
        QApplication::processEvents();
        const QString ruta = carpeta + "/" + c.nombre + ".png";
        if (!ConTitulo(ventana.get()).save(ruta)) {
            std::fprintf(stderr, "No se pudo guardar %s\n", qPrintable(ruta));
            return 1;
        }
        std::printf("%s\n", qPrintable(ruta));
    }
    fImprimir informe(*datos.anfitrion, datos.libro);
    informe.findChild<QCheckBox*>("Check2")->setChecked(true);
    const QString pdf = carpeta + "/informe.pdf";
    if (!informe.ImprimirPdf(pdf)) {
        std::fprintf(stderr, "No se pudo escribir %s\n", qPrintable(pdf));
        return 1;
    }
    std::printf("%s\n", qPrintable(pdf));
    return CapturarVentana(carpeta) ? 0 : 1;
}
