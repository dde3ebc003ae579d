#include "Reloj.h"

#include <ctime>

namespace vorimesk {

Fecha RelojSistema::Ahora() const {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return Fecha::Crear(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                        local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec);
}

} // namespace vorimesk
