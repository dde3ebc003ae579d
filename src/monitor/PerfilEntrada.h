#pragma once
// The tariff and discount the user chose for a dial-up entry.

#include "settings/Settings.h"

#include <string>
#include <string_view>

namespace vorimesk {

inline constexpr const char* kTarifaPorDefecto = "Metropolitana";
inline constexpr const char* kDescuentoPorDefecto = "Ninguno";
inline constexpr const char* kDescuentoBonoNet = "BonoNet";

struct PerfilEntrada {
    std::string Tarifa = kTarifaPorDefecto;
    std::string Descuento = kDescuentoPorDefecto;
};

// The entry's record of EntradasConexion, names compared exactly; an entry
// the user never configured gets the defaults a new entry gets.
PerfilEntrada BuscarPerfilEntrada(const Settings& ajustes, std::string_view entrada);

} // namespace vorimesk
