#pragma once
// What the connection monitor asks the system on every tick: how many dial-up
// links are active and the state of the first one.

#include <cstdint>
#include <optional>
#include <string>

namespace vorimesk {

// Who brought the link up, so a call can be recorded under the right name
// when no pppd session journal tells of it.
enum class OrigenEnlace { Desconocido, Pppd, NetworkManager };

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

class FuenteConexiones {
public:
    // State codes of the first connection.
    static constexpr int kNada = -1;        // no link, and no call has ended since the last one
    static constexpr int kConectado = 2;    // the link is up
    static constexpr int kConectando = 3;   // dialling or negotiating
    static constexpr int kDesconectado = 0; // the link of a call went away

    virtual ~FuenteConexiones() = default;

    // Looks at the system once. The accessors describe that look until the
    // next call, so one tick sees one consistent picture.
    virtual void Actualizar() = 0;

    // Number of active links (dialling or up).
    virtual int Count() const = 0;
    // The first connection's state code. kDesconectado is given on the look
    // that finds the call's link gone, then kNada, so the display goes back
    // to idle (4) and "Conectar" dials again.
    virtual int IntState() const = 0;
    // Dial-up entry name of the first connection (of the ended call for
    // kDesconectado); empty for kNada.
    virtual std::string EntryName() const = 0;
    // Bytes of the current link (the final ones of the ended call for
    // kDesconectado) when the system tells them.
    virtual std::optional<Trafico> Bytes() const = 0;

    // Network interface of the first connection (ppp0, wwan0) when known.
    virtual std::string Interfaz() const { return {}; }
    virtual OrigenEnlace Origen() const { return OrigenEnlace::Desconocido; }
    // Why the last dial or hang-up was refused, for the status line; empty
    // when it went well.
    virtual std::string Aviso() const { return {}; }
    // The session of the first connection (of the ended call for
    // kDesconectado); empty where the system cannot tell sessions apart.
    virtual SesionEnlace Sesion() const { return {}; }
};

} // namespace vorimesk
