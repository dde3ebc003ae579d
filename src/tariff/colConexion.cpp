#include "colConexion.h"

#include <memory>

namespace vorimesk {

cConexion& colConexion::Add(Fecha fecha, std::string tarifa, std::string descuento,
                            std::string conexion, std::string_view clave) {
    auto perfil = std::make_unique<cConexion>();
    perfil->fecha(fecha);
    perfil->Tarifa(std::move(tarifa));
    perfil->Descuento(std::move(descuento));
    perfil->Conexion(std::move(conexion));
    return perfiles_.Agregar(std::move(perfil), clave);
}

cConexion* colConexion::Buscar(Fecha fecha) const {
    for (cConexion& perfil : perfiles_) {
        if (perfil.fecha() == fecha) {
            return &perfil;
        }
    }
    return nullptr;
}

} // namespace vorimesk
