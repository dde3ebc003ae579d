#include "VolumenRegistro.h"

#include "PrecioRegistro.h"
#include "core/cTiempo.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/CicloPlan.h"
#include "tariff/PeriodosFacturacion.h"
#include "tariff/PrecioVolumen.h"

#include <algorithm>
#include <map>
#include <numeric>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

constexpr const char* kTarifaPorDefecto = "Metropolitana";
// Far enough for any billing interval, as the summary's current period.
constexpr int kHorizonteDias = 400;

using ClaveCiclo = std::pair<std::string, std::int64_t>;

} // namespace

Fecha InicioLlamada(const RegistroLlamada& r) {
    return PrecioRegistro::Inicio(r);
}

VolumenRegistro::VolumenRegistro(Planes planes, cLlamada libro,
                                 std::vector<PeriodoFacturacion> periodos)
    : planes_(std::move(planes)), libro_(std::move(libro)), periodos_(std::move(periodos)) {
    if (libro_.NombreTarifa().empty()) {
        libro_.NombreTarifa(kTarifaPorDefecto);
    }
}

std::optional<VolumenRegistro> VolumenRegistro::DeCarpeta(const fs::path& carpeta,
                                                          const std::vector<Fecha>& festivos,
                                                          const cBono& bono, Fecha primera,
                                                          Fecha hasta) {
    std::optional<Planes> planes = CargarPlanes(carpeta);
    if (!planes) {
        return std::nullopt;
    }
    cLlamada libro(carpeta);
    libro.Load();
    libro.Festivos(festivos);
    libro.NombreTarifa(kTarifaPorDefecto);
    return VolumenRegistro(std::move(*planes), std::move(libro),
                           PeriodosFacturacion(bono.DiaFactura(), bono.perFactura(), primera,
                                               hasta.MasDias(kHorizonteDias)));
}

const PlanDatos* VolumenRegistro::PlanDe(std::string_view tarifa) const {
    return planes_.Plan(tarifa.empty() ? std::string_view(libro_.NombreTarifa()) : tarifa);
}

std::optional<PeriodoFacturacion> VolumenRegistro::Ciclo(std::string_view conexion,
                                                         Fecha dia) const {
    const ConexionPlan* c = planes_.Conexion(conexion);
    if (c != nullptr && c->Ciclo) {
        return CicloEn(*c->Ciclo, dia);
    }
    dia = dia.SoloFecha();
    const auto p = std::lower_bound(
        periodos_.begin(), periodos_.end(), dia,
        [](const PeriodoFacturacion& periodo, Fecha d) { return periodo.fin < d; });
    if (p != periodos_.end() && p->inicio <= dia) {
        return *p;
    }
    return PeriodoFacturacion{dia, dia};
}

VolumenLlamada VolumenRegistro::Una(const PlanDatos* plan, std::string_view tarifa,
                                    std::string_view conexion, Fecha inicio, Fecha fin,
                                    std::int64_t kb, std::int64_t& usado) const {
    VolumenLlamada v;
    v.Plan = plan;
    if (plan == nullptr) {
        return v;
    }
    std::int64_t reducida = 0;
    if (plan->ReducidaGratis) {
        const std::int16_t t =
            libro_.Find(tarifa.empty() ? std::string_view(libro_.NombreTarifa()) : tarifa);
        reducida = t < 0 ? 0 : SegundosReducida(libro_, t, inicio, fin);
    }
    v.Ciclo = Ciclo(conexion, inicio);
    v.ContadoKB = VolumenContado(*plan, kb, fin.Segundos() - inicio.Segundos(), reducida);
    // Before a bucket starts there is no allowance to draw from.
    v.UsadoAntesKB = v.Ciclo ? usado : static_cast<std::int64_t>(plan->IncluidoMB * 1024.0);
    v.Importe = ImporteVolumen(*plan, v.ContadoKB, v.UsadoAntesKB);
    if (v.Ciclo) {
        usado += v.ContadoKB;
    }
    return v;
}

std::vector<VolumenLlamada> VolumenRegistro::Preciar(const std::vector<RegistroLlamada>& llamadas,
                                                     std::string_view tarifa) const {
    std::vector<std::size_t> orden(llamadas.size());
    std::iota(orden.begin(), orden.end(), std::size_t{0});
    std::vector<Fecha> inicios(llamadas.size());
    for (std::size_t i = 0; i < llamadas.size(); ++i) {
        inicios[i] = InicioLlamada(llamadas[i]);
    }
    std::stable_sort(orden.begin(), orden.end(),
                     [&](std::size_t a, std::size_t b) { return inicios[a] < inicios[b]; });
    std::map<ClaveCiclo, std::int64_t> usado;
    std::vector<VolumenLlamada> resultado(llamadas.size());
    for (const std::size_t i : orden) {
        const RegistroLlamada& r = llamadas[i];
        const std::string nombre = tarifa.empty() ? r.Tarifa.Recortado() : std::string(tarifa);
        const std::string conexion(r.Conexion.Recortado());
        const PlanDatos* plan = PlanDe(nombre);
        if (plan == nullptr) {
            continue;
        }
        const auto ciclo = Ciclo(conexion, inicios[i]);
        std::int64_t& enCiclo = usado[{conexion, ciclo ? ciclo->inicio.Segundos() : 0}];
        const Fecha fin = PrecioRegistro::Fin(r);
        resultado[i] = Una(plan, nombre, conexion, inicios[i], fin,
                           std::int64_t{r.Recibidos} + r.Enviados, enCiclo);
    }
    return resultado;
}

std::int64_t VolumenRegistro::UsadoAntes(const std::vector<RegistroLlamada>& llamadas,
                                         std::string_view conexion, Fecha inicio) const {
    const auto ciclo = Ciclo(conexion, inicio);
    if (!ciclo) {
        return 0;
    }
    const std::vector<VolumenLlamada> antes = Preciar(llamadas);
    std::int64_t usado = 0;
    for (std::size_t i = 0; i < llamadas.size(); ++i) {
        if (antes[i].Plan != nullptr && antes[i].Ciclo == ciclo &&
            InicioLlamada(llamadas[i]) < inicio && llamadas[i].Conexion.Recortado() == conexion) {
            usado += antes[i].ContadoKB;
        }
    }
    return usado;
}

VolumenLlamada VolumenRegistro::PreciarEnCurso(std::string_view conexion, std::string_view tarifa,
                                               Fecha inicio, Fecha ahora, std::int64_t kb,
                                               std::int64_t usadoAntes) const {
    return Una(PlanDe(tarifa), tarifa, conexion, inicio, ahora, kb, usadoAntes);
}

std::vector<float> VolumenDeLlamadas(const fs::path& carpeta, const std::vector<Fecha>& festivos,
                                     const cBono& bono,
                                     const std::vector<RegistroLlamada>& llamadas,
                                     std::string_view tarifa) {
    if (llamadas.empty()) {
        return {};
    }
    Fecha ultima = InicioLlamada(llamadas.front());
    for (const RegistroLlamada& r : llamadas) {
        ultima = std::max(ultima, InicioLlamada(r));
    }
    const auto volumen = VolumenRegistro::DeCarpeta(carpeta, festivos, bono,
                                                    Fecha::DesdeOle(llamadas.front().Dia), ultima);
    if (!volumen) {
        return {};
    }
    std::vector<float> importes;
    importes.reserve(llamadas.size());
    for (const VolumenLlamada& v : volumen->Preciar(llamadas, tarifa)) {
        importes.push_back(static_cast<float>(v.Importe));
    }
    return importes;
}

} // namespace vorimesk
