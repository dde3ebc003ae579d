#pragma once
// Commands on what the register's calls cost: under every tariff, and where
// the billing period is heading.

#include "AplicacionCli.h"

namespace vorimesk::cli {

void RegistrarOrdenComparar(AplicacionCli& aplicacion);  // comparar
void RegistrarOrdenPrevision(AplicacionCli& aplicacion); // prevision

} // namespace vorimesk::cli
