#include "cTiempo.h"

#include "Errores.h"
#include "Fecha.h"
#include "Numero.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace vorimesk {
namespace {

std::string DosCifras(std::int16_t v) {
    const int a = std::abs(static_cast<int>(v));
    std::string texto = a < 10 ? "0" + std::to_string(a) : std::to_string(a);
    return v < 0 ? "-" + texto : texto;
}

std::int32_t Comprobar32(std::int64_t v) {
    if (v < std::numeric_limits<std::int32_t>::min() ||
        v > std::numeric_limits<std::int32_t>::max()) {
        throw ErrorDesbordamiento("el total de segundos no cabe en 32 bits");
    }
    return static_cast<std::int32_t>(v);
}

bool EsDigito(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

void cTiempo::Valor(std::string_view s) {
    // "hh:mm:ss" as the register stores every duration: read straight away.
    if (s.size() == 8 && s[2] == ':' && s[5] == ':' &&
        std::all_of(s.begin(), s.end(), [](char c) { return c == ':' || EsDigito(c); })) {
        const auto dos = [&s](std::size_t i) {
            return static_cast<std::int16_t>((s[i] - '0') * 10 + (s[i + 1] - '0'));
        };
        horas_ = dos(0);
        minutos_ = dos(3);
        segundos_ = dos(6);
        return;
    }
    const std::size_t p1 = s.find(':');
    const std::size_t p2 = p1 == std::string_view::npos ? p1 : s.find(':', p1 + 1);
    horas_ = AEntero16(Val(s));
    // With no ":" the minutes are read from the start of the text, like hours.
    minutos_ = AEntero16(Val(p1 == std::string_view::npos ? s : s.substr(p1 + 1)));
    segundos_ = p2 == std::string_view::npos ? 0 : AEntero16(Val(s.substr(p2 + 1)));
}

std::string cTiempo::Valor() const {
    return DosCifras(horas_) + ":" + DosCifras(minutos_) + ":" + DosCifras(segundos_);
}

void cTiempo::Sumar(const cTiempo& otro) {
    Sumar(otro.Valor());
}

void cTiempo::Sumar(std::string_view texto) {
    const cTiempo otro(texto);
    SumarSegundos(otro.ConvSegundos());
}

void cTiempo::Restar(const cTiempo& otro) {
    SumarSegundos(-std::int64_t{otro.ConvSegundos()});
}

void cTiempo::Restar(std::string_view horaDelDia) {
    SumarSegundos(-std::int64_t{SegundosDeHoraDelDia(horaDelDia)});
}

void cTiempo::Restar(const Fecha& horaDelDia) {
    SumarSegundos(-std::int64_t{horaDelDia.SegundosDelDia()});
}

void cTiempo::SumarSegundos(std::int64_t segundos) {
    ConvTiempo(Comprobar32(std::int64_t{ConvSegundos()} + segundos));
}

void cTiempo::Iniciar() {
    horas_ = minutos_ = segundos_ = 0;
}

std::int32_t cTiempo::ConvSegundos() const {
    return std::int32_t{horas_} * 3600 + std::int32_t{minutos_} * 60 + segundos_;
}

void cTiempo::ConvTiempo(std::int32_t t) {
    // Truncating division: every non-zero field takes the sign of t.
    const std::int32_t h = t / 3600;
    const std::int32_t r = t % 3600;
    if (h < std::numeric_limits<std::int16_t>::min() ||
        h > std::numeric_limits<std::int16_t>::max()) {
        throw ErrorDesbordamiento("las horas no caben en 16 bits");
    }
    horas_ = static_cast<std::int16_t>(h);
    minutos_ = static_cast<std::int16_t>(r / 60);
    segundos_ = static_cast<std::int16_t>(r % 60);
}

bool cTiempo::EsMayor(std::string_view texto) const {
    return ConvSegundos() > cTiempo(texto).ConvSegundos();
}

bool cTiempo::EsMenor(std::string_view texto) const {
    return ConvSegundos() < cTiempo(texto).ConvSegundos();
}

bool cTiempo::EsIgual(std::string_view texto) const {
    return ConvSegundos() == cTiempo(texto).ConvSegundos();
}

std::int32_t SegundosDeHoraDelDia(std::string_view t) {
    // h:m or h:m:s, each part one or two digits, surrounding blanks allowed.
    int partes[3] = {0, 0, 0};
    int n = 0;
    std::size_t i = 0;
    while (i < t.size() && t[i] == ' ') {
        ++i;
    }
    while (n < 3) {
        int digitos = 0;
        int valor = 0;
        while (i < t.size() && EsDigito(t[i]) && digitos < 2) {
            valor = valor * 10 + (t[i] - '0');
            ++digitos;
            ++i;
        }
        if (digitos == 0) {
            throw ErrorTipo("\"" + std::string(t) + "\" no es una hora valida");
        }
        partes[n++] = valor;
        if (i < t.size() && t[i] == ':' && n < 3) {
            ++i;
            continue;
        }
        break;
    }
    while (i < t.size() && t[i] == ' ') {
        ++i;
    }
    if (i != t.size() || n < 2 || partes[0] > 23 || partes[1] > 59 || partes[2] > 59) {
        throw ErrorTipo("\"" + std::string(t) + "\" no es una hora valida");
    }
    return partes[0] * 3600 + partes[1] * 60 + partes[2];
}

} // namespace vorimesk
