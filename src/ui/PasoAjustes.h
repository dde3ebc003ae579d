#pragma once
// Between the settings as the file keeps them (plain records) and the live
// objects the program works with: the BonoNet ledger with its billing day and
// interval, and the connection profiles. The one place where the window
// crosses that line, at load and before saving.

namespace vorimesk {

struct Settings;
class cBono;
class colConexion;

// Fills the (empty) ledger and profile list from the settings. Bundles of a
// kind the ledger does not know are left out.
void ObjetosDesdeAjustes(const Settings& ajustes, cBono& bono, colConexion& conexiones);

// Writes the ledger and the profiles back into the settings records.
void AjustesDesdeObjetos(const cBono& bono, const colConexion& conexiones, Settings& ajustes);

} // namespace vorimesk
