#pragma once
// The program's own pictures, drawn in code so no artwork of other programs
// is needed: the program icon (a meter dial over a telephone handset) and
// the status lamp colours.

#include <QColor>
#include <QIcon>
#include <QPixmap>

namespace vorimesk {

QPixmap PintarIconoPrograma(int lado);
QIcon IconoPrograma();
// The round status lamp of the main and mini windows.
QPixmap PintarLampara(const QColor& color, int lado);

} // namespace vorimesk
