// The modem log: splitting into lines, the time stamps of its lines and the
// start of its last session, and the fields of a delimited line.
#include "Comprobar.h"
#include "core/Errores.h"
#include "core/Lineas.h"
#include "core/TextoDelimitado.h"
#include "register/LogModem.h"

#include <string_view>

using namespace vorimesk;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamaño) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), tamaño);
    const std::vector<std::string_view> lineas = DividirLineas(texto);
    std::size_t caracteres = 0;
    for (std::string_view l : lineas) {
        fuzz::Comprobar(l.find_first_of("\r\n") == std::string_view::npos, "linea sin finales");
        fuzz::Comprobar(l.data() >= texto.data() && l.data() + l.size() <= texto.data() + tamaño,
                        "la linea esta dentro del texto");
        caracteres += l.size();
        try {
            FechaHoraDeLinea(l);
        } catch (const ErrorTipo&) {
        }
        const auto campos = CamposDeLinea(l);
        fuzz::Comprobar(!campos.empty(), "toda linea tiene un campo");
    }
    std::size_t finales = 0;
    for (char c : texto) {
        finales += c == '\r' || c == '\n';
    }
    fuzz::Comprobar(caracteres + finales == tamaño, "nada se pierde al dividir");
    fuzz::Comprobar(lineas.size() <= finales + 1, "no sobran lineas");
    try {
        UltimoInicioDeSesion(texto);
    } catch (const ErrorTipo&) {
    }
    return 0;
}
