#include "LogModem.h"

#include "core/Errores.h"

#include <optional>
#include <string>

namespace vorimesk {
namespace {

bool EsDigito(char c) {
    return c >= '0' && c <= '9';
}

// Two or four digits at t[i..i+n).
std::optional<int> Digitos(std::string_view t, std::size_t i, std::size_t n) {
    int v = 0;
    for (std::size_t k = i; k < i + n; ++k) {
        if (!EsDigito(t[k])) {
            return std::nullopt;
        }
        v = v * 10 + (t[k] - '0');
    }
    return v;
}

[[noreturn]] void NoEsFecha(std::string_view fecha, std::string_view hora) {
    throw ErrorTipo("el log del modem no tiene fecha y hora validas en \"" + std::string(fecha) +
                    " " + std::string(hora) + "\"");
}

} // namespace

Fecha FechaHoraModem(std::string_view fecha, std::string_view hora) {
    if (fecha.size() != 10 || hora.size() != 8 || EsDigito(fecha[2]) || EsDigito(fecha[5]) ||
        hora[2] != ':' || hora[5] != ':') {
        NoEsFecha(fecha, hora);
    }
    const auto mes = Digitos(fecha, 0, 2);
    const auto dia = Digitos(fecha, 3, 2);
    const auto año = Digitos(fecha, 6, 4);
    const auto h = Digitos(hora, 0, 2);
    const auto m = Digitos(hora, 3, 2);
    const auto s = Digitos(hora, 6, 2);
    // A year before 100 fits no date value of the register file.
    if (!mes || !dia || !año || !h || !m || !s || *año < 100) {
        NoEsFecha(fecha, hora);
    }
    try {
        return Fecha::Crear(*año, *mes, *dia, *h, *m, *s);
    } catch (const ErrorTipo&) {
        NoEsFecha(fecha, hora);
    }
}

Fecha FechaHoraDeLinea(std::string_view linea) {
    if (linea.size() < 19) {
        NoEsFecha(linea.substr(0, 10), linea.size() > 11 ? linea.substr(11) : std::string_view());
    }
    return FechaHoraModem(linea.substr(0, 10), linea.substr(11, 8));
}

Fecha UltimoInicioDeSesion(std::string_view texto) {
    const std::size_t enUso = texto.rfind(kModemEnUso);
    if (enUso == std::string_view::npos) {
        return Fecha::DesdeOle(1.0);
    }
    const std::size_t guion = enUso == 0 ? std::string_view::npos : texto.rfind('-', enUso - 1);
    if (guion == std::string_view::npos || guion < 23) {
        throw ErrorTipo("el log del modem no tiene la marca de tiempo delante de \"in use\"");
    }
    return FechaHoraModem(texto.substr(guion - 23, 10), texto.substr(guion - 12, 8));
}

} // namespace vorimesk
