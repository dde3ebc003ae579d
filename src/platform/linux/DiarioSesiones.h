#pragma once
// The session journal the pppd hook (data/ppp/vorimesk) writes as root: one
// file per finished link, "END-IFACE-PID.sesion", of "key=value" lines:
//   formato=1, interfaz, pid, entrada (the peer), tty, velocidad,
//   inicio and fin (seconds since 1970 UTC), recibidos and enviados (bytes).
// Only root writes there; the dial-up group (dip) may read it. The meter
// reads it, and turns each session into the modem log its register reads.

#include "core/Fecha.h"
#include "platform/FuenteConexiones.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

inline constexpr const char* kDiarioSesiones = "/var/lib/vorimesk/sesiones";
// The shared log of earlier versions, which the meter reads once.
inline constexpr const char* kModemLogAntiguo = "/var/spool/vorimesk/modemlog.txt";

// Where the Linux meter takes the calls pppd recorded, and the user's data
// folder that remembers what it took.
struct OrigenSesiones {
    std::filesystem::path diario = kDiarioSesiones;
    std::filesystem::path modemLogAntiguo = kModemLogAntiguo;
    std::filesystem::path carpetaDatos;
    std::filesystem::path proc = "/proc"; // where a pppd is looked for
};

struct SesionPpp {
    std::string nombre; // the record's file name, unique in the journal
    std::string interfaz;
    int pid = 0;
    std::string entrada; // the pppd peer, empty when pppd knew none
    std::string tty;
    std::string velocidad;
    std::int64_t inicio = 0; // seconds since 1970 UTC
    std::int64_t fin = 0;
    Trafico bytes;

    // The dial-up entry of the call: the peer, else the interface (as the
    // connection source names a link).
    const std::string& Entrada() const { return entrada.empty() ? interfaz : entrada; }
};

// One record; nothing when the text is not a whole record of format 1.
std::optional<SesionPpp> LeerSesionPpp(std::string nombre, std::string_view texto);

struct LecturaDiario {
    std::vector<SesionPpp> sesiones; // by end, then start, then name
    std::set<std::string> nombres;   // every record listed, read or not
    std::string error;               // Spanish: the journal is there but cannot be read
};

// The valid records of the journal but those named in `saltar`, which are
// not even opened; a missing journal holds none.
LecturaDiario LeerDiario(const std::filesystem::path& diario,
                         const std::set<std::string>& saltar = {});

// Local time of a moment in seconds since 1970.
Fecha FechaLocal(std::int64_t segundos);

// The session as a modem log of one session: "in use" and "CONNECT" at its
// start, "Reads :", "Writes:" and "closed" at its end.
std::string ModemLogDeSesion(const SesionPpp& sesion);

} // namespace vorimesk
