#pragma once
// The limits of Planes.json acting on the running meter. At every tick each
// connection's use (the register's calls in the cycle plus the running call's
// live bytes and cost) is held against its limits:
//   avisar     tells once per limit and cycle;
//   no-marcar  tells once, and from then on a dial of that connection is
//              refused with the reason until the cycle renews (the user may
//              allow one call anyway);
//   colgar     starts a countdown on the running call of that connection,
//              then hangs it up; the user may cancel the countdown, and the
//              limit does not act again in that cycle. Once reached it also
//              refuses new dials, as no-marcar does.
// What acted is remembered (LimitesHechos), so a restart does not repeat it.

#include "meter/LimitesConexion.h"
#include "meter/LimitesHechos.h"
#include "monitor/SucesoMonitor.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

class Sesion;

class LimitesContador {
public:
    static constexpr int kSegundosCuenta = 30;
    using Sucesos = std::vector<SucesoMonitor>;

    // The call running now: its connection, volume so far and cost so far.
    struct EnCurso {
        std::string Conexion;
        double MB = 0.0;
        double Coste = 0.0;
    };
    struct Paso {
        Sucesos sucesos;
        bool colgar = false; // the countdown ran out: hang the call up now
    };

    explicit LimitesContador(std::filesystem::path carpeta);

    Paso Mirar(const Sesion& sesion, const std::optional<EnCurso>& llamada, Fecha ahora);
    // Why `conexion` may not be dialled now; none when it may.
    std::optional<std::string> Rechazo(const Sesion& sesion, const std::string& conexion,
                                       Fecha ahora);
    // The user stops the countdown: the call goes on.
    Sucesos CancelarCuenta();
    bool CuentaEnMarcha() const { return cuenta_.has_value(); }

private:
    struct Cuenta {
        std::string Clave;
        std::string Conexion;
        Fecha Fin;
    };
    // Every connection with limits and its use, the running call left out.
    const std::vector<std::pair<ConexionPlan, UsoLimites>>& Usos(const Sesion& sesion, Fecha ahora);
    void Actuar(const LimiteAlcanzado& a, const std::optional<EnCurso>& llamada, Fecha ahora,
                Paso& paso);

    std::filesystem::path carpeta_;
    LimitesHechos hechos_;
    std::optional<Cuenta> cuenta_;
    std::string firmaUsos_; // what the cached uses were worked out from
    std::vector<std::pair<ConexionPlan, UsoLimites>> usos_;
};

} // namespace vorimesk
