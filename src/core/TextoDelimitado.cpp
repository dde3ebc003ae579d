#include "TextoDelimitado.h"

#include "ErrorFormato.h"
#include "Flotante.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace vorimesk {
namespace {

bool EsBlanco(char c) {
    return c == ' ' || c == '\t';
}

std::string_view SinBlancos(std::string_view t) {
    while (!t.empty() && EsBlanco(t.front())) {
        t.remove_prefix(1);
    }
    while (!t.empty() && EsBlanco(t.back())) {
        t.remove_suffix(1);
    }
    return t;
}

std::string Hora(Fecha f) {
    char b[16];
    std::snprintf(b, sizeof b, "%02d:%02d:%02d", f.Hora(), f.Minuto(), f.Segundo());
    return b;
}

// "hh:mm:ss" (seconds optional) as seconds of the day.
std::optional<std::int32_t> LeerHora(std::string_view t) {
    int partes[3] = {0, 0, 0};
    int n = 0;
    std::size_t i = 0;
    while (n < 3) {
        std::size_t j = i;
        while (j < t.size() && j - i < 2 && t[j] >= '0' && t[j] <= '9') {
            ++j;
        }
        if (j == i) {
            return std::nullopt;
        }
        std::from_chars(t.data() + i, t.data() + j, partes[n]);
        ++n;
        i = j;
        if (i == t.size()) {
            break;
        }
        if (t[i] != ':') {
            return std::nullopt;
        }
        ++i;
    }
    if (i != t.size() || n < 2 || partes[0] > 23 || partes[1] > 59 || partes[2] > 59) {
        return std::nullopt;
    }
    return partes[0] * 3600 + partes[1] * 60 + partes[2];
}

[[noreturn]] void Falla(int linea, const std::string& esperado, const CampoDelimitado& c) {
    std::string visto = c.valor;
    if (visto.size() > 40) {
        visto = visto.substr(0, 40) + "...";
    }
    throw ErrorFormato({}, "se esperaba " + esperado + " y se encontro \"" + visto + "\"", linea);
}

// Skips to just past the next comma; returns false at the end of the line.
bool SaltarASiguiente(std::string_view linea, std::size_t& i) {
    while (i < linea.size() && linea[i] != ',') {
        ++i;
    }
    if (i == linea.size()) {
        return false;
    }
    ++i;
    return true;
}

} // namespace

std::string Entrecomillar(std::string_view texto) {
    std::string s;
    s.reserve(texto.size() + 2);
    s += '"';
    s.append(texto);
    s += '"';
    return s;
}

std::string LiteralBooleano(bool valor) {
    return valor ? "#TRUE#" : "#FALSE#";
}

std::string LiteralFecha(Fecha f) {
    if (f.Dias() == 0) {
        return "#" + Hora(f) + "#";
    }
    if (f.SegundosDelDia() == 0) {
        return "#" + f.TextoIsoFecha() + "#";
    }
    return "#" + f.TextoIso() + "#";
}

std::string LiteralFechaVariante(const FechaVariante& f) {
    switch (f.clase) {
    case FechaVariante::Clase::Vacia:
        return {};
    case FechaVariante::Clase::Nula:
        return "#NULL#";
    case FechaVariante::Clase::Fecha:
        break;
    }
    return LiteralFecha(f.fecha);
}

std::optional<Fecha> LeerLiteralFecha(std::string_view contenido) {
    const std::string_view t = SinBlancos(contenido);
    if (t.find('-') == std::string_view::npos) {
        const auto s = LeerHora(t);
        if (!s) {
            return std::nullopt;
        }
        return Fecha::DesdeSegundos(*s);
    }
    // Only the years a stored date value can hold, so whatever is read can
    // also be written to the binary files.
    const auto f = Fecha::LeerIso(t);
    if (!f || f->Año() < 100) {
        return std::nullopt;
    }
    return f;
}

