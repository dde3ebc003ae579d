#pragma once
// The one convention of the program's text files (settings, archives and
// their index): comma-separated fields, text between double quotes with no
// escaping, dates and times between "#" signs, #TRUE# / #FALSE#, #NULL# for a
// null value, an empty field for an empty one, CR LF line ends. Text here is
// UTF-8; the files hold Windows-1252, converted by the codecs at the edge.

#include "Fecha.h"
#include "FechaVariante.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

inline constexpr std::string_view kFinDeLinea = "\r\n";

std::string Entrecomillar(std::string_view texto);
std::string LiteralBooleano(bool valor);
// #yyyy-mm-dd# for a pure date, #hh:mm:ss# for a value on day 0 (a time of
// day, midnight included), #yyyy-mm-dd hh:mm:ss# for both.
std::string LiteralFecha(Fecha f);
// An empty text, #NULL# or the date literal.
std::string LiteralFechaVariante(const FechaVariante& f);

// The content between the # signs as written above; nullopt when it is not
// a valid date or time, or its year is before 100 (no date value holds it).
std::optional<Fecha> LeerLiteralFecha(std::string_view contenido);

struct CampoDelimitado {
    enum class Clase {
        Vacio,   // nothing between the separators
        Texto,   // "..." (valor: the text between the quotes)
        Literal, // #...# (valor: the text between the signs)
        Simple   // anything else, blanks around it removed
    };
    Clase clase = Clase::Vacio;
    std::string valor;
    bool cerrado = true; // false for a quoted text cut before its closing quote
};

// The fields of one line, as the file reader of the original format splits
// them: a quoted text runs to the next quote (commas inside it included) and
// whatever follows it up to the next comma is dropped, so a text that itself
// holds a quote is cut rather than shifting the fields behind it.
std::vector<CampoDelimitado> CamposDeLinea(std::string_view linea);

// Typed reading of one field. Each throws ErrorFormato naming `linea` (from
// 1) with a Spanish description of what was expected; the caller adds the
// file name (ErrorFormato::ConRuta).
std::string ComoTexto(const CampoDelimitado& c, int linea);
bool ComoBooleano(const CampoDelimitado& c, int linea);
Fecha ComoFecha(const CampoDelimitado& c, int linea);
FechaVariante ComoFechaVariante(const CampoDelimitado& c, int linea);
std::int64_t ComoEntero(const CampoDelimitado& c, int linea, std::int64_t minimo,
                        std::int64_t maximo);
float ComoFlotante(const CampoDelimitado& c, int linea);

} // namespace vorimesk
