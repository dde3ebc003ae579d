#include "PilaPrograma.h"

#include "core/Numero.h"

#include <cmath>

namespace vorimesk {

cPila& PilaPrograma() {
    static cPila pila;
    return pila;
}

std::int16_t& ResultadoPeriodos() {
    static std::int16_t resultado = 0;
    return resultado;
}

Fecha FechaDePila(const ValorPila& valor, Fecha porDefecto) {
    if (const Fecha* f = std::get_if<Fecha>(&valor)) {
        return *f;
    }
    if (const double* d = std::get_if<double>(&valor); d != nullptr && std::isfinite(*d)) {
        return Fecha::DesdeOle(*d);
    }
    if (const std::string* s = std::get_if<std::string>(&valor)) {
        return Fecha::LeerTextoCorto(*s).value_or(porDefecto);
    }
    return porDefecto;
}

std::int64_t EnteroDePila(const ValorPila& valor, std::int64_t porDefecto) {
    if (const std::int64_t* n = std::get_if<std::int64_t>(&valor)) {
        return *n;
    }
    if (const double* d = std::get_if<double>(&valor); d != nullptr && std::isfinite(*d)) {
        return static_cast<std::int64_t>(RedondeoBancario(*d));
    }
    if (const bool* b = std::get_if<bool>(&valor)) {
        return *b ? -1 : 0;
    }
    if (const std::string* s = std::get_if<std::string>(&valor)) {
        return static_cast<std::int64_t>(Val(*s));
    }
    return porDefecto;
}

} // namespace vorimesk
