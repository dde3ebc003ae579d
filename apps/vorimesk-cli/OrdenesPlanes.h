#pragma once
// Commands on the data plans: planes and uso.

#include "AplicacionCli.h"

namespace vorimesk::cli {

void RegistrarOrdenesPlanes(AplicacionCli& aplicacion); // planes, uso

} // namespace vorimesk::cli
