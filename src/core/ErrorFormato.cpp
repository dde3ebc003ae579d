#include "ErrorFormato.h"

namespace vorimesk {
namespace {

std::string Mensaje(const std::string& ruta, const std::string& detalle, int linea) {
    std::string m = ruta.empty() ? std::string("Los datos no tienen un formato valido")
                                 : "El archivo \"" + ruta + "\" no tiene un formato valido";
    if (linea > 0) {
        m += " (linea " + std::to_string(linea) + ")";
    }
    return m + ": " + detalle;
}

} // namespace

ErrorFormato::ErrorFormato(const std::string& ruta, const std::string& detalle, int linea)
    : Error(Mensaje(ruta, detalle, linea)), ruta_(ruta), detalle_(detalle), linea_(linea) {}

ErrorFormato ErrorFormato::ConRuta(const std::string& ruta) const {
    return ErrorFormato(ruta, detalle_, linea_);
}

} // namespace vorimesk
