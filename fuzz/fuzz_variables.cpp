// The settings file: any text reads or is refused with ErrorFormato, and
// what the program writes reads back as it was written. A text that itself
// holds a quote is cut at it when read back (the format has no escaping), so
// the comparison starts from the program's own file.
#include "Comprobar.h"
#include "core/ErrorFormato.h"
#include "settings/ArchivoVariables.h"

#include <optional>
#include <string_view>

using namespace vorimesk;

namespace {

// The program's file for these settings; none when a value cannot be
// written (a time that no longer fits once normalised).
std::optional<std::string> Escribir(const Settings& s) {
    try {
        return EscribirTextoVariables(s);
    } catch (const ErrorDesbordamiento&) {
        return std::nullopt;
    }
}

Settings Releer(const std::string& texto) {
    try {
        return LeerTextoVariables(texto);
    } catch (const ErrorFormato& e) {
        fuzz::Comprobar(false, e.what());
    }
    return {};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamaño) {
    const std::string_view bytes(reinterpret_cast<const char*>(datos), tamaño);
    Settings s;
    try {
        s = LeerTextoVariables(bytes);
    } catch (const ErrorFormato&) {
        return 0;
    }
    const auto primero = Escribir(s);
    if (!primero) {
        return 0;
    }
    const auto propio = Escribir(Releer(*primero));
    fuzz::Comprobar(propio.has_value(), "lo escrito se vuelve a escribir");
    fuzz::Comprobar(Escribir(Releer(*propio)) == propio, "opciones ida y vuelta");
    return 0;
}
