#pragma once
// Who uses a tariff by its name: the calls of the register and the dial-up
// entries of the settings. A tariff renamed in the editor would leave them
// naming one the book no longer has (the calls then keep their old amounts
// at every re-pricing); these count them and move them to the new name.

#include "DatosSesion.h"

#include <string_view>

namespace vorimesk {

struct UsoTarifa {
    int llamadas = 0;
    int conexiones = 0;
    bool Alguno() const { return llamadas > 0 || conexiones > 0; }
    bool operator==(const UsoTarifa&) const = default;
};

UsoTarifa UsoDeTarifa(const DatosSesion& datos, std::string_view tarifa);

// Moves the register's calls and the entries of `viejo` to `nuevo`; the
// caller saves. What was moved.
UsoTarifa RenombrarTarifa(DatosSesion& datos, std::string_view viejo, std::string_view nuevo);

// "1.273 llamadas del registro y 1 conexion", "2 conexiones".
std::string TextoUso(const UsoTarifa& uso);

} // namespace vorimesk
