#include "Errores.h"

namespace vorimesk {
namespace {
std::string ConDetalle(const std::string& base, const std::string& detalle) {
    return detalle.empty() ? base : base + ": " + detalle;
}
} // namespace

ErrorDesbordamiento::ErrorDesbordamiento(const std::string& detalle)
    : Error(ConDetalle("Desbordamiento", detalle)) {}

ErrorIndice::ErrorIndice(const std::string& detalle)
    : Error(ConDetalle("El subindice esta fuera del intervalo", detalle)) {}

ErrorTipo::ErrorTipo(const std::string& detalle)
    : Error(ConDetalle("No coinciden los tipos", detalle)) {}

ErrorClaveDuplicada::ErrorClaveDuplicada(const std::string& clave)
    : Error("La clave ya esta asociada con un elemento de esta coleccion: \"" + clave + "\"") {}

ErrorNoEncontrado::ErrorNoEncontrado(const std::string& detalle)
    : Error(ConDetalle("No se encontro el elemento en la coleccion", detalle)) {}

ErrorArchivo::ErrorArchivo(const std::string& ruta, const std::string& detalle)
    : Error("Error de archivo en \"" + ruta + "\": " + detalle), ruta_(ruta) {}

} // namespace vorimesk
