#include "EntradasConexion.h"

#include "PerfilEntrada.h"

#include <algorithm>

namespace vorimesk {

std::vector<std::string> AñadirEntradasNuevas(Settings& ajustes,
                                              const std::vector<std::string>& delSistema) {
    std::vector<std::string> nuevas;
    for (const std::string& entrada : delSistema) {
        const auto& lista = ajustes.EntradasConexion;
        const bool conocida =
            std::any_of(lista.begin(), lista.end(),
                        [&](const EntradaConexion& e) { return e.Entrada == entrada; });
        if (!conocida) {
            ajustes.EntradasConexion.push_back({entrada, kTarifaPorDefecto, kDescuentoPorDefecto});
            nuevas.push_back(entrada);
        }
    }
    return nuevas;
}

} // namespace vorimesk
