#include "AplicacionCli.h"
#include "OrdenesRegistro.h"

namespace vorimesk::cli {

void RegistrarOrdenes(AplicacionCli& aplicacion) {
    RegistrarOrdenRegistro(aplicacion);
    RegistrarOrdenExportar(aplicacion);
    RegistrarOrdenesCopias(aplicacion);
}

} // namespace vorimesk::cli
