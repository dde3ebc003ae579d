#include "PasoAjustes.h"

#include "settings/Settings.h"
#include "tariff/cBono.h"
#include "tariff/colConexion.h"

namespace vorimesk {

void ObjetosDesdeAjustes(const Settings& a, cBono& bono, colConexion& conexiones) {
    bono.DiaFactura(a.DiaFactura);
    bono.perFactura(a.perFactura);
    for (const BonoGuardado& b : a.Bonos) {
        if (b.Tipo < 0 || b.Tipo >= cBono::kTipos) {
            continue;
        }
        const std::int16_t i = bono.DarAlta(b.Tipo, b.Alta);
        bono.Alta(i, b.Alta);
        bono.Baja(i, b.Baja);
        bono.tiempo(i, b.tiempo);
    }
    for (const PerfilConexion& p : a.Conexiones) {
        conexiones.Add(p.fecha, p.Tarifa, p.Descuento, p.Conexion);
    }
}

void AjustesDesdeObjetos(const cBono& bono, const colConexion& conexiones, Settings& a) {
    a.DiaFactura = bono.DiaFactura();
    a.perFactura = bono.perFactura();
    a.Bonos.clear();
    for (std::int16_t i = 0; i < bono.Count(); ++i) {
        a.Bonos.push_back({bono.Tipo(i), bono.Alta(i), bono.Baja(i), bono.tiempo(i)});
    }
    a.Conexiones.clear();
    for (const auto& perfil : conexiones) {
        a.Conexiones.push_back(
            {perfil.Conexion(), perfil.Descuento(), perfil.fecha(), perfil.Tarifa()});
    }
}

} // namespace vorimesk
