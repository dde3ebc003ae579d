#pragma once
// Puts lines of text on a printer in a fixed-pitch font, one character per
// column at twelve characters to the inch (narrower when the page is too
// small for the columns), breaking pages where the lines run out and
// numbering every page at its foot ("Pagina 2 de 5").

#include <string>
#include <vector>

class QPrinter;

namespace vorimesk {

// Characters a line may hold before it is cut off at the page edge; the
// register report needs 120.
inline constexpr int kColumnasInforme = 120;

// The page set-up the reports expect: landscape so the register's ten
// columns fit at full pitch, with 15 mm margins.
void PrepararImpresora(QPrinter& impresora);

// Draws the lines (their trailing carriage returns dropped); false when the
// printer cannot be opened.
bool ImprimirLineas(QPrinter& impresora, const std::vector<std::string>& lineas);

} // namespace vorimesk
