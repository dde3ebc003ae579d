#include "Fecha.h"

#include "Errores.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vorimesk {
namespace {

using namespace std::chrono;

constexpr sys_days kEpoca = sys_days{year{1899} / December / 30};

std::int64_t DivSuelo(std::int64_t a, std::int64_t b) {
    std::int64_t q = a / b;
    if ((a % b != 0) && ((a < 0) != (b < 0))) {
        --q;
    }
    return q;
}

year_month_day Calendario(std::int64_t dias) {
    return year_month_day{kEpoca + days{dias}};
}

// Zero-padded to `ancho` digits. Written by hand: pricing turns billing
// periods into text and back for every call it prices.
std::string Cifras(int v, int ancho) {
    if (v < 0 || v > 9999) {
        char b[16];
        std::snprintf(b, sizeof b, "%0*d", ancho, v);
        return b;
    }
    const int digitos = v > 999 ? 4 : v > 99 ? 3 : v > 9 ? 2 : 1;
    std::string t(static_cast<std::size_t>(std::max(ancho, digitos)), '0');
    for (auto i = t.size(); i-- > 0 && v > 0; v /= 10) {
        t[i] = static_cast<char>('0' + v % 10);
    }
    return t;
}

std::string Dos(int v) {
    return Cifras(v, 2);
}

std::string Cuatro(int v) {
    return Cifras(v, 4);
}

// Reads an unsigned number of 1..maxDigitos digits at t[i]; advances i.
std::optional<int> Numero(std::string_view t, std::size_t& i, int maxDigitos) {
    int v = 0;
    int n = 0;
    while (i < t.size() && n < maxDigitos && t[i] >= '0' && t[i] <= '9') {
        v = v * 10 + (t[i] - '0');
        ++i;
        ++n;
    }
    if (n == 0) {
        return std::nullopt;
    }
    return v;
}

bool Separador(std::string_view t, std::size_t& i, char c) {
    if (i < t.size() && t[i] == c) {
        ++i;
        return true;
    }
    return false;
}

void SaltarBlancos(std::string_view t, std::size_t& i) {
    while (i < t.size() && t[i] == ' ') {
        ++i;
    }
}

// Optional " h:m[:s]" tail; fails on anything else left over.
std::optional<std::int32_t> LeerHoraFinal(std::string_view t, std::size_t& i) {
    SaltarBlancos(t, i);
    if (i == t.size()) {
        return 0;
    }
    auto h = Numero(t, i, 2);
    if (!h || !Separador(t, i, ':')) {
        return std::nullopt;
    }
    auto m = Numero(t, i, 2);
    if (!m) {
        return std::nullopt;
    }
    int s = 0;
    if (Separador(t, i, ':')) {
        auto ss = Numero(t, i, 2);
        if (!ss) {
            return std::nullopt;
        }
        s = *ss;
    }
    SaltarBlancos(t, i);
    if (i != t.size() || *h > 23 || *m > 59 || s > 59) {
        return std::nullopt;
    }
    return *h * 3600 + *m * 60 + s;
}

std::optional<Fecha> Componer(int a, int m, int d, std::optional<std::int32_t> hora) {
    if (!hora) {
        return std::nullopt;
    }
    const year_month_day ymd{year{a}, month{static_cast<unsigned>(m)},
                             day{static_cast<unsigned>(d)}};
    if (m < 1 || m > 12 || d < 1 || !ymd.ok()) {
        return std::nullopt;
    }
    const auto dias = (sys_days{ymd} - kEpoca).count();
    return Fecha::DesdeSegundos(dias * Fecha::kSegundosDia + *hora);
}

} // namespace

Fecha Fecha::Crear(int a, int m, int d, int hora, int minuto, int segundo) {
    const bool horaValida =
        hora >= 0 && hora < 24 && minuto >= 0 && minuto < 60 && segundo >= 0 && segundo < 60;
    auto f = Componer(a, m, d,
                      horaValida ? std::optional<std::int32_t>(hora * 3600 + minuto * 60 + segundo)
                                 : std::nullopt);
    if (!f) {
        throw ErrorTipo("fecha u hora inexistente");
    }
    return *f;
}

