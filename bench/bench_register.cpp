#include "register/FormatoRegistro.h"
#include "register/Importe.h"
#include "register/Log.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// A data folder holding a full register: 32,767 calls, the most it takes.
class RegistroLleno {
public:
    RegistroLleno() {
        std::string plantilla = (fs::temp_directory_path() / "vorimesk-bench-XXXXXX").string();
        if (::mkdtemp(plantilla.data()) == nullptr) {
            std::abort();
        }
        dir_ = plantilla;
        Log log(dir_);
        for (int i = 0; i < kMaximoLlamadas; ++i) {
            log.AñadirItem(Fecha::Crear(2000, 1, 1).MasDias(i / 10),
                           Fecha::DesdeSegundos(36000 + 60 * (i % 10)), "00:12:34",
                           TextoImporte(static_cast<float>(i) * 0.37f), i % 2, "Metropolitana",
                           "Conexion casa", "", i % 3 == 0 ? -1 : 0, i, 2 * i);
        }
        log.SalvarLog();
    }
    ~RegistroLleno() { fs::remove_all(dir_); }
    const fs::path& Carpeta() const { return dir_; }

private:
    fs::path dir_;
};

} // namespace

// What the main window does at start and after every change.
static void BM_CargarYSalvarRegistroLleno(benchmark::State& s) {
    RegistroLleno datos;
    Log log(datos.Carpeta());
    for (auto _ : s) {
        log.CargarLog();
        log.SalvarLog();
    }
    s.counters["llamadas"] = log.Count();
}
BENCHMARK(BM_CargarYSalvarRegistroLleno)->Unit(benchmark::kMillisecond);

// The same without the disk: the record codec alone.
static void BM_CodificarRegistroLleno(benchmark::State& s) {
    RegistroLleno datos;
    Log log(datos.Carpeta());
    log.CargarLog();
    std::vector<RegistroLlamada> registros;
    for (int i = 0; i < log.Count(); ++i) {
        registros.push_back(log.Registro(i));
    }
    for (auto _ : s) {
        const std::string bytes = EscribirRegistros(registros);
        benchmark::DoNotOptimize(LeerRegistros(bytes).size());
    }
}
BENCHMARK(BM_CodificarRegistroLleno)->Unit(benchmark::kMillisecond);
