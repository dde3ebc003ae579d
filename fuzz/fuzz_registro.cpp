// The register file: any bytes load (or are refused as too long), and the
// records loaded are written back byte for byte.
#include "Comprobar.h"
#include "core/ErrorFormato.h"
#include "core/Errores.h"
#include "register/FormatoCopia.h"
#include "register/FormatoRegistro.h"
#include "register/Importe.h"

#include <string_view>

using namespace vorimesk;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamaño) {
    const std::string_view bytes(reinterpret_cast<const char*>(datos), tamaño);
    std::vector<RegistroLlamada> registros;
    try {
        registros = LeerRegistros(bytes);
    } catch (const ErrorDesbordamiento&) {
        return 0;
    }
    const std::string escrito = EscribirRegistros(registros);
    fuzz::Comprobar(escrito == bytes.substr(0, escrito.size()), "registro ida y vuelta");
    for (const RegistroLlamada& r : registros) {
        fuzz::Comprobar(r.Dia != 0.0, "un dia cero termina el registro");
        const float importe = LeerImporte(r.importe.Texto());
        const std::string texto = TextoImporte(importe);
        fuzz::Comprobar(texto.size() <= 8, "el importe cabe en su campo");
        fuzz::Comprobar(LeerImporte(texto) == importe, "un importe leido vuelve igual");
        try {
            const std::string linea = LineaCopia(r);
            LeerCopia(linea);
        } catch (const ErrorDesbordamiento&) {
            // a day that no date can hold
        } catch (const ErrorFormato&) {
            // a text with quotes, commas or line ends of its own breaks its line
        }
    }
    return 0;
}
