#include "meter/LimitesConexion.h"

#include "core/FormatoNumero.h"

#include <cmath>

namespace vorimesk {
namespace {

std::string TextoPorcentaje(double p) {
    const double redondo = std::round(p);
    return std::fabs(p - redondo) < 1e-9 ? std::to_string(static_cast<long long>(redondo))
                                         : TextoDinero(p);
}

std::optional<LimiteAlcanzado> Alcanzado(const std::string& conexion, const LimiteConexion& l,
                                         const UsoLimites& uso) {
    LimiteAlcanzado a;
    a.Conexion = conexion;
    a.Limite = l;
    if (l.De == "volumen") {
        if (!uso.UsadoMB || uso.IncluidoMB <= 0.0) {
            return std::nullopt;
        }
        a.Usado = *uso.UsadoMB;
        a.Total = uso.IncluidoMB;
        a.Ciclo = uso.CicloVolumen;
    } else {
        if (!uso.Presupuesto || *uso.Presupuesto <= 0.0) {
            return std::nullopt;
        }
        a.Usado = uso.Gastado;
        a.Total = *uso.Presupuesto;
        a.Ciclo = uso.CicloPresupuesto;
    }
    a.Porcentaje = a.Usado * 100.0 / a.Total;
    // A hair of rounding must not keep 100% from acting at exactly the whole.
    if (a.Porcentaje + 1e-9 < l.Porcentaje) {
        return std::nullopt;
    }
    return a;
}

} // namespace

std::string LimiteAlcanzado::Clave() const {
    return Conexion + "|" + Limite.De + "|" + TextoPorcentaje(Limite.Porcentaje) + "|" + Limite.Accion +
           "|" + Ciclo.TextoIsoFecha();
}

std::string LimiteAlcanzado::Texto() const {
    const bool volumen = Limite.De == "volumen";
    return "La conexion " + Conexion + " ha llegado al " + TextoPorcentaje(Limite.Porcentaje) +
           "% de su " + (volumen ? "volumen" : "presupuesto") + " (" + TextoDinero(Usado) + " de " +
           TextoDinero(Total) + (volumen ? " MB)." : ").");
}

std::vector<LimiteAlcanzado> LimitesAlcanzados(const ConexionPlan& conexion,
                                               const UsoLimites& uso) {
    std::vector<LimiteAlcanzado> lista;
    for (const LimiteConexion& l : conexion.Limites) {
        if (auto a = Alcanzado(conexion.Conexion, l, uso)) {
            lista.push_back(std::move(*a));
        }
    }
    return lista;
}

} // namespace vorimesk
