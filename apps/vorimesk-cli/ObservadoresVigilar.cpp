#include "ObservadoresVigilar.h"

#include "AvisoEscritorio.h"
#include "SalidaJson.h"
#include "SalidaTexto.h"
#include "meter/EstadoCompartido.h"

namespace vorimesk::cli {

std::unique_ptr<Observadores> CrearObservadores(const OpcionesVigilar& o, std::ostream& salida,
                                                std::ostream& errores, bool terminal) {
    auto observadores = std::make_unique<Observadores>();
    // The state file first: whoever reads an event line finds it there too.
    observadores->Añadir(std::make_unique<EstadoCompartido>());
    if (o.json) {
        observadores->Añadir(std::make_unique<SalidaJson>(salida));
    } else {
        observadores->Añadir(std::make_unique<SalidaTexto>(salida, errores, terminal));
    }
    observadores->Añadir(std::make_unique<AvisoEscritorio>(CrearNotificadorEscritorio()));
    return observadores;
}

} // namespace vorimesk::cli
