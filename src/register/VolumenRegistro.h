#pragma once
// The volume part of the calls of a register under the data plans of the
// data folder ("Planes.json"): each call's counted kilobytes and their cost,
// with the allowance of its connection's cycle drawn down by the calls of
// that connection that started before it in the same cycle, whatever their
// order in the register. A connection without a cycle of its own follows the
// user's billing periods, as the summary cuts them.
//
// A call's plan is the one of its tariff (the default tariff when it names
// none); a call with no plan has no volume part and draws nothing.

#include "RegistroLlamada.h"
#include "tariff/PeriodoEnCurso.h"
#include "tariff/Planes.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

struct VolumenLlamada {
    const PlanDatos* Plan = nullptr; // null: no plan, nothing below counts
    std::int64_t ContadoKB = 0;      // stepped, against the allowance
    std::int64_t UsadoAntesKB = 0;   // the cycle's use before the call
    double Importe = 0.0;
    std::optional<PeriodoFacturacion> Ciclo;
};

class VolumenRegistro {
public:
    // `libro` gives the bands of a free reduced band, with its holidays;
    // `periodos` are the user's billing periods, oldest first.
    VolumenRegistro(Planes planes, cLlamada libro, std::vector<PeriodoFacturacion> periodos);

    // The plans of `carpeta` for calls from `primera` (the register's first
    // call's day) to `hasta`; nullopt when the folder holds no plan file.
    // Throws ErrorPlanes for a damaged one.
    static std::optional<VolumenRegistro> DeCarpeta(const std::filesystem::path& carpeta,
                                                    const std::vector<Fecha>& festivos,
                                                    const cBono& bono, Fecha primera, Fecha hasta);

    // One result per call, in the calls' order. With `tarifa`, every call is
    // taken as priced under that tariff.
    std::vector<VolumenLlamada> Preciar(const std::vector<RegistroLlamada>& llamadas,
                                        std::string_view tarifa = {}) const;

    // The stepped kilobytes the calls of `llamadas` on `conexion` that
    // started before `inicio` used in the cycle that holds it.
    std::int64_t UsadoAntes(const std::vector<RegistroLlamada>& llamadas, std::string_view conexion,
                            Fecha inicio) const;
    // A call running now on `conexion` under `tarifa`, from `inicio` to
    // `ahora` with `kb` so far, after `usadoAntes` of the cycle was used.
    VolumenLlamada PreciarEnCurso(std::string_view conexion, std::string_view tarifa, Fecha inicio,
                                  Fecha ahora, std::int64_t kb, std::int64_t usadoAntes) const;

    // The cycle of `conexion` that holds `dia`.
    std::optional<PeriodoFacturacion> Ciclo(std::string_view conexion, Fecha dia) const;
    const PlanDatos* PlanDe(std::string_view tarifa) const;
    const Planes& PlanesDatos() const { return planes_; }
    const std::string& TarifaPorDefecto() const { return libro_.NombreTarifa(); }

private:
    VolumenLlamada Una(const PlanDatos* plan, std::string_view tarifa, std::string_view conexion,
                       Fecha inicio, Fecha fin, std::int64_t kb, std::int64_t& usado) const;

    Planes planes_;
    cLlamada libro_;
    std::vector<PeriodoFacturacion> periodos_;
};

// Each call's volume cost under the plans of `carpeta`, for the register's
// re-pricing; empty when the folder holds no plan file.
std::vector<float> VolumenDeLlamadas(const std::filesystem::path& carpeta,
                                     const std::vector<Fecha>& festivos, const cBono& bono,
                                     const std::vector<RegistroLlamada>& llamadas,
                                     std::string_view tarifa = {});

// The start of a stored call.
Fecha InicioLlamada(const RegistroLlamada& r);

} // namespace vorimesk
