#pragma once
// The settings file keeps the bono ledger, the connection profiles and the
// holidays as plain records (Settings); pricing works with the live objects.
// These functions carry them from one to the other.

#include "cBono.h"
#include "colConexion.h"
#include "settings/Settings.h"

#include <vector>

namespace vorimesk {

// Empties the ledger and takes up each stored bono in file order (its kind
// first, then its take-up and give-up dates and time left), with the stored
// billing day and interval. Throws ErrorIndice for a kind outside 0-3 and
// ErrorDesbordamiento for a time left that does not fit.
void CargarBono(const Settings& ajustes, cBono& bono);
// Writes the ledger's bonos, billing day and interval into the settings.
void GuardarBono(const cBono& bono, Settings& ajustes);

// Appends every stored profile, in file order and without key.
void CargarConexiones(const Settings& ajustes, colConexion& conexiones);
// Replaces the stored profiles with the collection, in its order.
void GuardarConexiones(const colConexion& conexiones, Settings& ajustes);

// The holiday list that pricing is given.
std::vector<Fecha> FestivosDeAjustes(const Settings& ajustes);

} // namespace vorimesk
