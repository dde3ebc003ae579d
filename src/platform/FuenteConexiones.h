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
    // The first connection's state code. kDesconectado is kept after a call
    // until a new link starts, so a monitor that missed the fall still sees it.
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
};

} // namespace vorimesk