std::vector<CampoDelimitado> CamposDeLinea(std::string_view linea) {
    std::vector<CampoDelimitado> campos;
    std::size_t i = 0;
    for (;;) {
        while (i < linea.size() && EsBlanco(linea[i])) {
            ++i;
        }
        CampoDelimitado c;
        if (i < linea.size() && (linea[i] == '"' || linea[i] == '#')) {
            const char marca = linea[i];
            const std::size_t cierre = linea.find(marca, i + 1);
            const std::size_t fin = cierre == std::string_view::npos ? linea.size() : cierre;
            // A # with no closing sign is not a literal: read it as it stands.
            if (marca == '#' && cierre == std::string_view::npos) {
                const std::size_t coma = std::min(linea.find(',', i), linea.size());
                c.clase = CampoDelimitado::Clase::Simple;
                c.valor = SinBlancos(linea.substr(i, coma - i));
                i = coma;
            } else {
                c.clase =
                    marca == '"' ? CampoDelimitado::Clase::Texto : CampoDelimitado::Clase::Literal;
                c.valor = linea.substr(i + 1, fin - i - 1);
                c.cerrado = cierre != std::string_view::npos;
                i = fin;
            }
        } else {
            const std::size_t coma = linea.find(',', i);
            const std::size_t fin = coma == std::string_view::npos ? linea.size() : coma;
            c.valor = SinBlancos(linea.substr(i, fin - i));
            c.clase =
                c.valor.empty() ? CampoDelimitado::Clase::Vacio : CampoDelimitado::Clase::Simple;
            i = fin;
        }
        campos.push_back(std::move(c));
        if (!SaltarASiguiente(linea, i)) {
            return campos;
        }
    }
}

std::string ComoTexto(const CampoDelimitado& c, int linea) {
    if (c.clase == CampoDelimitado::Clase::Literal) {
        Falla(linea, "un texto entre comillas", c);
    }
    if (!c.cerrado) {
        Falla(linea, "un texto con su comilla de cierre", c);
    }
    return c.valor;
}

bool ComoBooleano(const CampoDelimitado& c, int linea) {
    if (c.clase == CampoDelimitado::Clase::Literal) {
        if (c.valor == "TRUE" || c.valor == "true" || c.valor == "True") {
            return true;
        }
        if (c.valor == "FALSE" || c.valor == "false" || c.valor == "False") {
            return false;
        }
    }
    Falla(linea, "#TRUE# o #FALSE#", c);
}

Fecha ComoFecha(const CampoDelimitado& c, int linea) {
    if (c.clase == CampoDelimitado::Clase::Literal) {
        if (const auto f = LeerLiteralFecha(c.valor)) {
            return *f;
        }
    }
    Falla(linea, "una fecha entre # (#aaaa-mm-dd#, #hh:mm:ss#)", c);
}

FechaVariante ComoFechaVariante(const CampoDelimitado& c, int linea) {
    if (c.clase == CampoDelimitado::Clase::Vacio) {
        return FechaVariante::Vacia();
    }
    if (c.clase == CampoDelimitado::Clase::Literal && c.valor == "NULL") {
        return FechaVariante::Nula();
    }
    return FechaVariante::De(ComoFecha(c, linea));
}

std::int64_t ComoEntero(const CampoDelimitado& c, int linea, std::int64_t minimo,
                        std::int64_t maximo) {
    const std::string esperado =
        "un numero entero de " + std::to_string(minimo) + " a " + std::to_string(maximo);
    if (c.clase != CampoDelimitado::Clase::Simple) {
        Falla(linea, esperado, c);
    }
    std::string_view t = c.valor;
    if (!t.empty() && t.front() == '+') {
        t.remove_prefix(1);
    }
    std::int64_t v = 0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (t.empty() || r.ec != std::errc() || r.ptr != t.data() + t.size() || v < minimo ||
        v > maximo) {
        Falla(linea, esperado, c);
    }
    return v;
}

float ComoFlotante(const CampoDelimitado& c, int linea) {
    if (c.clase == CampoDelimitado::Clase::Simple) {
        if (const auto v = LeerFlotanteCompleto(c.valor)) {
            return *v;
        }
    }
    Falla(linea, "un numero", c);
}

} // namespace vorimesk
