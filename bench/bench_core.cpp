#include "core/Fecha.h"
#include "core/Texto1252.h"
#include "core/cTiempo.h"

#include <benchmark/benchmark.h>

using namespace vorimesk;

// Every register row and every price goes through these conversions.
static void BM_cTiempoLeerYEscribir(benchmark::State& s) {
    for (auto _ : s) {
        cTiempo t("123:45:06");
        t.Sumar("0:0:1");
        benchmark::DoNotOptimize(t.Valor());
    }
}
BENCHMARK(BM_cTiempoLeerYEscribir);

static void BM_FechaOleIdaYVuelta(benchmark::State& s) {
    double ole = 36482.5;
    for (auto _ : s) {
        const Fecha f = Fecha::DesdeOle(ole);
        benchmark::DoNotOptimize(f.Año() + f.Mes() + f.Dia());
        ole = f.AOle() + 0.25;
    }
}
BENCHMARK(BM_FechaOleIdaYVuelta);

static void BM_Texto1252(benchmark::State& s) {
    const std::string texto = "Metropolitana Ñandú €";
    for (auto _ : s) {
        benchmark::DoNotOptimize(De1252(A1252(texto)));
    }
}
BENCHMARK(BM_Texto1252);
