#pragma once
// The limits of a connection ("Limites" of its entry in Planes.json) against
// what it has used: which are reached now, and the words that tell it. A
// limit belongs to one cycle: the connection's volume cycle for "volumen",
// the billing period for "presupuesto"; a new cycle starts it afresh.

#include "core/Fecha.h"
#include "tariff/Planes.h"

#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// What a connection has used now, the running call included.
struct UsoLimites {
    std::string Conexion;
    // Volume in its cycle; none when its tariff has no plan.
    std::optional<double> UsadoMB;
    double IncluidoMB = 0.0;
    Fecha CicloVolumen; // first day of the volume cycle
    // Money in the billing period; no budget, no such limit.
    double Gastado = 0.0;
    std::optional<double> Presupuesto;
    Fecha CicloPresupuesto; // first day of the billing period
};

struct LimiteAlcanzado {
    std::string Conexion;
    LimiteConexion Limite;
    double Porcentaje = 0.0; // how far the use has gone, in % of the whole
    Fecha Ciclo;
    double Usado = 0.0; // MB or money
    double Total = 0.0; // allowance or budget

    // One text per limit and cycle: what is remembered once it acted.
    std::string Clave() const;
    // "La conexion Movil ha llegado al 80% de su volumen (0,80 de 1,00 MB)."
    std::string Texto() const;
};

// The limits of `conexion` that `uso` reaches, in the file's order.
std::vector<LimiteAlcanzado> LimitesAlcanzados(const ConexionPlan& conexion, const UsoLimites& uso);

} // namespace vorimesk
