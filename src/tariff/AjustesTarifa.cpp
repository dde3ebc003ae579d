#include "AjustesTarifa.h"

namespace vorimesk {

void CargarBono(const Settings& ajustes, cBono& bono) {
    bono.Limpiar();
    bono.DiaFactura(ajustes.DiaFactura);
    bono.perFactura(ajustes.perFactura);
    for (const BonoGuardado& b : ajustes.Bonos) {
        const std::int16_t i = bono.DarAlta(b.Tipo, b.Alta);
        bono.Alta(i, b.Alta);
        bono.Baja(i, b.Baja);
        bono.tiempo(i, b.tiempo);
    }
}

void GuardarBono(const cBono& bono, Settings& ajustes) {
    ajustes.DiaFactura = bono.DiaFactura();
    ajustes.perFactura = bono.perFactura();
    ajustes.Bonos.clear();
    for (std::int16_t i = 0; i < bono.Count(); ++i) {
        ajustes.Bonos.push_back({bono.Tipo(i), bono.Alta(i), bono.Baja(i), bono.tiempo(i)});
    }
}

void CargarConexiones(const Settings& ajustes, colConexion& conexiones) {
    for (const PerfilConexion& p : ajustes.Conexiones) {
        conexiones.Add(p.fecha, p.Tarifa, p.Descuento, p.Conexion);
    }
}

void GuardarConexiones(const colConexion& conexiones, Settings& ajustes) {
    ajustes.Conexiones.clear();
    for (const cConexion& c : conexiones) {
        ajustes.Conexiones.push_back({c.Conexion(), c.Descuento(), c.fecha(), c.Tarifa()});
    }
}

std::vector<Fecha> FestivosDeAjustes(const Settings& ajustes) {
    return ajustes.Festivos;
}

} // namespace vorimesk
