#pragma once
// The modem session log as the register's log reader expects it. Every line
// is "mm-dd-yyyy hh:mm:ss.00 - message" ending in CR LF: the date in columns
// 1-10, a blank, the time in 12-19, hundredths (always ".00": dates here hold
// whole seconds) in 20-22, and the separator " - " with its hyphen in column
// 24. A session is two blocks:
//   link up:   "Modem in use: IFACE TTY ENTRY" and "CONNECT SPEED"
//   link down: "Reads : N bytes", "Writes: N bytes" and "Modem closed."
// The meter writes each session of the pppd journal this way. Names only
// follow "in use", where the reader never looks for a
// hyphen or another keyword.

#include "core/Fecha.h"
#include "platform/FuenteConexiones.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vorimesk {

// The modem log of a data folder on Linux: the meter writes each session of
// the pppd journal there for the register to read (linux/TomaDiarioPpp.h).
inline constexpr const char* kModemLogLinux = "SesionModem.txt";

struct DatosSubida {
    std::string interfaz;  // ppp0
    std::string tty;       // /dev/ttyS0
    std::string entrada;   // dial-up entry (pppd peer)
    std::string velocidad; // serial speed as pppd gives it, may be empty
};

std::string LineaModemLog(Fecha cuando, std::string_view mensaje);
std::string BloqueSubida(Fecha cuando, const DatosSubida& datos);
std::string BloqueBajada(Fecha cuando, Trafico trafico);

// Appends the block in one write while holding the log's lock file (the
// hidden ".NAME.lock" beside it, see core/CerrojoArchivo.h), also taken by the
// register while it reads and deletes the log, so blocks written meanwhile
// never mix and none is lost. Throws ErrorArchivo.
void AnexarModemLog(const std::filesystem::path& log, std::string_view bloque);
std::filesystem::path CerrojoModemLog(const std::filesystem::path& log);

// The modem log of the Linux backend: `variable` (VORIMESK_MODEMLOG) when set
// and not empty, else kModemLogLinux in the data folder.
std::filesystem::path RutaModemLogLinux(const std::optional<std::string>& variable,
                                        const std::filesystem::path& carpetaDatos);

} // namespace vorimesk
