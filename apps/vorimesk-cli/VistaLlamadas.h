#pragma once
// How the commands show the calls of a register: JSON, a CSV export and a
// readable table. Shared by "registro" and "exportar".

#include "register/Log.h"

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace vorimesk::cli {

// The calls with Dia from `desde` to `hasta` (each optional, inclusive).
struct FiltroFechas {
    std::optional<Fecha> desde;
    std::optional<Fecha> hasta;
    bool Incluye(Fecha dia) const { return (!desde || *desde <= dia) && (!hasta || dia <= *hasta); }
};

// One call with the register's field names. "importe" is the text the
// register holds, or its number when `importeNumero`; "Tipo" is the band,
// so a stored 255 shows as -1.
nlohmann::json LlamadaJson(const Log& log, int i, bool importeNumero);
nlohmann::json LlamadasJson(const Log& log, const FiltroFechas& filtro, bool importeNumero);

// ";"-separated with a header row, ISO dates, "," as decimal point for the
// cost (as Spanish spreadsheets expect), CR LF line ends.
std::string LlamadasCsv(const Log& log, const FiltroFechas& filtro);

// The register as the main window's grid shows it, with totals.
void ImprimirLlamadas(std::ostream& salida, const Log& log);

// "AAAA-MM-DD" (or "AAAA-MM-DD hh:mm:ss") option values, checked by CLI11 so
// a bad date is a usage error.
CLI::Validator FechaValida();
Fecha LeerFechaArgumento(const std::string& texto);

// Text for the user: the NUL padding some register files hold is not shown.
std::string Visible(std::string texto);

} // namespace vorimesk::cli
