// recalcular: prices every call of the register again with the current
// tariffs, holidays and bono ledger, as the main window offers after an edit.

#include "AjustesCli.h"
#include "OrdenesRegistro.h"
#include "core/Reloj.h"
#include "register/Log.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

namespace vorimesk::cli {
namespace {

int Recalcular(ContextoCli& contexto, bool json, std::ostream& salida, std::ostream& errores) {
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    const RecalculoLog r = sesion.Recalcular();
    sesion.GuardarBonoSiCambio();
    const Log& log = sesion.Registro();
    if (r.LlamadasSinTarifa > 0) {
        errores << AvisoTarifasDesconocidas(r) << "\n";
    }
    if (json) {
        nlohmann::json j{{"llamadas", log.Count()}};
        // Only when there are any, so the usual answer keeps its shape.
        if (r.LlamadasSinTarifa > 0) {
            j["tarifasDesconocidas"] = r.TarifasDesconocidas;
            j["llamadasSinTarifa"] = r.LlamadasSinTarifa;
        }
        salida << j.dump() << "\n";
    } else {
        salida << "Llamadas recalculadas: " << log.Count() << ".\n";
    }
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenRecalcular(AplicacionCli& aplicacion) {
    auto json = std::make_shared<bool>(false);
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden(
        "recalcular", "Vuelve a calcular todas las llamadas del registro con los datos actuales",
        [json, &contexto](std::ostream& salida, std::ostream& errores) {
            return Recalcular(contexto, *json, salida, errores);
        });
    orden->add_flag("--json", *json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
