#pragma once
// Each command of vorimesk-cli adds itself to the application from a file of
// its own.

#include "AplicacionCli.h"

namespace vorimesk::cli {

void RegistrarCalcular(AplicacionCli& aplicacion);
void RegistrarPeriodos(AplicacionCli& aplicacion);
void RegistrarTarifas(AplicacionCli& aplicacion);
void RegistrarOrdenVigilar(AplicacionCli& aplicacion); // vigilar
void RegistrarOrdenesLinea(AplicacionCli& aplicacion); // marcar, colgar

} // namespace vorimesk::cli
