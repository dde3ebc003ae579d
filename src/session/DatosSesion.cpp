#include "session/DatosSesion.h"

namespace vorimesk {

DatosSesion::DatosSesion(std::filesystem::path carpetaDatos, const Reloj& reloj)
    : Carpeta(std::move(carpetaDatos)), RelojPrograma(reloj), Bono(reloj),
      Ajustes(ValoresPorDefecto()), Registro(Carpeta), Libro(Carpeta) {}

std::int16_t DatosSesion::TipoDia(Fecha dia) {
    if (Libro.Festivos() != Ajustes.Festivos) {
        Libro.Festivos(Ajustes.Festivos);
    }
    return Libro.TipoDia(dia);
}

} // namespace vorimesk
