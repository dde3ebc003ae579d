#pragma once
// The pending-connection list: profiles in insertion order, each optionally
// under a text key. Positions count from 1; a repeated key throws
// ErrorClaveDuplicada, an unknown key or position ErrorNoEncontrado.

#include "cConexion.h"
#include "core/ColeccionConClave.h"

#include <string_view>

namespace vorimesk {

class colConexion {
public:
    // A new profile with these values, under the key when it is not empty.
    cConexion& Add(Fecha fecha, std::string tarifa, std::string descuento, std::string conexion,
                   std::string_view clave = {});
    cConexion& Item(int posicion) const { return perfiles_.Item(posicion); }
    cConexion& Item(std::string_view clave) const { return perfiles_.Item(clave); }
    int Count() const { return perfiles_.Count(); }
    void Remove(int posicion) { perfiles_.Remove(posicion); }
    void Remove(std::string_view clave) { perfiles_.Remove(clave); }
    auto begin() const { return perfiles_.begin(); }
    auto end() const { return perfiles_.end(); }

    // The first profile whose date and time equal `fecha` to the second, or
    // none. Never fails.
    cConexion* Buscar(Fecha fecha) const;

private:
    ColeccionConClave<cConexion> perfiles_;
};

} // namespace vorimesk
