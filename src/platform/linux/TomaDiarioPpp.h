#pragma once
// The pppd journal as one data folder takes it. The folder remembers in
// "SesionesTomadas.txt" the records it took, so each meter of each user takes
// every session once and root's files are never deleted by a user. Each
// session goes through the register as the modem log NombreLog in the data
// folder, a file of the user's that the reader deletes once read.
//
// The shared log of earlier versions (/var/spool/vorimesk) is read once the
// same way, so calls logged before an upgrade are not lost.
//
// A session of a call the meter already recorded from its own record
// (monitor/PropiasAnotadas.h) takes that call's place in the register.

#include "monitor/TomaDiario.h"
#include "platform/linux/DiarioSesiones.h"

#include <set>
#include <string>

namespace vorimesk {

class TomaDiarioPpp final : public TomaDiario {
public:
    static constexpr const char* kArchivoTomadas = "SesionesTomadas.txt";

    explicit TomaDiarioPpp(OrigenSesiones origen);

    Resultado Tomar(Log& log, const Settings& ajustes, cBono& bono,
                    colConexion& pendientes) override;
    bool HaySesiones() const override;
    bool PuedeLlegar(const std::string& interfaz, int pid) const override;
    void Anotada(const LlamadaVista& vista) override;

private:
    bool TomarAntiguo(Log& log, const Settings& ajustes, cBono& bono, colConexion& pendientes);
    bool PppdVivo(int pid) const;

    OrigenSesiones origen_;
};

} // namespace vorimesk
