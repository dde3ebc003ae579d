#include "Presupuesto.h"

#include "core/Archivo.h"
#include "core/ErrorFormato.h"
#include "core/FormatoNumero.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <string>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

std::string_view SinBlancos(std::string_view t) {
    while (!t.empty() && std::isspace(static_cast<unsigned char>(t.front()))) {
        t.remove_prefix(1);
    }
    while (!t.empty() && std::isspace(static_cast<unsigned char>(t.back()))) {
        t.remove_suffix(1);
    }
    return t;
}

// The shortest text that reads back as the same amount.
std::string TextoCantidad(double cantidad) {
    char texto[64];
    const auto r = std::to_chars(texto, texto + sizeof texto, cantidad);
    return std::string(texto, r.ptr);
}

// The file's own form: "." (or "," by hand) as the decimal point, never a
// thousands mark, so "1.125" stays one and an eighth.
std::optional<double> LeerCantidadArchivo(std::string_view texto) {
    std::string limpio(SinBlancos(texto));
    bool separador = false;
    bool cifras = false;
    for (char& c : limpio) {
        if (c == ',' || c == '.') {
            if (separador) {
                return std::nullopt;
            }
            separador = true;
            c = '.';
        } else if (std::isdigit(static_cast<unsigned char>(c))) {
            cifras = true;
        } else {
            return std::nullopt;
        }
    }
    if (!cifras) {
        return std::nullopt;
    }
    double cantidad = 0.0;
    const auto r = std::from_chars(limpio.data(), limpio.data() + limpio.size(), cantidad,
                                   std::chars_format::fixed);
    if (r.ec != std::errc() || r.ptr != limpio.data() + limpio.size() || !std::isfinite(cantidad) ||
        cantidad <= 0.0) {
        return std::nullopt;
    }
    return cantidad;
}

} // namespace

std::optional<double> LeerTextoPresupuesto(std::string_view texto) {
    const std::optional<std::string> numero = NumeroEscrito(texto);
    return numero ? LeerCantidadArchivo(*numero) : std::nullopt;
}

std::optional<double> LeerPresupuesto(const fs::path& carpeta) {
    const fs::path ruta = carpeta / kArchivoPresupuesto;
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        return std::nullopt;
    }
    const std::string texto = LeerArchivo(ruta);
    if (SinBlancos(texto).empty()) {
        return std::nullopt;
    }
    const std::optional<double> cantidad = LeerCantidadArchivo(texto);
    if (!cantidad) {
        throw ErrorFormato(ruta.string(),
                           "no tiene un presupuesto valido (una cantidad mayor que 0)", 1);
    }
    return cantidad;
}

void GuardarPresupuesto(const fs::path& carpeta, std::optional<double> presupuesto) {
    const fs::path ruta = carpeta / kArchivoPresupuesto;
    if (!presupuesto) {
        BorrarArchivo(ruta);
        return;
    }
    EscribirArchivoSeguro(ruta, TextoCantidad(*presupuesto) + "\r\n", kSoloUsuario);
}

} // namespace vorimesk
