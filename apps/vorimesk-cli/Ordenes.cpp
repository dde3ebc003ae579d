#include "Ordenes.h"

#include "OrdenesComparacion.h"
#include "OrdenesPlanes.h"
#include "OrdenesRegistro.h"
#include "core/CarpetaDatos.h"
#include "tariff/LibroPorDefecto.h"

namespace vorimesk::cli {

void RegistrarOrdenes(AplicacionCli& aplicacion) {
    // A data folder made on this run starts with the shipped tariff book.
    CarpetaDatos::AlCrear(InstalarLibroPorDefecto);
    RegistrarCalcular(aplicacion);
    RegistrarPeriodos(aplicacion);
    RegistrarTarifas(aplicacion);
    RegistrarOrdenRegistro(aplicacion);
    RegistrarOrdenExportar(aplicacion);
    RegistrarOrdenesCopias(aplicacion);
    RegistrarOrdenLeerLog(aplicacion);
    RegistrarOrdenRecalcular(aplicacion);
    RegistrarOrdenComparar(aplicacion);
    RegistrarOrdenPrevision(aplicacion);
    RegistrarOrdenesPlanes(aplicacion);
    RegistrarOrdenVigilar(aplicacion);
    RegistrarOrdenesLinea(aplicacion);
}

} // namespace vorimesk::cli
