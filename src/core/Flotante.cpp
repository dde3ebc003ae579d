#include "Flotante.h"

#include "Numero.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace vorimesk {
namespace {

bool EsDigito(char c) {
    return c >= '0' && c <= '9';
}

// Decimal exponent of the first significant digit, so an out-of-range
// result can be told apart: above 0 it overflowed, below it underflowed.
long long Magnitud(std::string_view enteros, std::string_view decimales, long long exponente) {
    for (std::size_t k = 0; k < enteros.size(); ++k) {
        if (enteros[k] != '0') {
            return static_cast<long long>(enteros.size() - k - 1) + exponente;
        }
    }
    for (std::size_t k = 0; k < decimales.size(); ++k) {
        if (decimales[k] != '0') {
            return -static_cast<long long>(k + 1) + exponente;
        }
    }
    return -1;
}

// Reads "[+-]digits" at t[i] when at least one digit follows; saturates.
bool LeerExponente(std::string_view t, std::size_t& i, long long& exponente) {
    std::size_t j = i + 1;
    bool negativo = false;
    if (j < t.size() && (t[j] == '+' || t[j] == '-')) {
        negativo = t[j] == '-';
        ++j;
    }
    if (j >= t.size() || !EsDigito(t[j])) {
        return false;
    }
    long long e = 0;
    while (j < t.size() && EsDigito(t[j])) {
        if (e < 100000) {
            e = e * 10 + (t[j] - '0');
        }
        ++j;
    }
    exponente = negativo ? -e : e;
    i = j;
    return true;
}

} // namespace

LecturaFlotante LeerFlotantePrefijo(std::string_view t) {
    bool negativo = false;
    std::size_t i = InicioNumero(t, negativo);
    const std::size_t inicioEnteros = i;
    while (i < t.size() && EsDigito(t[i])) {
        ++i;
    }
    const std::string_view enteros = t.substr(inicioEnteros, i - inicioEnteros);
    std::string_view decimales;
    if (i < t.size() && (t[i] == '.' || t[i] == ',')) {
        const std::size_t inicio = ++i;
        while (i < t.size() && EsDigito(t[i])) {
            ++i;
        }
        decimales = t.substr(inicio, i - inicio);
    }
    if (enteros.empty() && decimales.empty()) {
        return {};
    }
    long long exponente = 0;
    if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
        LeerExponente(t, i, exponente);
    }
    std::string normal;
    normal.reserve(enteros.size() + decimales.size() + 16);
    normal.append(enteros.empty() ? "0" : enteros);
    if (!decimales.empty()) {
        normal += '.';
        normal.append(decimales);
    }
    normal += 'e';
    normal += std::to_string(exponente);
    float valor = 0.0f;
    const auto r = std::from_chars(normal.data(), normal.data() + normal.size(), valor);
    if (r.ec == std::errc::result_out_of_range) {
        valor = Magnitud(enteros, decimales, exponente) > 0 ? std::numeric_limits<float>::infinity()
                                                            : 0.0f;
    }
    return {negativo ? -valor : valor, i};
}

std::optional<float> LeerFlotanteCompleto(std::string_view t) {
    const LecturaFlotante l = LeerFlotantePrefijo(t);
    if (l.usados == 0) {
        return std::nullopt;
    }
    for (std::size_t i = l.usados; i < t.size(); ++i) {
        if (t[i] != ' ' && t[i] != '\t') {
            return std::nullopt;
        }
    }
    return l.valor;
}

std::string TextoFlotante(float v) {
    if (std::isnan(v) || v == 0.0f) {
        return "0";
    }
    if (std::isinf(v)) {
        return v > 0 ? "1E+39" : "-1E+39";
    }
    char b[64];
    const auto r = std::to_chars(b, b + sizeof b, v);
    std::string s(b, r.ptr);
    for (char& c : s) {
        if (c == 'e') {
            c = 'E';
        }
    }
    return s;
}

} // namespace vorimesk
