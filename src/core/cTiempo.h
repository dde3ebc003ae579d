#pragma once
// A duration in hours, minutes and seconds with the text form hh:mm:ss. Used
// for call durations, included time, bundle balances and totals.
//
// The fields are 16-bit and are kept exactly as the text said when set with
// Valor (0:75:00 keeps 75 minutes); only arithmetic normalises. Anything that
// does not fit its 16-bit field or the 32-bit total throws ErrorDesbordamiento.

#include <cstdint>
#include <string>
#include <string_view>

namespace vorimesk {

class Fecha;

class cTiempo {
public:
    cTiempo() = default;
    explicit cTiempo(std::string_view texto) { Valor(texto); }

    // Parses h:m:s text. Deliberately lenient: "1:30" is 01:30:00, text with
    // no ":" reads its number as both hours and minutes ("5" is 05:05:00),
    // non-numeric parts read as 0 and nothing is range-checked.
    void Valor(std::string_view texto);
    // Hours with at least two digits, minutes and seconds with two; negative
    // fields keep their sign ("-01:-01:-01").
    std::string Valor() const;

    void Sumar(const cTiempo& otro);
    void Sumar(std::string_view texto);
    // A time object is subtracted by its total; text or a date value is taken
    // as a clock time (hour of day, minute, second), so text must be a valid
    // time of day or ErrorTipo is thrown.
    void Restar(const cTiempo& otro);
    void Restar(std::string_view horaDelDia);
    void Restar(const Fecha& horaDelDia);

    void Iniciar();
    std::int32_t ConvSegundos() const;
    void ConvTiempo(std::int32_t segundos);
    bool EstaVacio() const { return ConvSegundos() == 0; }
    bool EsMayor(std::string_view texto) const;
    bool EsMenor(std::string_view texto) const;
    bool EsIgual(std::string_view texto) const;

    std::int16_t Horas() const { return horas_; }
    std::int16_t Minutos() const { return minutos_; }
    std::int16_t Segundos() const { return segundos_; }

private:
    void SumarSegundos(std::int64_t segundos);

    std::int16_t horas_ = 0;
    std::int16_t minutos_ = 0;
    std::int16_t segundos_ = 0;
};

// Seconds of a clock-time text "h:m[:s]" that must be a valid time of day.
std::int32_t SegundosDeHoraDelDia(std::string_view texto);

} // namespace vorimesk
