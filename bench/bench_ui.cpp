// The main window on a full register (32,767 calls): opening it up to its
// first paint, refilling the register grid with every call, and one second
// of a long call shown in the window and the mini window.

#include "PlataformaPrueba.h"
#include "register/Importe.h"
#include "register/Log.h"
#include "tariff/LibroPorDefecto.h"
#include "ui/EntornoVentana.h"
#include "ui/TabRegistro.h"
#include "ui/fMain.h"
#include "ui/fMini.h"

#include <QApplication>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

const RelojFijo kReloj(Fecha::Crear(2026, 3, 20, 12, 0, 0));

// Made once: writing 32,767 calls is not what is measured.
const std::filesystem::path& CarpetaLlena() {
    static QTemporaryDir temporal;
    static const std::filesystem::path dir = [] {
        const std::filesystem::path d = temporal.path().toStdString();
        InstalarLibroPorDefecto(d);
        Log registro(d);
        const char* tarifas[] = {"Metropolitana", "Provincial", "Infovia"};
        for (int i = 0; i < 32767; ++i) {
            const Fecha dia = Fecha::Crear(2003, 11, 1).MasDias(i / 4);
            cTiempo duracion;
            duracion.ConvTiempo(60 + i % 3600);
            registro.AñadirItem(dia, Fecha::DesdeSegundos(i % 86400), duracion.Valor(),
                                TextoImporte(11.72F + (i % 500) * 1.3F),
                                static_cast<std::uint8_t>(i % 2), tarifas[i % 3], "Casa", "",
                                static_cast<std::int16_t>(i % 7 == 0 ? -1 : 0), i % 900, i % 300);
        }
        registro.SalvarLog();
        return d;
    }();
    return dir;
}

std::unique_ptr<fMain> Ventana(const PlataformaPrueba& plataforma) {
    EntornoVentana e;
    e.carpetaDatos = CarpetaLlena();
    e.plataforma = plataforma.Crear();
    e.reloj = &kReloj;
    return std::make_unique<fMain>(e);
}

// Load, show on the register tab and paint once.
void BM_AbrirVentana(benchmark::State& estado) {
    PlataformaPrueba plataforma;
    plataforma.sistema->modems = {{"ttyS0", "Modem", CarpetaLlena() / "modemlog.txt"}};
    for (auto _ : estado) {
        auto v = Ventana(plataforma);
        v->Cargar();
        v->findChild<QTabWidget*>("SSTab1")->setCurrentIndex(fMain::kRegistro);
        v->show();
        v->repaint();
        QApplication::processEvents();
        benchmark::DoNotOptimize(v->UltimoListado().NumeroLlamadas);
        estado.PauseTiming();
        v.reset();
        QApplication::processEvents();
        estado.ResumeTiming();
    }
}
BENCHMARK(BM_AbrirVentana)->Unit(benchmark::kMillisecond)->Iterations(5);

// Every call listed, then the grid painted again.
void BM_RellenaGrid(benchmark::State& estado) {
    PlataformaPrueba plataforma;
    plataforma.sistema->modems = {{"ttyS0", "Modem", CarpetaLlena() / "modemlog.txt"}};
    auto v = Ventana(plataforma);
    v->Cargar();
    v->findChild<QTabWidget*>("SSTab1")->setCurrentIndex(fMain::kRegistro);
    v->show();
    QApplication::processEvents();
    const CriteriosFiltro todas;
    for (auto _ : estado) {
        v->RellenaGrid(todas);
        v->findChild<QTableView*>("Grid1")->viewport()->repaint();
        benchmark::DoNotOptimize(v->UltimoListado().TotalCoste);
    }
    estado.counters["llamadas"] = v->UltimoListado().NumeroLlamadas;
}
BENCHMARK(BM_RellenaGrid)->Unit(benchmark::kMillisecond);

// One second of a call three hours in, as the user sees it: the state and
// meter tick on the full register, then the panel and the mini window
// painted with its figures.
void BM_TickConMiniVentana(benchmark::State& estado) {
    PlataformaPrueba plataforma;
    plataforma.sistema->modems = {{"ttyS0", "Modem", CarpetaLlena() / "modemlog.txt"}};
    plataforma.sistema->estado = LecturaConexion::kConectado;
    plataforma.sistema->entrada = "Casa";
    RelojFijo reloj(Fecha::Crear(2026, 3, 20, 9, 0, 0));
    EntornoVentana e;
    e.carpetaDatos = CarpetaLlena();
    e.plataforma = plataforma.Crear();
    e.reloj = &reloj;
    fMain v(e);
    v.Cargar();
    v.show();
    v.TickEstado();
    v.MostrarMini();
    reloj.Avanzar(3 * 3600);
    for (auto _ : estado) {
        reloj.Avanzar(1);
        v.TickEstado();
        v.repaint();
        v.Mini()->repaint();
    }
    estado.counters["segundos"] =
        static_cast<double>(reloj.Ahora().Segundos() - v.Monitor().InicioLlamada().Segundos());
}
BENCHMARK(BM_TickConMiniVentana)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
