#pragma once
// The meter's words for what it sees: one status line per tick and one line per
// thing that happened.

#include "monitor/LecturaConexion.h"
#include "monitor/MonitorConexion.h"

#include <optional>
#include <string>

namespace vorimesk {

class Log;

// "Sin conexion", "Conectando", "Conectado", "Desconectado" by state code.
const char* NombreEstado(int estado);

// "12:00:13 | Conectado | Conexion: Mi proveedor | Duracion: 00:00:02 |
// Coste: 0.20 | Franja: Normal | BonoNet: no"; the call's figures only while
// the meter runs.
std::string LineaEstado(const MonitorConexion& monitor, const LecturaConexion& lectura);

// The line telling what happened, or none for what the command line has no
// use for (the mini window, the grid refill) or tells otherwise (the calls
// entered in the register).
std::optional<std::string> LineaSuceso(const SucesoMonitor& suceso, const MonitorConexion& monitor);

// Call i of the register, as entered: start, duration, cost, tariff, entry.
std::string LineaAnotada(const Log& log, int i);

} // namespace vorimesk
