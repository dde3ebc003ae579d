#pragma once
// Reading the modem driver's session log. Every line the register uses
// starts with a time stamp in fixed columns (from 1): the date "mm-dd-yyyy"
// in 1-10, a blank, the time "hh:mm:ss" in 12-19, then " - " with its hyphen
// in column 24 and the message.

#include "core/Fecha.h"

#include <string_view>

namespace vorimesk {

// Keywords searched anywhere in a line, case counting.
inline constexpr std::string_view kModemEnUso = "in use";
inline constexpr std::string_view kModemMarcando = "Dialing";
inline constexpr std::string_view kModemConectado = "CONNECT";
inline constexpr std::string_view kModemColgando = "Hanging up";
inline constexpr std::string_view kModemCerrado = "closed";
inline constexpr std::string_view kModemLeidos = "Reads :";
inline constexpr std::string_view kModemEscritos = "Writes:";

// The moment given by the 10 date characters ("mm-dd-yyyy"; the separators
// may be any non-digit) and the 8 time characters ("hh:mm:ss"). The year is
// taken with its four digits as it stands. Throws ErrorTipo when they do not
// form a date and a time of day.
Fecha FechaHoraModem(std::string_view fecha, std::string_view hora);

// The date value of a line's time stamp (columns 1-10 and 12-19).
Fecha FechaHoraDeLinea(std::string_view linea);

// The start of the last session in the log text: the stamp in front of the
// hyphen that precedes the last "in use" (the date 23 characters and the time
// 12 characters before it). The date value 1 (31 Dec 1899) when the text
// holds no "in use". Throws ErrorTipo when the columns there hold no stamp.
Fecha UltimoInicioDeSesion(std::string_view texto);

} // namespace vorimesk
