#include "Numero.h"

#include "Errores.h"

#include <charconv>
#include <cmath>

namespace vorimesk {

std::size_t InicioNumero(std::string_view t, bool& negativo) {
    std::size_t i = 0;
    while (i < t.size() && (t[i] == ' ' || t[i] == '\t')) {
        ++i;
    }
    negativo = false;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) {
        negativo = t[i] == '-';
        ++i;
    }
    return i;
}

double Val(std::string_view t) {
    bool negativo = false;
    std::size_t i = InicioNumero(t, negativo);
    const std::size_t inicio = i;
    std::size_t digitos = 0;
    while (i < t.size() && t[i] >= '0' && t[i] <= '9') {
        ++i;
        ++digitos;
    }
    if (i < t.size() && t[i] == '.') {
        ++i;
        while (i < t.size() && t[i] >= '0' && t[i] <= '9') {
            ++i;
            ++digitos;
        }
    }
    if (digitos == 0) {
        return 0.0;
    }
    // from_chars is locale-independent: the files always use "." whatever
    // the desktop's regional settings say.
    double valor = 0.0;
    std::from_chars(t.data() + inicio, t.data() + i, valor);
    return negativo ? -valor : valor;
}

double RedondeoBancario(double x) {
    const double abajo = std::floor(x);
    const double diferencia = x - abajo;
    if (diferencia < 0.5) {
        return abajo;
    }
    if (diferencia > 0.5) {
        return abajo + 1.0;
    }
    return std::fmod(abajo, 2.0) == 0.0 ? abajo : abajo + 1.0;
}

std::int16_t AEntero16(double x) {
    const double r = RedondeoBancario(x);
    if (!(r >= -32768.0 && r <= 32767.0)) {
        throw ErrorDesbordamiento("el valor no cabe en 16 bits");
    }
    return static_cast<std::int16_t>(r);
}

} // namespace vorimesk
