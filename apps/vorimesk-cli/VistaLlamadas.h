#pragma once
// How the commands show the calls of a register: JSON, a CSV export and a
// readable table. Shared by "registro" and "exportar". The writers
// themselves are the register's (register/ExportarLlamadas.h), which the
// window's export uses too.

#include "register/ExportarLlamadas.h"
#include "register/Log.h"

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace vorimesk::cli {

// The calls that pass the date filter, written as the register's writers do.
nlohmann::json LlamadasJson(const Log& log, const FiltroFechas& filtro, bool importeNumero);
std::string LlamadasCsv(const Log& log, const FiltroFechas& filtro);

// The register as the main window's grid shows it, with totals.
void ImprimirLlamadas(std::ostream& salida, const Log& log);

// "AAAA-MM-DD" (or "AAAA-MM-DD hh:mm:ss") option values, checked by CLI11 so
// a bad date is a usage error.
CLI::Validator FechaValida();
Fecha LeerFechaArgumento(const std::string& texto);

} // namespace vorimesk::cli
