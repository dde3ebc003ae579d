#include "FormatoCoste.h"

#include <cmath>
#include <cstdio>

namespace vorimesk {

float CosteMostrado(float importe, const Settings& ajustes) {
    if (!ajustes.AnadirImpuestos) {
        return importe;
    }
    return importe * (ajustes.Impuestos / 100.0f + 1.0f);
}

std::string TextoCoste(float coste) {
    double centimos = std::round(static_cast<double>(coste) * 100.0);
    if (!std::isfinite(centimos)) {
        centimos = 0.0;
    }
    if (centimos == 0.0) {
        centimos = 0.0; // drops the sign of -0
    }
    char texto[64];
    std::snprintf(texto, sizeof texto, "%.2f", centimos / 100.0);
    return texto;
}

} // namespace vorimesk
