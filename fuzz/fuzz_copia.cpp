// An archive file and the archive index: any text reads or is refused with
// ErrorFormato, and what the program writes reads back as it was written. A
// text that itself holds a quote is cut at it when read back (the format has
// no escaping), so the comparison starts from the program's own file.
#include "Comprobar.h"
#include "core/ErrorFormato.h"
#include "core/Texto1252.h"
#include "core/TextoDelimitado.h"
#include "register/FormatoCopia.h"
#include "register/IndiceCopias.h"

#include <string_view>

using namespace vorimesk;

namespace {

std::string Escribir(const std::vector<RegistroLlamada>& registros) {
    std::string texto;
    for (const RegistroLlamada& r : registros) {
        texto += LineaCopia(r);
        texto += kFinDeLinea;
    }
    return texto;
}

// The calls as the program writes them, read back from that text.
std::vector<RegistroLlamada> Releer(const std::vector<RegistroLlamada>& registros) {
    try {
        return LeerCopia(A1252(Escribir(registros))); // the file holds Windows-1252
    } catch (const ErrorFormato& e) {
        fuzz::Comprobar(false, e.what());
    }
    return {};
}

void Copia(std::string_view bytes) {
    std::vector<RegistroLlamada> registros;
    try {
        registros = LeerCopia(bytes);
    } catch (const ErrorFormato&) {
        return;
    }
    const std::vector<RegistroLlamada> propias = Releer(registros);
    fuzz::Comprobar(propias.size() == registros.size(), "copia: mismas llamadas");
    fuzz::Comprobar(Releer(propias) == propias, "copia ida y vuelta");
}

std::vector<EntradaIndice> Releer(const std::vector<EntradaIndice>& entradas) {
    try {
        return IndiceCopias::Leer(IndiceCopias::Escribir(entradas));
    } catch (const ErrorFormato& e) {
        fuzz::Comprobar(false, e.what());
    }
    return {};
}

void Indice(std::string_view bytes) {
    std::vector<EntradaIndice> entradas;
    try {
        entradas = IndiceCopias::Leer(bytes);
    } catch (const ErrorFormato&) {
        return;
    }
    const std::vector<EntradaIndice> propias = Releer(entradas);
    fuzz::Comprobar(propias.size() == entradas.size(), "indice: mismas entradas");
    fuzz::Comprobar(Releer(propias) == propias, "indice ida y vuelta");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamaño) {
    const std::string_view bytes(reinterpret_cast<const char*>(datos), tamaño);
    Copia(bytes);
    Indice(bytes);
    return 0;
}
