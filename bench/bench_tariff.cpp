#include "core/Fecha.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <unistd.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// A data folder with the shipped book; pricing rereads it on every call, as
// the live meter does on every tick.
class Carpeta {
public:
    Carpeta() {
        std::string plantilla = (fs::temp_directory_path() / "vorimesk-bench-XXXXXX").string();
        if (::mkdtemp(plantilla.data()) == nullptr) {
            throw std::runtime_error("sin carpeta temporal");
        }
        dir_ = plantilla;
        InstalarLibroPorDefecto(dir_);
    }
    ~Carpeta() {
        std::error_code ec;
        fs::remove_all(dir_, ec);
    }
    const fs::path& Dir() const { return dir_; }

private:
    fs::path dir_;
};

const Fecha kInicio = Fecha::Crear(2026, 3, 6, 17, 30, 0); // viernes por la tarde

void Llamada(benchmark::State& estado, std::int64_t segundos, bool conBono) {
    Carpeta carpeta;
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
    Carpeta carpeta;
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
