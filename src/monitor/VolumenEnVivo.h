#pragma once
// The volume part of the running call's cost under a data plan, from the
// link's live byte counters. What the connection's cycle had used before the
// call is worked out once, at the call's first priced tick, from the
// register; each tick then adds the cost of the kilobytes so far to the
// reading. Without a plan file, or for a tariff without a plan, the reading
// is left exactly as the time pricing gave it.

#include "LecturaMedidor.h"
#include "register/RegistroLlamada.h"
#include "register/VolumenRegistro.h"
#include "settings/Settings.h"
#include "tariff/cBono.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace vorimesk {

class VolumenEnVivo {
public:
    // A new call: what was known of the last one goes.
    void Empezar();
    // The link's byte counters as last read (unknown ones leave the last).
    void Bytes(std::optional<std::uint64_t> recibidos, std::optional<std::uint64_t> enviados);

    // Adds the call's volume cost to a priced reading of the call from
    // `inicio` to `ahora`. `llamadas` is the register (null: none known).
    void Sumar(LecturaMedidor& lectura, const std::filesystem::path& carpeta,
               const Settings& ajustes, const cBono& bono,
               const std::vector<RegistroLlamada>* llamadas, Fecha inicio, Fecha ahora);

private:
    void Preparar(const std::filesystem::path& carpeta, const Settings& ajustes, const cBono& bono,
                  const std::vector<RegistroLlamada>* llamadas, const std::string& conexion,
                  Fecha inicio);

    bool preparado_ = false;
    std::optional<VolumenRegistro> volumen_;
    std::int64_t usadoAntes_ = 0;
    std::uint64_t recibidos_ = 0;
    std::uint64_t enviados_ = 0;
};

} // namespace vorimesk
