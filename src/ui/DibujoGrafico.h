#pragma once
// Builds the graph window's chart from its points: bars, bars with depth,
// a line or a filled area, one point per label.

#include "register/GraficoRegistro.h"

#include <QString>
#include <vector>

class QChart;

namespace vorimesk {

enum class TipoGrafico { Barras2D = 0, Barras3D = 1, Lineas = 2, Area = 3 };

// A new chart (the caller owns it) titled `titulo`, with `unidad` on the
// value axis.
QChart* CrearGrafico(const std::vector<PuntoGrafico>& puntos, TipoGrafico tipo,
                     const QString& titulo, const QString& unidad);

} // namespace vorimesk
