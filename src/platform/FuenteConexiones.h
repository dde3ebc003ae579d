#pragma once
// What the connection monitor asks the system on every tick: how many dial-up
// links are active and the state of the first one, in one reading.

#include "monitor/LecturaConexion.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vorimesk {

// Bytes moved by a link since it came up.
struct Trafico {
    std::uint64_t recibidos = 0;
    std::uint64_t enviados = 0;
    bool operator==(const Trafico&) const = default;
};

// Which link session a reading belongs to. pppd may drop and bring a link
// back between two looks, even under the same interface name; the kernel
// gives a re-created interface a new index and a new pppd a new pid, so two
// readings with different identities are two calls.
struct SesionEnlace {
    std::string interfaz; // ppp0
    long indice = 0;      // the interface's ifindex, 0 when unknown
    int pid = 0;          // the pppd behind it, 0 when unknown
    // The start the pppd hook marked at ip-up, for `demand` links, whose
    // interface and pppd stay from one call to the next.
    std::string marca = {};
    bool operator==(const SesionEnlace&) const = default;
    // "ppp0#7#1234" (plus "#START" when marked); empty when nothing is known.
    std::string Identidad() const {
        if (interfaz.empty() && indice == 0 && pid == 0) {
            return {};
        }
        return interfaz + "#" + std::to_string(indice) + "#" + std::to_string(pid) +
               (marca.empty() ? "" : "#" + marca);
    }
};

// A reading as a backend knows its link: the session, when it has one,
// gives the link's identity, interface and pppd.
inline LecturaConexion Lectura(int count, int estado, std::string entrada,
                               std::optional<Trafico> bytes, const SesionEnlace& sesion = {}) {
    LecturaConexion l{count, estado, std::move(entrada)};
    l.Enlace = sesion.Identidad();
    l.Interfaz = sesion.interfaz;
    l.Pid = sesion.pid;
    if (bytes) {
        l.Recibidos = bytes->recibidos;
        l.Enviados = bytes->enviados;
    }
    return l;
}

class FuenteConexiones {
public:
    virtual ~FuenteConexiones() = default;

    // Looks at the system once, so one tick sees one consistent picture.
    // kDesconectado is given on the look that finds the call's link gone
    // (naming that call), then kNada, so the display goes back to idle (4)
    // and "Conectar" dials again.
    virtual LecturaConexion Leer() = 0;
};

} // namespace vorimesk
