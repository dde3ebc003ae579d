#include "FormatoNumero.h"

#include <charconv>
#include <cmath>
#include <vector>

namespace vorimesk {
namespace {

std::string Agrupado(const std::string& cifras) {
    std::string texto;
    for (std::size_t i = 0; i < cifras.size(); ++i) {
        if (i > 0 && (cifras.size() - i) % 3 == 0) {
            texto += '.';
        }
        texto += cifras[i];
    }
    return texto;
}

bool SoloCifras(std::string_view t) {
    for (char c : t) {
        if (c < '0' || c > '9') {
            return false;
        }
    }
    return true;
}

std::string_view SinBlancos(std::string_view t) {
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) {
        t.remove_prefix(1);
    }
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) {
        t.remove_suffix(1);
    }
    return t;
}

// The whole part with its thousands marks `marca`: groups of three after a
// first one of one to three digits. Its digits, or nothing.
std::optional<std::string> EnteroAgrupado(std::string_view t, char marca) {
    std::string cifras;
    std::size_t grupo = 0;
    bool primero = true;
    for (char c : t) {
        if (c == marca) {
            if (grupo == 0 || grupo > 3 || (!primero && grupo != 3)) {
                return std::nullopt;
            }
            primero = false;
            grupo = 0;
        } else {
            cifras += c;
            ++grupo;
        }
    }
    if (!primero && grupo != 3) {
        return std::nullopt;
    }
    return SoloCifras(cifras) ? std::optional(cifras) : std::nullopt;
}

// Which mark is the decimal point: the last of "," and "." when both are
// there, a lone "," and a lone "." unless it reads as thousands.
char SeparadorDecimal(std::string_view t) {
    const auto coma = t.rfind(',');
    const auto punto = t.rfind('.');
    if (coma != std::string_view::npos && punto != std::string_view::npos) {
        return coma > punto ? ',' : '.';
    }
    if (coma != std::string_view::npos) {
        return t.find(',') == coma ? ',' : '.';
    }
    if (punto == std::string_view::npos || t.find('.') != punto) {
        return ',';
    }
    const std::string_view antes = t.substr(0, punto);
    const bool miles =
        t.size() - punto - 1 == 3 && !antes.empty() && antes.size() <= 3 && antes.front() != '0';
    return miles ? ',' : '.';
}

} // namespace

std::string FormatoMiles(std::int64_t valor) {
    if (valor == 0) {
        return {};
    }
    const bool negativo = valor < 0;
    return (negativo ? "-" : "") + Agrupado(std::to_string(negativo ? -valor : valor));
}

std::string FormatoDosDecimales(double valor) {
    // to_chars ignores the desktop's regional settings, unlike printf.
    char texto[400];
    const auto r = std::to_chars(texto, texto + sizeof texto, valor, std::chars_format::fixed, 2);
    return std::string(texto, r.ptr);
}

std::string TextoDinero(double valor) {
    const double centimos = std::round(valor * 100.0);
    if (!std::isfinite(centimos) || std::fabs(centimos) >= 9.0e18) {
        return "0,00";
    }
    const auto c = static_cast<std::int64_t>(centimos);
    const std::int64_t absoluto = c < 0 ? -c : c;
    const std::string resto = std::to_string(absoluto % 100);
    return (c < 0 ? "-" : "") + Agrupado(std::to_string(absoluto / 100)) + "," +
           (resto.size() < 2 ? "0" : "") + resto;
}

std::optional<std::string> NumeroEscrito(std::string_view texto) {
    std::string_view t = SinBlancos(texto);
    std::string signo;
    if (!t.empty() && t.front() == '-') {
        signo = "-";
        t.remove_prefix(1);
    }
    const char decimal = SeparadorDecimal(t);
    const char marca = decimal == ',' ? '.' : ',';
    const auto punto = t.find(decimal);
    const std::string_view fraccion =
        punto == std::string_view::npos ? std::string_view() : t.substr(punto + 1);
    const auto entero = EnteroAgrupado(t.substr(0, punto), marca);
    if (!entero || !SoloCifras(fraccion) || (entero->empty() && fraccion.empty())) {
        return std::nullopt;
    }
    return signo + *entero + (fraccion.empty() ? "" : "." + std::string(fraccion));
}

} // namespace vorimesk
