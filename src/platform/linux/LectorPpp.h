#pragma once
// The dial-up links of a Linux system as pppd leaves them: ppp interfaces in
// sysfs, pppd processes in procfs and their pid files in /run.
//
// A pppd started with `demand` brings its interface up at once and keeps it
// up between calls, dialling only when traffic asks for it; an interface up
// says nothing there. Such a link carries a call from the hook's ip-up to its
// ip-down, which the hook marks in `RaicesLinux::marcas`; unmarked it is the
// demand idle state and is no link at all (neither up nor dialling).

#include "platform/FuenteConexiones.h"
#include "platform/RaicesLinux.h"

#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

struct EnlacePpp {
    std::string interfaz;   // empty while pppd has no interface
    std::string entrada;    // pppd peer ("call PEER"), else its linkname, else the interface
    int pid = 0;            // the pppd behind the link, 0 when none is known
    bool arriba = false;    // the interface is up: the link carries traffic
    long indice = 0;        // the interface's ifindex (new on every re-creation), 0 when unknown
    std::string marca = {}; // the hook's ip-up mark of a `demand` link's call
    bool operator==(const EnlacePpp&) const = default;
};

class LectorPpp {
public:
    explicit LectorPpp(RaicesLinux raices);

    // Links that are up first (by interface name), then every pppd that
    // still has no interface up (by pid): those are dialling.
    std::vector<EnlacePpp> Enlaces() const;

    // Statistics of an interface while it exists.
    std::optional<Trafico> Bytes(const std::string& interfaz) const;
    // The interface's ifindex while it exists, 0 otherwise.
    long Indice(const std::string& interfaz) const;

private:
    struct Pppd {
        int pid = 0;
        std::string peer;     // from "call PEER"
        std::string linkname; // from /run/ppp-LINKNAME.pid
        std::string interfaz; // from /run/pppN.pid or the second line of ppp-LINKNAME.pid
        bool demanda = false; // "demand" on its command line or in its peer file
    };
    struct Proceso {
        std::string peer;
        bool demanda = false;
    };

    std::vector<std::string> InterfacesArriba() const;
    bool EsPpp(const std::string& nombre) const;
    bool EstaArriba(const std::string& nombre) const;
    std::vector<Pppd> Procesos() const;
    std::optional<Proceso> PeerDe(int pid) const;
    bool PeerConDemanda(const std::string& peer) const;
    std::optional<std::string> Marca(const std::string& interfaz, int pid) const;
    void LeerPidfiles(std::vector<Pppd>& procesos) const;

    RaicesLinux raices_;
};

} // namespace vorimesk
