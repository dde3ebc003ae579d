#pragma once
// A dialog as wide as its title: window managers cut a title that does not
// fit ("Alta de ... BonoNet"), so the dialog asks for the room the title
// needs beside the window's icon and buttons.

class QWidget;

namespace vorimesk {

// Raises the window's minimum width to what its current title needs. Call
// it after setting the title.
void AjustarAnchoAlTitulo(QWidget& ventana);

} // namespace vorimesk
