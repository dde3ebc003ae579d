#include "Ordenes.h"

#include "core/CarpetaDatos.h"
#include "tariff/LibroPorDefecto.h"

namespace vorimesk::cli {

void RegistrarOrdenes(AplicacionCli& aplicacion) {
    // A data folder made on this run starts with the shipped tariff book.
    CarpetaDatos::AlCrear(InstalarLibroPorDefecto);
    RegistrarCalcular(aplicacion);
    RegistrarPeriodos(aplicacion);
    RegistrarTarifas(aplicacion);
}

} // namespace vorimesk::cli
