#pragma once
// The tariff book shipped with the program, written into a new data folder on
// first run. Its tariffs are the table in LibroPorDefecto.cpp; nothing binary
// is kept in the sources.
//
// "Metropolitana" comes first and is the tariff the program prices with by
// default; its connection charge includes no time, so a call is metered from
// its first second. "BonoNet" sits at index 1 because the BonoNet day/night
// test reads that index: its normal band is the BonoNet day (weekdays 08:00 to
// 17:59:59), everything else is night.

#include <filesystem>

namespace vorimesk {

class cLlamada;

// Appends the shipped tariffs to the book.
void RellenarLibroPorDefecto(cLlamada& libro);

// Writes the shipped "Tarifas.Dat" into `carpeta` unless one is there already.
// Meant for CarpetaDatos::AlCrear.
void InstalarLibroPorDefecto(const std::filesystem::path& carpeta);

} // namespace vorimesk
