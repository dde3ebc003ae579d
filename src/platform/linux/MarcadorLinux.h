#pragma once
// Dials with "pon PEER" and hangs up with "poff PEER", the Debian ppp tools.

#include "monitor/Marcador.h"
#include "platform/OrdenSistema.h"
#include "platform/linux/LectorPpp.h"

namespace vorimesk {

class MarcadorLinux final : public Marcador {
public:
    MarcadorLinux(RaicesLinux raices, EjecutarOrden ejecutar = EjecutarEnSistema);

    void Marcar(const std::string& entrada) override;
    // Counts the pppd links of the entry, dialling or up; "poff PEER" ends
    // all of them at once, so it runs once. A ppp interface with no pppd
    // behind it cannot be hung up and is not counted.
    int Colgar(const std::string& entrada) override;
    int UltimoResultado() const override { return resultado_; }

private:
    LectorPpp lector_;
    EjecutarOrden ejecutar_;
    int resultado_ = 0;
};

} // namespace vorimesk
