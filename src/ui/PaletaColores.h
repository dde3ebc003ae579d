#pragma once
// The standard 16-colour palette the monitor names its colours by.

#include <QColor>

namespace vorimesk {

inline QColor ColorPaleta(int indice) {
    static const QColor kPaleta[16] = {
        {0, 0, 0},     {0, 0, 128},     {0, 128, 0},     {0, 128, 128},  {128, 0, 0}, {128, 0, 128},
        {128, 128, 0}, {192, 192, 192}, {128, 128, 128}, {0, 0, 255},    {0, 255, 0}, {0, 255, 255},
        {255, 0, 0},   {255, 0, 255},   {255, 255, 0},   {255, 255, 255}};
    return indice >= 0 && indice < 16 ? kPaleta[indice] : QColor(Qt::black);
}

} // namespace vorimesk
