#pragma once
// The settings file "Varibles.Dat" of the data folder as the commands that
// price calls need it: the BonoNet ledger and the holidays. A damaged file
// stops the command (exit 1) before anything is changed, so it is never
// rewritten from defaults.

#include "settings/Settings.h"
#include "tariff/cBono.h"

#include <filesystem>
#include <vector>

namespace vorimesk::cli {

struct AjustesDatos {
    std::filesystem::path ruta;
    Settings valores; // as read (the defaults when there is no file)
    cBono bono;
    std::vector<Fecha> festivos;
};

// Throws ErrorOrden naming the file and the fault when it does not read as
// settings or holds a bono the ledger cannot take.
AjustesDatos LeerAjustes(const std::filesystem::path& carpeta);

// Writes the ledger back into the settings file when it is not the one that
// was read; every other setting is written back as read. True when written.
bool GuardarBonoSiCambio(AjustesDatos& ajustes);

} // namespace vorimesk::cli
