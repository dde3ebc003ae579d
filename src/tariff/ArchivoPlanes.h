#pragma once
// "Planes.json" in the data folder: read whole or not at all, written
// through a temporary file so the user's plans are never cut short.

#include "Planes.h"

#include <filesystem>
#include <optional>
#include <string_view>

namespace vorimesk {

inline constexpr std::string_view kArchivoPlanes = "Planes.json";

std::filesystem::path RutaPlanes(const std::filesystem::path& carpeta);
// nullopt when the folder holds no plan file. A file that is not a plan
// file throws ErrorPlanes naming the file and the field.
std::optional<Planes> CargarPlanes(const std::filesystem::path& carpeta);
void GuardarPlanes(const std::filesystem::path& carpeta, const Planes& planes);

} // namespace vorimesk
