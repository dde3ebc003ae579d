#pragma once
// The words of an alert, for whoever shows it beside the sound: a desktop
// notification, the command line's event lines.

#include "PantallaMonitor.h"
#include "SucesoMonitor.h"

#include <string>

namespace vorimesk {

// Short lowercase name of the alert's kind ("tiempo", "importe", ...), as the
// command line's events carry it.
const char* ClaseAviso(MotivoAviso motivo);

// One Spanish sentence with the figure that fired it, taken from what the
// meter shows at that moment.
std::string TextoAviso(MotivoAviso motivo, const PantallaMonitor& pantalla);

} // namespace vorimesk
