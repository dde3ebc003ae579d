#pragma once
// The toolbar's pictures: the desktop theme's icon where the theme has one
// for the action, else one drawn here, so the toolbar never shows a blank
// button on a desktop without an icon theme.

#include <QIcon>

namespace vorimesk {

enum class IconoBarra {
    Salir,
    Fijar,
    MiniVentana,
    Configurar,
    Imprimir,
    Archivar,
    Grafico,
    Calculadora,
    Calendario,
    Informacion,
    Ayuda
};

QIcon IconoDeBarra(IconoBarra cual);

} // namespace vorimesk
