#pragma once
// The calls of a register written out for other programs: JSON with the
// register's own field names, or CSV for a spreadsheet. The command line's
// "exportar" and the window's export of the register tab write with these,
// so both give the same file for the same calls.

#include "Log.h"

#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// The calls with Dia from `desde` to `hasta` (each optional, inclusive).
struct FiltroFechas {
    std::optional<Fecha> desde;
    std::optional<Fecha> hasta;
    bool Incluye(Fecha dia) const { return (!desde || *desde <= dia) && (!hasta || dia <= *hasta); }
};

// Register indices of the calls that pass, in register order.
std::vector<int> IndicesEntre(const Log& log, const FiltroFechas& filtro);

// One call with the register's field names. "importe" is the text the
// register holds, or its number when `importeNumero`; "Tipo" is the band,
// so a stored 255 shows as -1.
nlohmann::json LlamadaJson(const Log& log, int i, bool importeNumero);
// {"llamadas": [...]} with the calls at `indices`.
nlohmann::json LlamadasJson(const Log& log, const std::vector<int>& indices, bool importeNumero);

// ";"-separated with a header row, ISO dates, "," as decimal point for the
// cost (as Spanish spreadsheets expect), CR LF line ends.
std::string LlamadasCsv(const Log& log, const std::vector<int>& indices);

enum class FormatoExportacion { Csv, Json };
// ".json" (any case) is JSON; anything else CSV.
FormatoExportacion FormatoDeArchivo(const std::filesystem::path& ruta);
// The whole file: the CSV, or the JSON indented with the cost as a number.
std::string TextoExportado(const Log& log, const std::vector<int>& indices,
                           FormatoExportacion formato);

// Text for the user: the NUL padding some register files hold is not shown.
std::string Visible(std::string texto);

} // namespace vorimesk
