#include "PerfilEntrada.h"

namespace vorimesk {

PerfilEntrada BuscarPerfilEntrada(const Settings& ajustes, std::string_view entrada) {
    for (const EntradaConexion& e : ajustes.EntradasConexion) {
        if (e.Entrada == entrada) {
            return {e.Tarifa, e.Descuento};
        }
    }
    return {};
}

} // namespace vorimesk
