#pragma once
// A date value: whole seconds since 30 Dec 1899 00:00:00 (signed). Files hold
// it as the 8-byte OLE date double; conversion happens only at file edges.

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

class Fecha {
public:
    static constexpr std::int64_t kSegundosDia = 86400;

    constexpr Fecha() = default;
    static constexpr Fecha DesdeSegundos(std::int64_t s) {
        Fecha f;
        f.segundos_ = s;
        return f;
    }
    // Throws ErrorTipo when the calendar date or the time does not exist.
    static Fecha Crear(int año, int mes, int dia, int hora = 0, int minuto = 0, int segundo = 0);
    // OLE dates keep the time of day as a positive fraction even before
    // 1899-12-30 (-1.25 is 29 Dec 1899 06:00); rounded to the nearest second.
    // Throws ErrorDesbordamiento for values no calendar can hold (NaN, huge).
    static Fecha DesdeOle(double ole);
    double AOle() const;

    std::int64_t Segundos() const { return segundos_; }
    std::int64_t Dias() const;
    std::int32_t SegundosDelDia() const;
    int Año() const;
    int Mes() const;
    int Dia() const;
    int Hora() const { return SegundosDelDia() / 3600; }
    int Minuto() const { return SegundosDelDia() / 60 % 60; }
    int Segundo() const { return SegundosDelDia() % 60; }
    // 1 = Sunday ... 7 = Saturday.
    int DiaSemana() const;

    Fecha SoloFecha() const { return DesdeSegundos(Dias() * kSegundosDia); }
    Fecha SoloHora() const { return DesdeSegundos(SegundosDelDia()); }
    Fecha MasSegundos(std::int64_t s) const { return DesdeSegundos(segundos_ + s); }
    Fecha MasDias(std::int64_t d) const { return MasSegundos(d * kSegundosDia); }
    // Calendar months; a day that the target month lacks becomes its last day.
    Fecha MasMeses(int meses) const;

    // dd/mm/yyyy, plus " hh:mm:ss" when the time is not midnight. Never "-",
    // which separates the two ends of a billing period text.
    std::string TextoCorto() const;
    static std::optional<Fecha> LeerTextoCorto(std::string_view texto);
    // yyyy-mm-dd hh:mm:ss, as the command line and exports use it.
    std::string TextoIso() const;
    std::string TextoIsoFecha() const;
    // "AAAA-MM-DD hh:mm:ss" or "AAAA-MM-DD" (time 00:00:00).
    static std::optional<Fecha> LeerIso(std::string_view texto);

    auto operator<=>(const Fecha&) const = default;

private:
    std::int64_t segundos_ = 0;
};

} // namespace vorimesk