Fecha Fecha::DesdeOle(double ole) {
    // Beyond year 9999 either way the value is not a date.
    if (!std::isfinite(ole) || ole > 2958466.0 || ole < -657435.0) {
        throw ErrorDesbordamiento("fecha fuera de intervalo");
    }
    const double entero = std::trunc(ole);
    const double fraccion = std::fabs(ole - entero);
    const auto dias = static_cast<std::int64_t>(entero);
    return DesdeSegundos(dias * kSegundosDia + std::llround(fraccion * kSegundosDia));
}

double Fecha::AOle() const {
    const std::int64_t dias = Dias();
    const double fraccion = static_cast<double>(SegundosDelDia()) / kSegundosDia;
    return dias >= 0 ? static_cast<double>(dias) + fraccion : static_cast<double>(dias) - fraccion;
}

std::int64_t Fecha::Dias() const {
    return DivSuelo(segundos_, kSegundosDia);
}

std::int32_t Fecha::SegundosDelDia() const {
    return static_cast<std::int32_t>(segundos_ - Dias() * kSegundosDia);
}

int Fecha::Año() const {
    return static_cast<int>(Calendario(Dias()).year());
}
int Fecha::Mes() const {
    return static_cast<int>(unsigned(Calendario(Dias()).month()));
}
int Fecha::Dia() const {
    return static_cast<int>(unsigned(Calendario(Dias()).day()));
}

int Fecha::DiaSemana() const {
    // Day 0, 30 Dec 1899, was a Saturday (7).
    const std::int64_t desdeSabado = ((Dias() % 7) + 7) % 7;
    return static_cast<int>((desdeSabado + 6) % 7) + 1;
}

Fecha Fecha::MasMeses(int meses) const {
    const year_month_day ymd = Calendario(Dias());
    year_month destino = year_month{ymd.year(), ymd.month()} + months{meses};
    const day ultimo = year_month_day_last{destino.year(), month_day_last{destino.month()}}.day();
    const day d = ymd.day() > ultimo ? ultimo : ymd.day();
    const auto dias = (sys_days{destino / d} - kEpoca).count();
    return DesdeSegundos(dias * kSegundosDia + SegundosDelDia());
}

std::string Fecha::TextoCorto() const {
    const year_month_day ymd = Calendario(Dias());
    std::string t = Dos(static_cast<int>(unsigned(ymd.day()))) + "/" +
                    Dos(static_cast<int>(unsigned(ymd.month()))) + "/" +
                    Cuatro(static_cast<int>(ymd.year()));
    if (SegundosDelDia() != 0) {
        t += " " + Dos(Hora()) + ":" + Dos(Minuto()) + ":" + Dos(Segundo());
    }
    return t;
}

std::optional<Fecha> Fecha::LeerTextoCorto(std::string_view t) {
    std::size_t i = 0;
    SaltarBlancos(t, i);
    auto d = Numero(t, i, 2);
    if (!d || !Separador(t, i, '/')) {
        return std::nullopt;
    }
    auto m = Numero(t, i, 2);
    if (!m || !Separador(t, i, '/')) {
        return std::nullopt;
    }
    auto a = Numero(t, i, 4);
    if (!a) {
        return std::nullopt;
    }
    return Componer(*a, *m, *d, LeerHoraFinal(t, i));
}

std::string Fecha::TextoIsoFecha() const {
    return Cuatro(Año()) + "-" + Dos(Mes()) + "-" + Dos(Dia());
}

std::string Fecha::TextoIso() const {
    return TextoIsoFecha() + " " + Dos(Hora()) + ":" + Dos(Minuto()) + ":" + Dos(Segundo());
}

std::optional<Fecha> Fecha::LeerIso(std::string_view t) {
    std::size_t i = 0;
    SaltarBlancos(t, i);
    auto a = Numero(t, i, 4);
    if (!a || !Separador(t, i, '-')) {
        return std::nullopt;
    }
    auto m = Numero(t, i, 2);
    if (!m || !Separador(t, i, '-')) {
        return std::nullopt;
    }
    auto d = Numero(t, i, 2);
    if (!d) {
        return std::nullopt;
    }
    return Componer(*a, *m, *d, LeerHoraFinal(t, i));
}

} // namespace vorimesk
