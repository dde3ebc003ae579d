#pragma once
// An ordered, optionally keyed list of time values built from hh:mm:ss text.

#include "ColeccionConClave.h"
#include "cTiempo.h"

namespace vorimesk {

class colTiempo {
public:
    // Appends a new value read from the text, under the key when not empty.
    cTiempo& Add(std::string_view texto, std::string_view clave = {});
    cTiempo& Item(int posicion) const { return elementos_.Item(posicion); }
    cTiempo& Item(std::string_view clave) const { return elementos_.Item(clave); }
    int Count() const { return elementos_.Count(); }
    void Remove(int posicion) { elementos_.Remove(posicion); }
    void Remove(std::string_view clave) { elementos_.Remove(clave); }
    auto begin() const { return elementos_.begin(); }
    auto end() const { return elementos_.end(); }

private:
    ColeccionConClave<cTiempo> elementos_;
};

} // namespace vorimesk
