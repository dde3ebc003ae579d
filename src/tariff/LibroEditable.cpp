#include "LibroEditable.h"

#include "LibroPorDefecto.h"
#include "cLlamada.h"
#include "core/Errores.h"
#include "core/Texto1252.h"

#include <algorithm>
#include <limits>

namespace vorimesk {
namespace {

constexpr std::size_t kAnchoNombre = 15;

// Cuts UTF-8 text to at most `ancho` characters (each is one byte in the
// file).
std::string Cortar(std::string_view texto, std::size_t ancho) {
    std::size_t caracteres = 0;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        const auto b = static_cast<unsigned char>(texto[i]);
        if ((b & 0xC0) != 0x80 && caracteres++ == ancho) {
            return std::string(texto.substr(0, i));
        }
    }
    return std::string(texto);
}

} // namespace

LibroEditable LibroEditable::DesdeLibro(const cLlamada& libro) {
    LibroEditable e;
    for (std::int16_t i = 0; i < libro.Count(); ++i) {
        e.tarifas_.emplace_back(libro.Tarifa(i));
    }
    return e;
}

LibroEditable LibroEditable::DeSerie() {
    cLlamada libro{std::filesystem::path()};
    RellenarLibroPorDefecto(libro);
    return DesdeLibro(libro);
}

void LibroEditable::AplicarA(cLlamada& libro) const {
    while (libro.Count() > 0) {
        libro.Delete(static_cast<std::int16_t>(libro.Count() - 1));
    }
    for (const TarifaEditable& t : tarifas_) {
        libro.Add();
        libro.Tarifa(static_cast<std::int16_t>(libro.Count() - 1), t.Registro());
    }
}

void LibroEditable::Comprobar(int i) const {
    if (i < 0 || i >= Count()) {
        throw ErrorIndice("tarifa " + std::to_string(i));
    }
}

const TarifaEditable& LibroEditable::Tarifa(int i) const {
    Comprobar(i);
    return tarifas_[static_cast<std::size_t>(i)];
}

TarifaEditable& LibroEditable::Tarifa(int i) {
    Comprobar(i);
    return tarifas_[static_cast<std::size_t>(i)];
}

std::vector<std::pair<std::string, std::string>> LibroEditable::Renombradas() const {
    std::vector<std::pair<std::string, std::string>> cambios;
    for (const TarifaEditable& t : tarifas_) {
        const auto leido = t.NombreLeido();
        if (!leido || leido->empty() || *leido == t.Nombre() || Usado(*leido)) {
            continue;
        }
        const auto herederas = std::count_if(tarifas_.begin(), tarifas_.end(), [&](const auto& o) {
            return o.NombreLeido() == leido;
        });
        if (herederas == 1) {
            cambios.emplace_back(*leido, t.Nombre());
        }
    }
    return cambios;
}

int LibroEditable::Agregar(TarifaEditable tarifa) {
    if (Count() == std::numeric_limits<std::int16_t>::max()) {
        throw ErrorDesbordamiento("demasiadas tarifas");
    }
    tarifas_.push_back(std::move(tarifa));
    return Count() - 1;
}

int LibroEditable::Añadir(std::string_view nombre) {
    return Agregar(TarifaEditable::Nueva(NombreLibre(nombre)));
}

int LibroEditable::Copiar(int i) {
    TarifaEditable copia = Tarifa(i);
    copia.Valor("Nombre", NombreLibre(copia.Nombre()));
    Agregar(std::move(copia));
    return Mover(Count() - 1, i + 1);
}

void LibroEditable::Eliminar(int i) {
    Comprobar(i);
    tarifas_.erase(tarifas_.begin() + i);
}

int LibroEditable::Mover(int i, int destino) {
    Comprobar(i);
    Comprobar(destino);
    TarifaEditable t = std::move(tarifas_[static_cast<std::size_t>(i)]);
    tarifas_.erase(tarifas_.begin() + i);
    tarifas_.insert(tarifas_.begin() + destino, std::move(t));
    return destino;
}

bool LibroEditable::Usado(std::string_view nombre) const {
    for (const TarifaEditable& t : tarifas_) {
        if (t.Nombre() == nombre) {
            return true;
        }
    }
    return false;
}

std::string LibroEditable::NombreLibre(std::string_view base) const {
    std::string limpio = Cortar(Recortar(base), kAnchoNombre);
    if (limpio.empty()) {
        limpio = "Tarifa";
    }
    if (!Usado(limpio)) {
        return limpio;
    }
    for (int n = 2;; ++n) {
        const std::string sufijo = " " + std::to_string(n);
        const std::string nombre = Recortar(Cortar(limpio, kAnchoNombre - sufijo.size())) + sufijo;
        if (!Usado(nombre)) {
            return nombre;
        }
    }
}

} // namespace vorimesk
