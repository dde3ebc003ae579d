#pragma once
// Cuts a date range into billing periods that end on the billing day, every
// month or every two months, and hands them out one at a time as
// "start - end" texts (dd/mm/yyyy, with " hh:mm:ss" when not midnight).
// Callers call `Periodo` until it gives empty text and skip "Otro", which
// stands for a period of a year before the year filter.
//
// The walk is kept exactly as the billing figures have always been cut, odd
// corners included: the first monthly boundary is the start's own day (or the
// 1st of the next month), later periods end on midnight of the day before the
// next boundary, and the last one ends on the range end.

#include "core/Fecha.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

class cPeriodo {
public:
    static constexpr std::int16_t kSinFiltro = 9999;
    static constexpr std::string_view kOtro = "Otro";

    // The user's choice: 0 "Mensual", 1 "Par Bimensual", 2 "Impar Bimensual";
    // any other reads as "Par Bimensual".
    void Datos(std::uint8_t diaFactura, std::uint8_t eleccion);
    void Periodos(Fecha inicio, Fecha fin);
    void Filtro(std::int16_t año) { filtro_ = año; }
    // The next period; empty when there is none or until both Datos and
    // Periodos have been called.
    std::string Periodo();
    // The same period as its two ends, for whoever needs the dates and not
    // the text (`otro` for "Otro"); nullopt where Periodo gives no text.
    struct Tramo {
        Fecha desde;
        Fecha hasta;
        bool otro = false;
    };
    std::optional<Tramo> SiguienteTramo();
    // Walks from `momento` to the end and returns the last period found.
    std::string PeriodoActual(Fecha momento);
    void Reset();

    // "start - end", as Periodo writes a period.
    static std::string Texto(Fecha desde, Fecha hasta);
    // The two ends of a period text; ErrorTipo when they cannot be read.
    static Fecha FechaIni(std::string_view periodo);
    static Fecha FechaFin(std::string_view periodo);

private:
    // Internal interval codes: the parity of the boundary month, or monthly.
    static constexpr std::uint8_t kPar = 0, kImpar = 1, kMensual = 2;

    std::optional<Tramo> PrimerTramo();
    std::optional<Tramo> TramoSiguiente();

    std::uint8_t diaFactura_ = 0;
    std::uint8_t intervalo_ = kPar;
    Fecha inicio_;
    Fecha fin_;
    Fecha cursor_;
    std::int16_t filtro_ = kSinFiltro;
    std::int16_t configurado_ = 0;
    // The first period has been handed out since the last restart. The
    // cursor can land on the range start again when the range is reversed;
    // this keeps the walk from starting over for ever.
    bool primeroDado_ = false;
};

} // namespace vorimesk
