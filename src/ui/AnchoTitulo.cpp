#include "AnchoTitulo.h"

#include <QApplication>
#include <QFontMetrics>
#include <QWidget>
#include <algorithm>

namespace vorimesk {
namespace {

// The icon and the three buttons of a title bar, and its margins, taken
// generously: title bars of different desktops differ.
constexpr int kAdornos = 4 * 28 + 24;

} // namespace

void AjustarAnchoAlTitulo(QWidget& ventana) {
    // Title bars mostly use a bold face of the desktop's font.
    QFont negrita = QApplication::font();
    negrita.setBold(true);
    const int ancho = QFontMetrics(negrita).horizontalAdvance(ventana.windowTitle()) + kAdornos;
    ventana.setMinimumWidth(std::max(ventana.minimumWidth(), ancho));
}

} // namespace vorimesk
