#pragma once
// The settings file "Varibles.Dat" of the data folder as the commands read
// it: a damaged file stops the command (exit 1) before anything is changed,
// so it is never rewritten from defaults.

#include "session/Sesion.h"

namespace vorimesk::cli {

// Reads the session's settings, ledger and pending list. Throws ErrorOrden
// naming the file and the fault when it does not read as settings or holds a
// bono the ledger cannot take.
void LeerAjustes(Sesion& sesion);

} // namespace vorimesk::cli
