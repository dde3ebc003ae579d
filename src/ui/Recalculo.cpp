#include "Recalculo.h"

#include "DatosVentana.h"
#include "core/Errores.h"

namespace vorimesk {

void RecalcularRegistro(DatosVentana& /*datos*/) {
    throw Error("El recalculo del registro aun no esta disponible en esta version.");
}

} // namespace vorimesk
