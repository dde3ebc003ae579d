#pragma once
// Re-prices every call of the register with the current tariffs, holidays
// and BonoNet ledger, as the user asked after changing them.

namespace vorimesk {

struct DatosVentana;

void RecalcularRegistro(DatosVentana& datos);

} // namespace vorimesk
