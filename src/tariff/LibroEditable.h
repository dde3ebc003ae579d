#pragma once
// The tariff book while it is being edited: an ordered list of tariffs kept
// as texts (see TarifaEditable), checked by ValidarLibro and written into a
// `cLlamada` only when it is saved, so nothing half-typed reaches the file.

#include "TarifaEditable.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorimesk {

class cLlamada;

class LibroEditable {
public:
    LibroEditable() = default;
    static LibroEditable DesdeLibro(const cLlamada& libro);
    // The book shipped with the program.
    static LibroEditable DeSerie();

    // Replaces every tariff of `libro` with these, in this order; holidays
    // and the current tariff name stay.
    void AplicarA(cLlamada& libro) const;

    int Count() const { return static_cast<int>(tarifas_.size()); }
    const TarifaEditable& Tarifa(int i) const;
    TarifaEditable& Tarifa(int i);

    // Each returns the index of the tariff it leaves in place.
    int Agregar(TarifaEditable tarifa);
    // A new tariff (TarifaEditable::Nueva) at the end, with a free name.
    int Añadir(std::string_view nombre = "Nueva tarifa");
    // A copy of tariff i right after it, with a free name.
    int Copiar(int i);
    void Eliminar(int i);
    // Moves tariff i to position `destino`, the others closing up.
    int Mover(int i, int destino);

    // The tariffs whose name changed since the book was read, as {old, new}:
    // only when no tariff keeps the old name and no other one was read
    // under it (a copy), so the calls of the old name have one heir.
    std::vector<std::pair<std::string, std::string>> Renombradas() const;

    // `base` itself when no tariff has that name and it fits the file's 15
    // characters; otherwise `base` cut short enough for " 2", " 3", ... to
    // make a name no tariff has.
    std::string NombreLibre(std::string_view base) const;

private:
    void Comprobar(int i) const;
    bool Usado(std::string_view nombre) const;

    std::vector<TarifaEditable> tarifas_;
};

} // namespace vorimesk
