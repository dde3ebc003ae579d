#pragma once
// Modem log sessions as the pppd hook writes them, through the platform's own
// formatter, for the tests that read a modem log.

#include "platform/LineasModemLog.h"

#include <cstdint>
#include <string>

namespace vorimesk::prueba {

inline std::string Subida(Fecha t, const std::string& entrada = "casa") {
    return BloqueSubida(t, {"ppp0", "/dev/ttyS0", entrada, "115200"});
}
inline std::string Bajada(Fecha t, std::uint64_t recibidos = 1536, std::uint64_t enviados = 2560) {
    return BloqueBajada(t, {recibidos, enviados});
}
inline std::string Sesion(Fecha desde, Fecha hasta, std::uint64_t recibidos = 1536,
                          std::uint64_t enviados = 2560) {
    return Subida(desde) + Bajada(hasta, recibidos, enviados);
}

} // namespace vorimesk::prueba
