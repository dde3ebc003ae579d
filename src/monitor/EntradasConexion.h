#pragma once
// The dial-up entries of the system against the user's own list: an entry
// the user has never configured joins EntradasConexion with the tariff and
// discount a new entry gets, so it is priced and offered like the others.

#include "settings/Settings.h"

#include <string>
#include <vector>

namespace vorimesk {

// Shown in the entry lists and the "&Conectar con" submenu when the system
// has no dial-up entry.
inline constexpr const char* kSinConexiones = "No hay conexiones disponibles.";

// The warning shown when the scan finds entries the user's list lacked.
inline constexpr const char* kTituloConexionNueva = "Detectada conexion nueva";
inline constexpr const char* kAvisoConexionNueva =
    "Hay conexiones nuevas en el sistema.\r\nSe inicializaran con los valores por "
    "defecto.\r\nSe aconseja cambiarlos por los correctos.";

// Appends every entry of `delSistema` missing from EntradasConexion (names
// compared exactly), in the system's order, with "Metropolitana" and
// "Ninguno"; returns the names added. Entries the system no longer has stay
// in the list, so their choices come back with them.
std::vector<std::string> AñadirEntradasNuevas(Settings& ajustes,
                                              const std::vector<std::string>& delSistema);

} // namespace vorimesk
