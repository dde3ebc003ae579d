#include "session/DatosSesion.h"

namespace vorimesk {

DatosSesion::DatosSesion(std::filesystem::path carpetaDatos, const Reloj& reloj)
    : Carpeta(std::move(carpetaDatos)), RelojPrograma(reloj), Bono(reloj),
      Ajustes(ValoresPorDefecto()), Libro(Carpeta), Registro(Carpeta), Presupuesto(Carpeta) {
    Registro.PrestarLibro(Libro);
}

std::int16_t DatosSesion::TipoDia(Fecha dia) const {
    return cLlamada::TipoDiaCalendario(dia, Ajustes.Festivos);
}

} // namespace vorimesk
