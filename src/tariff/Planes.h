#pragma once
// The data plans of "Planes.json": per tariff, the volume allowance of a
// cycle and what the traffic past it costs; per connection, the cycle its
// allowance renews on and the limits a later meter may act on. The tariff
// book file itself is never extended with any of this, so other programs
// that read it keep working.
//
// Keys another program added are kept as their JSON text in `Otros`, so a
// file read and written again loses nothing.

#include "core/Fecha.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorimesk {

// Unknown members: key and JSON text, in file order.
using OtrosCampos = std::vector<std::pair<std::string, std::string>>;

struct PlanDatos {
    std::string Tarifa;        // the tariff of the book the plan belongs to
    double IncluidoMB = 0.0;   // allowance per cycle
    double PrecioMB = 0.0;     // per MB past it (1 MB = 1024 KB)
    std::int64_t PasoKB = 1;   // a session's volume is rounded up to a multiple of it
    double MinimoSesion = 0.0; // the least a session pays once any volume is billed
    bool ReducidaGratis = false;
    double CuotaPeriodo = 0.0; // flat fee per cycle, never inside a call's amount
    OtrosCampos Otros;
    bool operator==(const PlanDatos&) const = default;
};

struct CicloConexion {
    enum class Forma { Mensual, CadaDias, Bolsa };
    Forma Tipo = Forma::Mensual;
    int Dia = 1;      // Mensual: the day of the month it starts on
    int CadaDias = 0; // CadaDias: length in days
    Fecha Desde;      // CadaDias and Bolsa: the first day
    OtrosCampos Otros;
    bool operator==(const CicloConexion&) const = default;
};

struct LimiteConexion {
    double Porcentaje = 0.0;
    std::string De;     // "volumen" or "presupuesto"
    std::string Accion; // "avisar", "no-marcar" or "colgar"
    OtrosCampos Otros;
    bool operator==(const LimiteConexion&) const = default;
};

struct ConexionPlan {
    std::string Conexion; // the dial-up entry's name
    std::optional<CicloConexion> Ciclo;
    std::vector<LimiteConexion> Limites;
    OtrosCampos Otros;
    bool operator==(const ConexionPlan&) const = default;
};

struct Planes {
    std::vector<PlanDatos> planes;
    std::vector<ConexionPlan> conexiones;
    OtrosCampos Otros;

    // Exact names; null when there is none.
    const PlanDatos* Plan(std::string_view tarifa) const;
    const ConexionPlan* Conexion(std::string_view conexion) const;

    // Edits, as the editors make them. A plan replaces the one of its tariff
    // (or is added); renaming a tariff takes its plan along.
    void PonerPlan(const PlanDatos& plan);
    void QuitarPlan(std::string_view tarifa);
    void RenombrarPlan(std::string_view antes, const std::string& despues);
    // nullopt: the connection follows the billing periods. An entry left
    // with nothing of its own is removed.
    void PonerCiclo(const std::string& conexion, const std::optional<CicloConexion>& ciclo);
    bool operator==(const Planes&) const = default;
};

} // namespace vorimesk
