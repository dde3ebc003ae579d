#pragma once
// The cost of the running call as the meter shows it.

#include "settings/Settings.h"

#include <string>

namespace vorimesk {

// importe × (Impuestos / 100 + 1) when taxes are added, in single precision
// as the amounts are held; otherwise importe.
float CosteMostrado(float importe, const Settings& ajustes);

// Two decimals with "." ("116.00"), halves away from zero as the display
// format rounds them; no "-" for a cost that rounds to nothing.
std::string TextoCoste(float coste);

} // namespace vorimesk
