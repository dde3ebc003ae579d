// Re-pricing a full register with data plans against the same without: the
// volume part (calls in order of start, each connection's cycle, the free
// reduced band) should not take more than the time part already does.

#include "CarpetaMedicion.h"
#include "register/FormatoRegistro.h"
#include "register/Importe.h"
#include "register/Log.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/PlanesJson.h"

#include <benchmark/benchmark.h>

using namespace vorimesk;

namespace {

// 32,767 calls on two connections, ten a day from 2000, each with traffic;
// "Movil" has no cycle of its own and follows the billing periods.
void PrepararRegistro(const std::filesystem::path& carpeta) {
    Log log(carpeta);
    for (int i = 0; i < kMaximoLlamadas; ++i) {
        log.AñadirItem(Fecha::Crear(2000, 1, 1).MasDias(i / 10),
                       Fecha::DesdeSegundos(36000 + 4000 * (i % 10)), "00:12:34",
                       TextoImporte(static_cast<float>(i) * 0.37f), 0, "Metropolitana",
                       i % 2 == 0 ? "Casa" : "Movil", "", 0, 700 + i % 1000, 150);
    }
    log.SalvarLog();
}

void PonerPlanes(const std::filesystem::path& carpeta) {
    Planes p;
    PlanDatos plan;
    plan.Tarifa = "Metropolitana";
    plan.IncluidoMB = 50;
    plan.PrecioMB = 12.5;
    plan.PasoKB = 10;
    plan.MinimoSesion = 2;
    plan.ReducidaGratis = true;
    p.planes.push_back(plan);
    ConexionPlan casa;
    casa.Conexion = "Casa";
    casa.Ciclo = CicloConexion{};
    casa.Ciclo->Dia = 31;
    p.conexiones.push_back(casa);
    GuardarPlanes(carpeta, p);
}

void Repreciar(benchmark::State& s, bool conPlanes) {
    medicion::CarpetaMedicion datos;
    PrepararRegistro(datos.Dir());
    if (conPlanes) {
        PonerPlanes(datos.Dir());
    }
    Log log(datos.Dir());
    log.CargarLog();
    cBono bono;
    bono.DiaFactura(15);
    const std::vector<Fecha> festivos = {Fecha::Crear(2000, 1, 6), Fecha::Crear(2001, 12, 25)};
    for (auto _ : s) {
        log.ModificarLog(bono, festivos);
    }
    s.counters["llamadas"] = log.Count();
}

} // namespace

static void BM_RepreciarSinPlanes(benchmark::State& s) {
    Repreciar(s, false);
}
BENCHMARK(BM_RepreciarSinPlanes)->Unit(benchmark::kMillisecond);

static void BM_RepreciarConPlanes(benchmark::State& s) {
    Repreciar(s, true);
}
BENCHMARK(BM_RepreciarConPlanes)->Unit(benchmark::kMillisecond);
