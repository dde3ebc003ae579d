#include "CarpetaMedicion.h"
#include "core/Fecha.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <benchmark/benchmark.h>
#include <string>

using namespace vorimesk;

namespace {

// Pricing rereads the shipped book on every call, as the live meter does on
// every tick.
using medicion::CarpetaMedicion;

const Fecha kInicio = Fecha::Crear(2026, 3, 6, 17, 30, 0); // viernes por la tarde

void Llamada(benchmark::State& estado, std::int64_t segundos, bool conBono) {
    CarpetaMedicion carpeta;
    cLlamada libro(carpeta.Dir());
    libro.Festivos({Fecha::Crear(2026, 3, 19)});
    cBono bono;
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1));
    bono.DarAlta(2, Fecha::Crear(2026, 3, 1));
    for (auto _ : estado) {
        libro.Datos(kInicio, kInicio.MasSegundos(segundos), conBono ? &bono : nullptr,
                    "Metropolitana");
        benchmark::DoNotOptimize(libro.importe());
    }
}

void BM_DatosUnMinuto(benchmark::State& s) {
    Llamada(s, 60, false);
}
void BM_DatosUnaHora(benchmark::State& s) {
    Llamada(s, 3600, false);
}
void BM_DatosSetentaYDosHoras(benchmark::State& s) {
    Llamada(s, 72 * 3600, false);
}
void BM_DatosSetentaYDosHorasConBono(benchmark::State& s) {
    Llamada(s, 72 * 3600, true);
}

// Re-pricing a register: one book, a thousand calls of varied length.
void BM_DatosMilLlamadas(benchmark::State& estado) {
    CarpetaMedicion carpeta;
    cLlamada libro(carpeta.Dir());
    cBono bono;
    bono.DarAlta(1, Fecha::Crear(2026, 1, 1));
    for (auto _ : estado) {
        for (int i = 0; i < 1000; ++i) {
            const Fecha inicio = Fecha::Crear(2026, 1, 1).MasSegundos(i * 7919LL * 13);
            libro.Datos(inicio, inicio.MasSegundos(60 + (i * 37) % 7200), &bono,
                        i % 3 == 0 ? "Provincial" : "Metropolitana");
            benchmark::DoNotOptimize(libro.importe());
        }
    }
}

} // namespace

BENCHMARK(BM_DatosUnMinuto)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DatosUnaHora)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DatosSetentaYDosHoras)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DatosSetentaYDosHorasConBono)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_DatosMilLlamadas)->Unit(benchmark::kMillisecond);
