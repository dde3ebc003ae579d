#pragma once
// Who hears the headless meter's events: the output (text or JSON lines) and
// the state file of the data folder, the desktop's notifications.

#include "Vigilancia.h"
#include "meter/ObservadorContador.h"

#include <iosfwd>
#include <memory>

namespace vorimesk::cli {

// `terminal`: the output is a terminal, where a status line is kept.
std::unique_ptr<Observadores> CrearObservadores(const OpcionesVigilar& opciones,
                                                std::ostream& salida, std::ostream& errores,
                                                bool terminal);

} // namespace vorimesk::cli
