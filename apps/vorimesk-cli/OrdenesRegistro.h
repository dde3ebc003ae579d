#pragma once
// Commands on the call register and its archives.

#include "AplicacionCli.h"

namespace vorimesk::cli {

void RegistrarOrdenRegistro(AplicacionCli& aplicacion); // registro
void RegistrarOrdenExportar(AplicacionCli& aplicacion); // exportar
void RegistrarOrdenesCopias(AplicacionCli& aplicacion); // archivos, archivar, recuperar
void RegistrarOrdenLeerLog(AplicacionCli& aplicacion);   // leer-log
void RegistrarOrdenRecalcular(AplicacionCli& aplicacion); // recalcular

} // namespace vorimesk::cli
