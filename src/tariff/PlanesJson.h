#pragma once
// "Planes.json" as text: format "vorimesk-planes", version 1.
//
//   {"formato": "vorimesk-planes", "version": 1,
//    "planes": [{"Tarifa": "Movil", "IncluidoMB": 10240, "PrecioMB": 0.02, "PasoKB": 10,
//                "MinimoSesion": 0.05, "ReducidaGratis": false, "CuotaPeriodo": 9.95}],
//    "conexiones": [{"Conexion": "LTE Casa", "Ciclo": {"Dia": 15},
//                    "Limites": [{"Porcentaje": 80, "De": "volumen", "Accion": "avisar"}]}]}
//
// Other programs write it too: keys may come in any order and unknown ones
// are kept. A plan's fields other than "Tarifa" may be left out (0, a step of
// 1 KB, reduced band billed). A cycle is {"Dia": N}, {"CadaDias": N,
// "Desde": "AAAA-MM-DD"} or {"Desde": "AAAA-MM-DD"} alone.

#include "Planes.h"
#include "core/Errores.h"

#include <string>
#include <string_view>

namespace vorimesk {

// The text is not a plan file; the message names the field, in Spanish.
class ErrorPlanes : public Error {
public:
    using Error::Error;
};

inline constexpr std::string_view kFormatoPlanes = "vorimesk-planes";

Planes LeerPlanes(std::string_view texto);
std::string EscribirPlanes(const Planes& planes);

} // namespace vorimesk
