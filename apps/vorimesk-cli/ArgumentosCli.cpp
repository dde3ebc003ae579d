#include "ArgumentosCli.h"

#include <charconv>

namespace vorimesk::cli {

CLI::Validator FechaHoraValida() {
    return CLI::Validator(
        [](std::string& texto) -> std::string {
            if (Fecha::LeerIso(texto)) {
                return {};
            }
            return "\"" + texto + "\" no es una fecha AAAA-MM-DD ni AAAA-MM-DD hh:mm:ss";
        },
        "", "fecha");
}

CLI::Validator EnteroEntre(long minimo, long maximo) {
    return CLI::Validator(
        [minimo, maximo](std::string& texto) -> std::string {
            long v = 0;
            const auto r = std::from_chars(texto.data(), texto.data() + texto.size(), v);
            if (r.ec == std::errc() && r.ptr == texto.data() + texto.size() && v >= minimo &&
                v <= maximo) {
                return {};
            }
            return "\"" + texto + "\" no es un numero entero de " + std::to_string(minimo) + " a " +
                   std::to_string(maximo);
        },
        "", "entero");
}

Fecha LeerFechaHora(const std::string& texto) {
    const auto f = Fecha::LeerIso(texto);
    if (!f) {
        throw ErrorOrden("\"" + texto + "\" no es una fecha valida");
    }
    return *f;
}

std::string TextoImporte(float importe) {
    char texto[32];
    const auto r = std::to_chars(texto, texto + sizeof texto, importe);
    return std::string(texto, r.ptr);
}

double NumeroJson(float importe) {
    const std::string texto = TextoImporte(importe);
    double v = 0.0;
    std::from_chars(texto.data(), texto.data() + texto.size(), v);
    return v;
}

} // namespace vorimesk::cli
