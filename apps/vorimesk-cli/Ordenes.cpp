#include "AplicacionCli.h"

namespace vorimesk::cli {

void RegistrarOrdenes(AplicacionCli&) {}

} // namespace vorimesk::cli
