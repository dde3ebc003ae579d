#pragma once
// The main window comes back where the user left it: its geometry is kept in
// "Vorimesk.ini" of the data folder (beside the settings file, whose layout
// stays as it is), saved as it moves and read when it is first placed.

#include <filesystem>

class QWidget;

namespace vorimesk {

// Places `ventana` where it last was (a screen that is gone is left to Qt,
// which brings the window back on a visible one) and keeps track of it from
// then on. Call before the window is first shown.
void RecordarPosicion(QWidget& ventana, const std::filesystem::path& carpetaDatos);

} // namespace vorimesk
