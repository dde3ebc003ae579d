#pragma once
// The meter's own record of a call it saw: when it started and ended, on
// which entry and link session, with which tariff and discount, and the
// bytes the interface counted. It is kept in the data folder from the first
// tick of the call (so a meter killed mid-call finds it again) until the
// system's session log has given the call, or, when no session log for that
// link comes, it becomes the call itself.

#include "core/Fecha.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

struct LlamadaVista {
    Fecha Inicio; // the first tick the link was up
    Fecha Fin;    // the last moment it was seen (while open: the last save)
    std::string Entrada;
    std::string Tarifa;
    std::string Descuento;
    std::string Interfaz;
    int Pid = 0;
    std::string Enlace; // the link session's identity, empty when unknown
    // The "in use" stamp of the call's session in the system's log, as its
    // pending connection carries it; unset while the log gave none.
    std::optional<Fecha> FechaSesion;
    std::uint64_t Recibidos = 0;
    std::uint64_t Enviados = 0;
    bool Abierta = true; // the call was still up at the last save
    // A pppd that runs the journal hook carries the link, so a session of
    // the system's journal may come for it (not for NetworkManager's links).
    bool ConDiario = true;

    bool operator==(const LlamadaVista&) const = default;

    // One "clave=valor" line per field. Names lose their line breaks.
    std::string Texto() const;
    // Nothing when the text is not a record of this kind (a damaged file is
    // left alone rather than turned into a call).
    static std::optional<LlamadaVista> Leer(std::string_view texto);

    // The call as one session of the modem log ("in use" and "CONNECT" at
    // the start, bytes and "closed" at the end), so the register's reader
    // prices it like any other.
    std::string TextoModemLog() const;
};

} // namespace vorimesk
