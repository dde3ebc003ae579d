#pragma once
// The start of the program once it knows it is the only copy: the about box
// comes up as a banner ("Cargando el programa...") while the main window
// loads, then the main window shows and the banner goes.

#include "EntornoVentana.h"

#include <functional>
#include <memory>

namespace vorimesk {

class fAbout;
class fMain;

// `alCargar` runs while the banner is up, just before the load (tests look
// at the banner there).
std::unique_ptr<fMain> Arrancar(EntornoVentana entorno,
                                const std::function<void(fAbout&)>& alCargar = {});

} // namespace vorimesk
