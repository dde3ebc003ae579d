// The register tools on a full register (32,767 calls, the most it holds):
// a filter with several criteria on, as "&Aplicar" asks for it, and the
// graph window's day sums and points.

#include "CarpetaMedicion.h"
#include "register/FormatoRegistro.h"
#include "register/GraficoRegistro.h"
#include "register/Importe.h"
#include "register/ListadoRegistro.h"
#include "tariff/cLlamada.h"

#include <benchmark/benchmark.h>

using namespace vorimesk;

namespace {

// A data folder with the shipped tariff book and a full register in memory:
// about nine calls a day over ten years, some holidays.
class RegistroLleno {
public:
    RegistroLleno() : libro_(carpeta_.Dir()), registro_(carpeta_.Dir()) {
        libro_.Load();
        std::vector<Fecha> festivos;
        for (int año = 2000; año < 2010; ++año) {
            festivos.push_back(Fecha::Crear(año, 1, 1));
            festivos.push_back(Fecha::Crear(año, 12, 25));
        }
        libro_.Festivos(festivos);
        for (int i = 0; i < kMaximoLlamadas; ++i) {
            const int segundos = 60 * (3 + i % 97);
            cTiempo duracion;
            duracion.ConvTiempo(segundos);
            registro_.AñadirItem(Fecha::Crear(2000, 1, 1).MasDias(i / 9),
                                 Fecha::DesdeSegundos(28800 + 5400 * (i % 9)), duracion.Valor(),
                                 TextoImporte(static_cast<float>(i % 400) * 0.73f), i % 2,
                                 "Metropolitana", "Casa", "", i % 3 == 0 ? -1 : 0, i, 2 * i);
        }
    }
    const Log& Registro() const { return registro_; }
    const cLlamada& Libro() const { return libro_; }

private:
    medicion::CarpetaMedicion carpeta_;
    cLlamada libro_;
    Log registro_;
};

RegistroLleno& Datos() {
    static RegistroLleno datos;
    return datos;
}

} // namespace

// Dates over the whole register, evening hours, reduced band, no bono,
// weekdays and calls longer than five minutes: every test runs on most calls.
static void BM_FiltroVariosCriterios(benchmark::State& s) {
    const RegistroLleno& d = Datos();
    CriteriosFiltro c;
    c.desde = Fecha::Crear(2000, 1, 1);
    c.hasta = Fecha::Crear(2010, 12, 31);
    c.horaDesde = Fecha::DesdeSegundos(8 * 3600);
    c.horaHasta = Fecha::DesdeSegundos(23 * 3600);
    c.tipo = 1;
    c.bono = 0;
    c.tipoDia = 0;
    c.comparacion = 0;
    c.duracion = "00:05:00";
    const TipoDiaDe tipoDia = [&d](Fecha f) { return d.Libro().TipoDia(f); };
    std::size_t listadas = 0;
    for (auto _ : s) {
        const Listado l =
            ListarRegistro(d.Registro(), c, tipoDia, {true, 16.0F}, Fecha::Crear(2010, 1, 1));
        listadas = l.indices.size();
        benchmark::DoNotOptimize(l.TotalCoste);
    }
    s.counters["listadas"] = static_cast<double>(listadas);
}
BENCHMARK(BM_FiltroVariosCriterios)->Unit(benchmark::kMillisecond);

// "&Ver todos": every call listed, totals included.
static void BM_FiltroVerTodos(benchmark::State& s) {
    const RegistroLleno& d = Datos();
    const TipoDiaDe tipoDia = [&d](Fecha f) { return d.Libro().TipoDia(f); };
    for (auto _ : s) {
        benchmark::DoNotOptimize(
            ListarRegistro(d.Registro(), {}, tipoDia, {}, Fecha::Crear(2010, 1, 1)).TotalCoste);
    }
}
BENCHMARK(BM_FiltroVerTodos)->Unit(benchmark::kMillisecond);

// What the graph window does each time it comes to the front.
static void BM_GraficoSumasPorDia(benchmark::State& s) {
    const RegistroLleno& d = Datos();
    for (auto _ : s) {
        benchmark::DoNotOptimize(AgregarPorDia(d.Registro()).size());
    }
}
BENCHMARK(BM_GraficoSumasPorDia)->Unit(benchmark::kMillisecond);

// The points of each view from the day sums (3,641 days).
static void BM_GraficoPuntos(benchmark::State& s) {
    const auto dias = AgregarPorDia(Datos().Registro());
    const auto meses = ElementosCombo(dias, VistaGrafico::Diario);
    const auto años = ElementosCombo(dias, VistaGrafico::Mensual);
    const Fecha hoy = Fecha::Crear(2010, 1, 1);
    for (auto _ : s) {
        benchmark::DoNotOptimize(
            PuntosGrafico(dias, VistaGrafico::Anual, DatoGrafico::Gasto, {}, hoy).size());
        benchmark::DoNotOptimize(
            PuntosGrafico(dias, VistaGrafico::Mensual, DatoGrafico::Tiempo, años.back(), hoy)
                .size());
        benchmark::DoNotOptimize(
            PuntosGrafico(dias, VistaGrafico::Diario, DatoGrafico::Llamadas, meses.back(), hoy)
                .size());
    }
}
BENCHMARK(BM_GraficoPuntos)->Unit(benchmark::kMicrosecond);
