#include "IndiceCopias.h"

#include "core/Archivo.h"
#include "core/ErrorFormato.h"
#include "core/Lineas.h"
#include "core/Texto1252.h"
#include "core/TextoDelimitado.h"

#include <cstdio>

namespace fs = std::filesystem;

namespace vorimesk {

void IndiceCopias::Cargar(const fs::path& carpeta) {
    const fs::path ruta = carpeta / kNombreArchivo;
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        entradas_.clear();
        return;
    }
    try {
        entradas_ = Leer(LeerArchivo(ruta));
    } catch (const ErrorFormato& e) {
        throw e.ConRuta(ruta.string());
    }
}

void IndiceCopias::Guardar(const fs::path& carpeta) const {
    EscribirArchivoSeguro(carpeta / kNombreArchivo, Escribir(entradas_), kSoloUsuario);
}

void IndiceCopias::Añadir(std::string nombre, std::string descripcion) {
    entradas_.push_back({std::move(nombre), std::move(descripcion)});
}

std::string IndiceCopias::NombrePorDefecto() const {
    char b[32];
    std::snprintf(b, sizeof b, "Copia%03d.CPR", Count());
    return b;
}

std::optional<std::string> IndiceCopias::Descripcion(std::string_view nombre) const {
    for (auto it = entradas_.rbegin(); it != entradas_.rend(); ++it) {
        if (it->Nombre == nombre) {
            return it->Descripcion;
        }
    }
    return std::nullopt;
}

std::vector<EntradaIndice> IndiceCopias::Leer(std::string_view bytes) {
    const std::string texto = De1252(bytes);
    std::vector<EntradaIndice> entradas;
    std::optional<std::string> nombre;
    int n = 0;
    // One value a line: a text that itself holds a quote and a comma is cut
    // there instead of shifting every entry behind it.
    for (std::string_view linea : DividirLineas(texto)) {
        ++n;
        std::string valor = ComoTexto(CamposDeLinea(linea).front(), n);
        if (!nombre) {
            nombre = std::move(valor);
        } else {
            entradas.push_back({std::move(*nombre), std::move(valor)});
            nombre.reset();
        }
    }
    if (nombre) {
        throw ErrorFormato({}, "falta la descripcion de \"" + *nombre + "\"", n);
    }
    return entradas;
}

std::string IndiceCopias::Escribir(const std::vector<EntradaIndice>& entradas) {
    std::string texto;
    for (const EntradaIndice& e : entradas) {
        texto += Entrecomillar(e.Nombre);
        texto += kFinDeLinea;
        texto += Entrecomillar(e.Descripcion);
        texto += kFinDeLinea;
    }
    return A1252(texto);
}

} // namespace vorimesk
