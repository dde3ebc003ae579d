#pragma once
// The start at login as the window applies it at every start: only the
// installed program registers itself (PuedeCargarAlIniciar), and the first
// time it would, the user is asked once; the answer becomes the option
// "Cargar al iniciar la sesion.". That the question was asked is kept in the
// data folder's preferences file, never in the settings file.

#include "EntornoVentana.h"

#include <filesystem>

class QWidget;

namespace vorimesk {

// `opcion` is the setting; it changes only by the user's answer.
void AplicarCargaAlIniciar(QWidget* ventana, const EntornoVentana& entorno, bool& opcion,
                           const std::filesystem::path& preferencias);

} // namespace vorimesk
