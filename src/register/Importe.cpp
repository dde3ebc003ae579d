#include "Importe.h"

#include "core/Flotante.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace vorimesk {
namespace {

constexpr std::size_t kAncho = 8; // the width of the field in the register file

// Significant digits (no trailing zeros) and the decimal exponent of the
// first one: 1234.5 is {"12345", 3}.
struct Decimal {
    std::string digitos;
    int exponente = 0;
};

// `precision` digits, or the shortest that reads back exactly when 0.
Decimal Descomponer(float v, int precision) {
    char b[64];
    const auto r = precision > 0 ? std::to_chars(b, b + sizeof b, v, std::chars_format::scientific,
                                                 precision - 1)
                                 : std::to_chars(b, b + sizeof b, v, std::chars_format::scientific);
    const std::string_view t(b, static_cast<std::size_t>(r.ptr - b));
    const std::size_t e = t.find('e');
    Decimal d;
    for (char c : t.substr(0, e)) {
        if (c >= '0' && c <= '9') {
            d.digitos += c;
        }
    }
    while (d.digitos.size() > 1 && d.digitos.back() == '0') {
        d.digitos.pop_back();
    }
    const std::string_view exponente = t.substr(e + 1);
    const bool menos = exponente.front() == '-';
    std::from_chars(exponente.data() + (menos || exponente.front() == '+' ? 1 : 0),
                    exponente.data() + exponente.size(), d.exponente);
    d.exponente = menos ? -d.exponente : d.exponente;
    return d;
}

// The digits as plain decimals ("1234.5", "0.005"), or empty when the
// exponent is too far from 0 for them.
std::string Plana(const Decimal& d, bool negativo) {
    const auto n = d.digitos.size();
    const int e = d.exponente;
    std::string t = negativo ? "-" : "";
    if (e >= 0 && e < 16) {
        const auto enteros = static_cast<std::size_t>(e + 1);
        if (enteros >= n) {
            t += d.digitos;
            t.append(enteros - n, '0');
        } else {
            t.append(d.digitos, 0, enteros);
            t += '.';
            t.append(d.digitos, enteros);
        }
        return t;
    }
    if (e < 0 && e > -16) {
        t += "0.";
        t.append(static_cast<std::size_t>(-e - 1), '0');
        t += d.digitos;
        return t;
    }
    return {};
}

// The ways to write the digits, most readable first: plain decimals, the
// exponent form, the decimals without their leading zero (".5"), the
// exponent with no sign or padding ("1.2E8"), and the digits as a whole
// number before the exponent ("5112E-30"), the shortest of all.
std::vector<std::string> Formas(const Decimal& d, bool negativo) {
    const std::string signo = negativo ? "-" : "";
    const auto n = d.digitos.size();
    const int e = d.exponente;
    std::string mantisa = d.digitos.substr(0, 1);
    if (n > 1) {
        mantisa += "." + d.digitos.substr(1);
    }
    const std::string exponente = std::to_string(std::abs(e));
    const std::string conExponente =
        signo + mantisa + (e < 0 ? "E-" : "E+") + (exponente.size() < 2 ? "0" : "") + exponente;
    const std::string exponenteCorto = signo + mantisa + (e < 0 ? "E-" : "E") + exponente;
    const std::string entero =
        signo + d.digitos + "E" + std::to_string(e - static_cast<int>(n) + 1);
    if (e >= 0 && e < 16) {
        return {Plana(d, negativo), conExponente, exponenteCorto, entero};
    }
    if (e < 0 && e > -16) {
        const std::string fraccion = std::string(static_cast<std::size_t>(-e - 1), '0') + d.digitos;
        return {Plana(d, negativo), conExponente, signo + "." + fraccion, exponenteCorto, entero};
    }
    return {conExponente, exponenteCorto, entero};
}

// Rounding near the top of the range can give a text beyond the largest
// float, which would read back as infinity.
bool SeLeeFinito(const std::string& forma) {
    return std::isfinite(LeerFlotantePrefijo(forma).valor);
}

} // namespace

std::string TextoImporte(float v) {
    if (std::isnan(v) || std::isinf(v) || v == 0.0f) {
        return TextoFlotante(v);
    }
    const bool negativo = v < 0;
    const Decimal exacto = Descomponer(std::fabs(v), 0);
    // Nearly every cost: its exact digits as plain decimals fit and read
    // back as the same number, the first choice below.
    if (const std::string plana = Plana(exacto, negativo);
        !plana.empty() && plana.size() <= kAncho) {
        return plana;
    }
    for (int precision = static_cast<int>(exacto.digitos.size()); precision >= 1; --precision) {
        const Decimal d = precision == static_cast<int>(exacto.digitos.size())
                              ? exacto
                              : Descomponer(std::fabs(v), precision);
        // The first form, looked at before the rest are written: plain
        // decimals that fit can never read as more than the largest float.
        if (const std::string plana = Plana(d, negativo);
            !plana.empty() && plana.size() <= kAncho) {
            return plana;
        }
        // Every other form holds all the digits and at least one more
        // character.
        if (d.digitos.size() + 1 > kAncho) {
            continue;
        }
        for (const std::string& forma : Formas(d, negativo)) {
            if (forma.size() <= kAncho && SeLeeFinito(forma)) {
                return forma;
            }
        }
    }
    return TextoFlotante(v); // not reached: one digit always fits
}

float LeerImporte(std::string_view texto) {
    return LeerFlotantePrefijo(texto).valor;
}

} // namespace vorimesk
