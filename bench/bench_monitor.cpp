// One tick of the live meter on a call that has been up for 72 hours: the
// whole call is priced again from its start, the tariff file reread.

#include "CarpetaMedicion.h"
#include "core/Reloj.h"
#include "core/cTiempo.h"
#include "monitor/MonitorConexion.h"

#include <benchmark/benchmark.h>
#include <string>

using namespace vorimesk;

namespace {

using medicion::CarpetaMedicion;

class RegistroQuieto final : public RegistroMonitor {
public:
    bool ExisteModemLog() const override { return false; }
    bool AñadirLog(cBono&, const std::vector<Fecha>&, colConexion&) override { return false; }
    Fecha DateConexion() const override { return Fecha::Crear(2026, 3, 6, 17, 30, 0); }
    int Count() const override { return 0; }
    void SalvarLog() override {}
    LlamadaAnotada Anotada(int) const override { return {}; }
    SesionEnLog EstadoEnLog(Fecha) const override { return SesionEnLog::Ausente; }
    int AnotarVista(const LlamadaVista&, const std::filesystem::path&, cBono&,
                    const std::vector<Fecha>&) override {
        return 0;
    }
};

class MarcadorQuieto final : public Marcador {
public:
    void Marcar(const std::string&) override {}
    int Colgar(const std::string&) override { return 0; }
    int UltimoResultado() const override { return 0; }
};

void Tick72Horas(benchmark::State& estado, const char* descuento, bool completo) {
    CarpetaMedicion carpeta;
    RelojFijo reloj(Fecha::Crear(2026, 3, 6, 17, 30, 0)); // viernes por la tarde
    Settings ajustes;
    ajustes.EntradasConexion = {{"Casa", "Metropolitana", descuento}};
    ajustes.Festivos = {Fecha::Crear(2026, 3, 19)};
    ajustes.AvisoTiempo = ajustes.AvisoImporte = ajustes.AvisoBono = true;
    ajustes.ImporteAviso = "100000";
    cBono bono(reloj);
    bono.DarAlta(0, Fecha::Crear(2026, 3, 1));
    bono.DarAlta(2, Fecha::Crear(2026, 3, 1));
    colConexion pendientes;
    RegistroQuieto registro;
    MarcadorQuieto marcador;
    MonitorConexion monitor(reloj, ajustes, bono, pendientes, registro, marcador, carpeta.Dir());
    const LecturaConexion conectado{1, LecturaConexion::kConectado, "Casa"};
    monitor.Tick(conectado);
    reloj.Avanzar(72 * 3600);
    for (auto _ : estado) {
        reloj.Avanzar(1);
        if (completo) {
            benchmark::DoNotOptimize(monitor.Tick(conectado));
        } else {
            benchmark::DoNotOptimize(monitor.TickActual());
        }
    }
    if (cTiempo(monitor.Pantalla().Tiempo).ConvSegundos() < 72 * 3600) {
        estado.SkipWithError("la llamada no llego a las 72 horas");
    }
}

void BM_TickMedidor72Horas(benchmark::State& s) {
    Tick72Horas(s, "Ninguno", false);
}
void BM_TickMedidor72HorasBonoNet(benchmark::State& s) {
    Tick72Horas(s, "BonoNet", false);
}
// The state timer, the meter and the clock timer together, as every second.
void BM_TickCompleto72Horas(benchmark::State& s) {
    Tick72Horas(s, "Ninguno", true);
}

} // namespace

BENCHMARK(BM_TickMedidor72Horas)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TickMedidor72HorasBonoNet)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_TickCompleto72Horas)->Unit(benchmark::kMicrosecond);
