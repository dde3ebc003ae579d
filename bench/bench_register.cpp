#include "CarpetaMedicion.h"
#include "register/ComparacionTarifas.h"
#include "register/FormatoRegistro.h"
#include "register/Importe.h"
#include "register/Log.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <numeric>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// A data folder holding a full register: 32,767 calls, the most it takes.
class RegistroLleno {
public:
    RegistroLleno() {
        Log log(Carpeta());
        for (int i = 0; i < kMaximoLlamadas; ++i) {
            log.AñadirItem(Fecha::Crear(2000, 1, 1).MasDias(i / 10),
                           Fecha::DesdeSegundos(36000 + 60 * (i % 10)), "00:12:34",
                           TextoImporte(static_cast<float>(i) * 0.37f), i % 2, "Metropolitana",
                           "Conexion casa", "", i % 3 == 0 ? -1 : 0, i, 2 * i);
        }
        log.SalvarLog();
    }
    const fs::path& Carpeta() const { return carpeta_.Dir(); }

private:
    medicion::CarpetaMedicion carpeta_;
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

// Re-pricing the whole register after a tariff edit: every call priced again
// with the ledger and the book as the register's holder keeps it.
static void BM_ModificarLogRegistroLleno(benchmark::State& s) {
    RegistroLleno datos;
    Log log(datos.Carpeta());
    log.CargarLog();
    cBono bono;
    bono.DiaFactura(15);
    bono.DarAlta(1, Fecha::Crear(2000, 1, 1));
    bono.DarAlta(3, Fecha::Crear(2000, 1, 1));
    const std::vector<Fecha> festivos = {Fecha::Crear(2000, 1, 6), Fecha::Crear(2001, 12, 25)};
    for (auto _ : s) {
        log.ModificarLog(bono, festivos);
    }
    s.counters["llamadas"] = log.Count();
}
BENCHMARK(BM_ModificarLogRegistroLleno)->Unit(benchmark::kMillisecond);

// What a full register would have cost under each of the 5 tariffs of the
// shipped book, with the user's bonos and without: ten pricings of every call.
static void BM_CompararTarifasRegistroLleno(benchmark::State& s) {
    RegistroLleno datos;
    Log log(datos.Carpeta());
    log.CargarLog();
    cBono bono;
    bono.DiaFactura(15);
    bono.DarAlta(1, Fecha::Crear(2000, 1, 1));
    bono.DarAlta(3, Fecha::Crear(2000, 1, 1));
    const std::vector<Fecha> festivos = {Fecha::Crear(2000, 1, 6), Fecha::Crear(2001, 12, 25)};
    std::vector<int> todas(static_cast<std::size_t>(log.Count()));
    std::iota(todas.begin(), todas.end(), 0);
    for (auto _ : s) {
        const ComparacionTarifas c = CompararTarifas(log, todas, datos.Carpeta(), bono, festivos);
        benchmark::DoNotOptimize(c.MasBarata);
    }
    s.counters["llamadas"] = log.Count();
}
BENCHMARK(BM_CompararTarifasRegistroLleno)->Unit(benchmark::kMillisecond);

namespace {

// A modem log of `n` complete sessions, one a day from 1 Jan 2000, as the
// pppd hook writes them.
std::string LogDeSesiones(int n) {
    std::string texto;
    char linea[128];
    for (int i = 0; i < n; ++i) {
        const Fecha dia = Fecha::Crear(2000, 1, 1).MasDias(i);
        const auto Linea = [&](int h, int m, const char* mensaje) {
            std::snprintf(linea, sizeof linea, "%02d-%02d-%04d %02d:%02d:00.00 - %s\r\n", dia.Mes(),
                          dia.Dia(), dia.Año(), h, m, mensaje);
            texto += linea;
        };
        Linea(10 + i % 12, 0, "Modem in use: ppp0 /dev/ttyS0 casa");
        Linea(10 + i % 12, 0, "CONNECT 115200");
        Linea(10 + i % 12, 25, "Reads : 1536000 bytes");
        Linea(10 + i % 12, 25, "Writes: 204800 bytes");
        Linea(10 + i % 12, 25, "Modem closed.");
    }
    return texto;
}

} // namespace

// Reading a log of 5,000 sessions into an empty register (the log is copied
// back before each run, since a successful read deletes it).
static void BM_LeerModemLog5000Sesiones(benchmark::State& s) {
    RegistroLleno datos;
    const fs::path original = datos.Carpeta() / "original.txt";
    const fs::path modemlog = datos.Carpeta() / "modemlog.txt";
    {
        std::FILE* f = std::fopen(original.c_str(), "wb");
        const std::string texto = LogDeSesiones(5000);
        std::fwrite(texto.data(), 1, texto.size(), f);
        std::fclose(f);
    }
    int llamadas = 0;
    for (auto _ : s) {
        s.PauseTiming();
        fs::copy_file(original, modemlog, fs::copy_options::overwrite_existing);
        Log log(datos.Carpeta());
        log.NombreLog(modemlog.string());
        cBono bono;
        bono.DarAlta(1, Fecha::Crear(2000, 1, 1));
        colConexion pendientes;
        s.ResumeTiming();
        if (!log.AñadirLog(bono, {}, pendientes)) {
            s.SkipWithError("el log no se leyo");
        }
        llamadas = log.Count();
    }
    s.counters["llamadas"] = llamadas;
}
BENCHMARK(BM_LeerModemLog5000Sesiones)->Unit(benchmark::kMillisecond);
