#include "Planes.h"

namespace vorimesk {

const PlanDatos* Planes::Plan(std::string_view tarifa) const {
    for (const PlanDatos& p : planes) {
        if (p.Tarifa == tarifa) {
            return &p;
        }
    }
    return nullptr;
}

const ConexionPlan* Planes::Conexion(std::string_view conexion) const {
    for (const ConexionPlan& c : conexiones) {
        if (c.Conexion == conexion) {
            return &c;
        }
    }
    return nullptr;
}

void Planes::PonerPlan(const PlanDatos& plan) {
    for (PlanDatos& p : planes) {
        if (p.Tarifa == plan.Tarifa) {
            p = plan;
            return;
        }
    }
    planes.push_back(plan);
}

void Planes::QuitarPlan(std::string_view tarifa) {
    std::erase_if(planes, [tarifa](const PlanDatos& p) { return p.Tarifa == tarifa; });
}

void Planes::RenombrarPlan(std::string_view antes, const std::string& despues) {
    if (antes == despues || Plan(despues) != nullptr) {
        return;
    }
    for (PlanDatos& p : planes) {
        if (p.Tarifa == antes) {
            p.Tarifa = despues;
        }
    }
}

void Planes::PonerCiclo(const std::string& conexion, const std::optional<CicloConexion>& ciclo) {
    for (ConexionPlan& c : conexiones) {
        if (c.Conexion == conexion) {
            c.Ciclo = ciclo;
            if (!c.Ciclo && c.Limites.empty() && c.Otros.empty()) {
                std::erase_if(conexiones, [&conexion](const ConexionPlan& x) {
                    return x.Conexion == conexion;
                });
            }
            return;
        }
    }
    if (ciclo) {
        conexiones.push_back({conexion, ciclo, {}, {}});
    }
}

} // namespace vorimesk
