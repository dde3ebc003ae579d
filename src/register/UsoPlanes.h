#pragma once
// Where each connection with a data plan stands in its cycle on a day: what
// it has used of its allowance, what is left, the daily fair share (what is
// left divided by the days left, that day included) and the forecast at the
// cycle's end at the same pace as the billing period's forecast of money
// (used so far / days gone, that day included, x days of the cycle).
//
// A connection's tariff is the one its profile gives, else the one of its
// latest call; it is listed when that tariff has a plan.

#include "RegistroLlamada.h"
#include "VolumenRegistro.h"
#include "core/Fecha.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vorimesk {

struct UsoConexion {
    std::string Conexion;
    std::string Tarifa;
    PeriodoFacturacion Ciclo;
    bool Renueva = true; // false for a bucket: no end, no share, no forecast
    int DiasCiclo = 0;
    int DiasTranscurridos = 0; // the day asked about included
    double UsadoMB = 0.0;
    double IncluidoMB = 0.0;
    double RestanteMB = 0.0;
    std::optional<double> PorDiaMB;
    std::optional<double> PrevisionMB;
    double ImporteVolumen = 0.0;
    double Cuota = 0.0;
};

// `perfiles` pairs each dial-up entry with its tariff (empty: none chosen).
std::vector<UsoConexion>
UsoDePlanes(const VolumenRegistro& volumen, const std::vector<RegistroLlamada>& llamadas,
            const std::vector<std::pair<std::string, std::string>>& perfiles, Fecha hoy);

// The same for the data folder; nullopt when it holds no plan file.
std::optional<std::vector<UsoConexion>>
UsoDeCarpeta(const std::filesystem::path& carpeta, const std::vector<Fecha>& festivos,
             const cBono& bono, const std::vector<RegistroLlamada>& llamadas,
             const std::vector<std::pair<std::string, std::string>>& perfiles, Fecha hoy);

} // namespace vorimesk
