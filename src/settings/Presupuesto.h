#pragma once
// The user's budget for a billing period, kept in a small file of its own,
// "Presupuesto.Dat", beside the settings file (whose layout stays as it is):
// one line with the amount, "." as the decimal point, CR LF. No file (or a blank
// one) means no budget. The file is replaced whole through a temporary file, never
// truncated in place.

#include <filesystem>
#include <optional>
#include <string_view>

namespace vorimesk {

inline constexpr std::string_view kArchivoPresupuesto = "Presupuesto.Dat";

// An amount as the user writes it (see NumeroEscrito: "1.500,50", "1500.5").
// Nullopt for anything else, and for 0 or less: a budget has to allow some
// spending.
std::optional<double> LeerTextoPresupuesto(std::string_view texto);

// The budget of the data folder; nullopt when there is none. Throws
// ErrorFormato naming the file when it holds no amount, ErrorArchivo when it
// cannot be read.
std::optional<double> LeerPresupuesto(const std::filesystem::path& carpeta);

// Writes the budget, or removes the file for none. Throws ErrorArchivo and
// leaves the old file as it was when it cannot.
void GuardarPresupuesto(const std::filesystem::path& carpeta, std::optional<double> presupuesto);

} // namespace vorimesk
