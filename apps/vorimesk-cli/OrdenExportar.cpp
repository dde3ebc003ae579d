#include "OrdenesRegistro.h"
#include "VistaLlamadas.h"
#include "core/Archivo.h"

#include <memory>
#include <ostream>

namespace vorimesk::cli {
namespace {

struct OpcionesExportar {
    std::string formato;
    std::string salida;
    std::string desde;
    std::string hasta;
};

} // namespace

void RegistrarOrdenExportar(AplicacionCli& aplicacion) {
    auto o = std::make_shared<OpcionesExportar>();
    CLI::App* orden =
        aplicacion.Orden("exportar", "Exporta las llamadas del registro en CSV o JSON",
                         [&aplicacion, o](std::ostream& salida, std::ostream& errores) {
                             Log log(aplicacion.Contexto().Carpeta());
                             log.CargarLog();
                             FiltroFechas filtro;
                             if (!o->desde.empty()) {
                                 filtro.desde = LeerFechaArgumento(o->desde);
                             }
                             if (!o->hasta.empty()) {
                                 filtro.hasta = LeerFechaArgumento(o->hasta);
                             }
                             // In JSON the cost is a number, ready for other programs.
                             const std::string texto =
                                 o->formato == "csv"
                                     ? LlamadasCsv(log, filtro)
                                     : LlamadasJson(log, filtro, true).dump(2) + "\n";
                             if (o->salida.empty()) {
                                 salida << texto;
                             } else {
                                 EscribirArchivoSeguro(o->salida, texto, kSoloUsuario);
                                 errores << "Exportado a \"" << o->salida << "\".\n";
                             }
                             return kSalidaBien;
                         });
    orden->add_option("--formato", o->formato, "csv o json")
        ->required()
        ->check(CLI::IsMember({"csv", "json"}));
    orden->add_option("--salida", o->salida, "Archivo donde escribir (por defecto, la pantalla)")
        ->type_name("FICHERO");
    orden->add_option("--desde", o->desde, "Solo las llamadas desde este dia")
        ->check(FechaValida());
    orden->add_option("--hasta", o->hasta, "Solo las llamadas hasta este dia")
        ->check(FechaValida());
}

} // namespace vorimesk::cli
