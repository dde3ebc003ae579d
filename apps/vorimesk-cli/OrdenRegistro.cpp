#include "OrdenesRegistro.h"
#include "VistaLlamadas.h"

#include <memory>
#include <ostream>

namespace vorimesk::cli {

void RegistrarOrdenRegistro(AplicacionCli& aplicacion) {
    auto json = std::make_shared<bool>(false);
    CLI::App* orden =
        aplicacion.Orden("registro", "Lista las llamadas del registro (RegDat.log)",
                         [&aplicacion, json](std::ostream& salida, std::ostream&) {
                             Log log(aplicacion.Contexto().Carpeta());
                             log.CargarLog();
                             if (*json) {
                                 salida << LlamadasJson(log, FiltroFechas{}, false).dump(2) << "\n";
                             } else {
                                 ImprimirLlamadas(salida, log);
                             }
                             return kSalidaBien;
                         });
    orden->add_flag("--json", *json, "Escribe un documento JSON");
}

} // namespace vorimesk::cli
