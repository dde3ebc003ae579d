#pragma once
// The two printed reports as plain text laid out at character columns: the
// call register as the grid shows it, and the tariff book. Each line ends
// with a carriage return followed by the line break; the printer breaks the
// pages where the lines run out.
//
// Cells are cut where the layout says so (10 characters of a column title,
// 3 of a price, 5 of a time), even where that cuts a value short. Other cells
// are printed whole; when a cell reaches the next column's start, that next
// cell follows it after one blank, and the cells after it are back in their
// columns as soon as there is room.

#include "core/Fecha.h"

#include <array>
#include <string>
#include <vector>

namespace vorimesk {

class cLlamada;
struct Listado;

// Where the line is written from column n (counted from 1; 0 counts as 1).
class LineaInforme {
public:
    LineaInforme& En(int columna, const std::string& texto);
    LineaInforme& Texto(const std::string& texto);
    const std::string& Valor() const { return texto_; }

private:
    std::string texto_;
};

using FilaRegistro = std::array<std::string, 10>;

// "Registro de llamadas", the range the rows come from (TextoRango), the
// column titles at columns c * 12, one line per grid row and, after an empty
// line, the listing's totals.
std::vector<std::string> InformeRegistro(const std::vector<FilaRegistro>& filas,
                                         const std::string& rango, const Listado& totales);

// Two empty lines, "Tarifas", and each tariff of the book in book order.
std::vector<std::string> InformeTarifas(const cLlamada& libro);

// The lines joined, each ending with "\r\n".
std::string TextoInforme(const std::vector<std::string>& lineas);

} // namespace vorimesk
