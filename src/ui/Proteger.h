#pragma once
// Runs a window's handler and turns a failure of the program's own kinds
// into a Spanish message box, so no event of the window ends the program.

#include "Mensajes.h"
#include "core/Errores.h"

#include <exception>
#include <utility>

namespace vorimesk {

// True when the handler ran to its end.
template <typename Accion> bool Proteger(QWidget* padre, Accion&& accion) {
    try {
        std::forward<Accion>(accion)();
        return true;
    } catch (const Error& error) {
        avisos::MostrarError(padre, error);
    } catch (const std::bad_alloc&) {
        avisos::MostrarError(padre, "No queda memoria para terminar la operacion.");
    }
    return false;
}

// The same as a slot: connect(x, &X::senal, this, Protegido(this, [this] {...})).
template <typename Accion> auto Protegido(QWidget* padre, Accion accion) {
    return [padre, accion]() { Proteger(padre, accion); };
}

} // namespace vorimesk
