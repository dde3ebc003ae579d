#pragma once
// Connection states from pppd and its interfaces:
//   2  a ppp interface is up (the link of the call being watched first);
//   3  a pppd runs with no interface up yet (dialling, negotiating);
//   0  the link of the watched call went down or away, given on the one look
//      that finds it gone, also when pppd redials at once, so the monitor
//      always sees the call end;
//  -1  nothing (a dial that failed falls from 3 straight to -1, and an
//      ended call from 0 to -1, so the display goes back to idle).
// The watched link is one session: its interface name, ifindex and pppd pid.
// An interface that is re-created under the same name between two looks
// (a drop and a fast redial, or `persist`) has a new ifindex, so it is a new
// call and not the old one going on. A `demand` link is watched from the
// hook's ip-up mark to its ip-down (see LectorPpp): a new mark is a new call
// even on the same interface and pppd.

#include "platform/FuenteConexiones.h"
#include "platform/linux/LectorPpp.h"

namespace vorimesk {

class FuenteConexionesLinux final : public FuenteConexiones {
public:
    explicit FuenteConexionesLinux(RaicesLinux raices);

    LecturaConexion Leer() override;

private:
    LecturaConexion FinDeLlamada(int count);
    bool EsLaVigilada(const EnlacePpp& e) const;
    static const EnlacePpp* PppdSinInterfaz(const std::vector<EnlacePpp>& enlaces);
    std::optional<Trafico> DesdeBase(std::optional<Trafico> bytes) const;

    LectorPpp lector_;
    // Memory between looks: the session of the call being watched, its entry
    // and last bytes.
    std::optional<SesionEnlace> vigilada_;
    std::string entradaVigilada_;
    std::optional<Trafico> bytesVigilada_;
    std::optional<Trafico> base_; // a demand link's counters at its mark
};

} // namespace vorimesk
