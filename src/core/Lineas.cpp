#include "Lineas.h"

namespace vorimesk {

std::vector<std::string_view> DividirLineas(std::string_view texto) {
    std::vector<std::string_view> lineas;
    std::size_t inicio = 0;
    std::size_t i = 0;
    while (i < texto.size()) {
        const char c = texto[i];
        if (c != '\r' && c != '\n') {
            ++i;
            continue;
        }
        lineas.push_back(texto.substr(inicio, i - inicio));
        i += (c == '\r' && i + 1 < texto.size() && texto[i + 1] == '\n') ? 2 : 1;
        inicio = i;
    }
    if (inicio < texto.size()) {
        lineas.push_back(texto.substr(inicio));
    }
    return lineas;
}

std::string UnaLinea(std::string_view texto) {
    std::string r;
    for (const char c : texto) {
        if (c != '\r' && c != '\n') {
            r += c;
        }
    }
    return r;
}

} // namespace vorimesk
