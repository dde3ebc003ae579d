#include "FormatoNumero.h"

#include <charconv>

namespace vorimesk {

std::string FormatoMiles(std::int64_t valor) {
    if (valor == 0) {
        return {};
    }
    const bool negativo = valor < 0;
    const std::string cifras = std::to_string(negativo ? -valor : valor);
    std::string texto = negativo ? "-" : "";
    for (std::size_t i = 0; i < cifras.size(); ++i) {
        if (i > 0 && (cifras.size() - i) % 3 == 0) {
            texto += '.';
        }
        texto += cifras[i];
    }
    return texto;
}

std::string FormatoDosDecimales(double valor) {
    // to_chars ignores the desktop's regional settings, unlike printf.
    char texto[400];
    const auto r = std::to_chars(texto, texto + sizeof texto, valor, std::chars_format::fixed, 2);
    return std::string(texto, r.ptr);
}

} // namespace vorimesk
