#include "AjustesCli.h"

#include "ArgumentosCli.h"
#include "core/Archivo.h"
#include "core/ErrorFormato.h"
#include "settings/ArchivoVariables.h"
#include "tariff/AjustesTarifa.h"

namespace fs = std::filesystem;

namespace vorimesk::cli {
namespace {

std::string Dañado(const fs::path& ruta, const std::string& motivo) {
    return "El archivo de opciones \"" + ruta.string() + "\" esta dañado: " + motivo +
           ". No se ha cambiado nada; corrija o aparte el archivo y repita la orden.";
}

} // namespace

AjustesDatos LeerAjustes(const fs::path& carpeta) {
    AjustesDatos a;
    a.ruta = carpeta / Settings::kNombreArchivo;
    a.valores = ValoresPorDefecto();
    std::error_code ec;
    if (fs::exists(a.ruta, ec)) {
        try {
            a.valores = LeerTextoVariables(LeerArchivo(a.ruta));
        } catch (const ErrorFormato& e) {
            throw ErrorOrden(Dañado(a.ruta, e.Linea() > 0 ? "linea " + std::to_string(e.Linea()) +
                                                                ", " + e.Detalle()
                                                          : e.Detalle()));
        }
    }
    try {
        CargarBono(a.valores, a.bono);
    } catch (const Error& e) {
        throw ErrorOrden(Dañado(a.ruta, std::string("un bono no es valido (") + e.what() + ")"));
    }
    a.festivos = FestivosDeAjustes(a.valores);
    return a;
}

bool GuardarBonoSiCambio(AjustesDatos& a) {
    // Compared as the ledger writes itself, so a time left written "10:0:0"
    // by hand does not count as a change.
    cBono leido;
    CargarBono(a.valores, leido);
    Settings antes = a.valores;
    GuardarBono(leido, antes);
    Settings despues = a.valores;
    GuardarBono(a.bono, despues);
    if (despues.Bonos == antes.Bonos && despues.DiaFactura == antes.DiaFactura &&
        despues.perFactura == antes.perFactura) {
        return false;
    }
    GuardarVariables(a.ruta, despues);
    a.valores = std::move(despues);
    return true;
}

} // namespace vorimesk::cli
