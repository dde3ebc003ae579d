#pragma once
// The pppd journal as one data folder takes it. The folder remembers in
// "SesionesTomadas.txt" the records it took, so each meter of each user takes
// every session once and root's files are never deleted by a user. Each
// session goes through the register as the modem log NombreLog in the data
// folder, a file of the user's that the reader deletes once read.
//
// The shared log of earlier versions (/var/spool/vorimesk) is read once the
// same way, so calls logged before an upgrade are not lost.

#include "monitor/TomaSesiones.h"
#include "platform/linux/DiarioSesiones.h"

#include <set>
#include <string>

namespace vorimesk {

class TomaDiarioPpp final : public TomaSesiones {
public:
    static constexpr const char* kArchivoTomadas = "SesionesTomadas.txt";

    explicit TomaDiarioPpp(OrigenSesiones origen);

    Resultado Tomar(Log& log, const Settings& ajustes, cBono& bono,
                    colConexion& pendientes) override;
    bool HaySesiones() const override;

private:
    bool TomarAntiguo(Log& log, const Settings& ajustes, cBono& bono, colConexion& pendientes);

    OrigenSesiones origen_;
};

} // namespace vorimesk
