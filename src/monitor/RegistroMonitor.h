#pragma once
// What the monitor needs of the call register: the modem log it fills from,
// the start of the last session in that log, saving, and the calls the
// meter recorded itself.

#include "core/Fecha.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorimesk {

class cBono;
class colConexion;
struct LlamadaVista;
struct RegistroLlamada;

// Where a session stands in the modem log, found by its "in use" stamp.
enum class SesionEnLog { Ausente, Abierta, Cerrada };

// The start and entry of a call in the register; for a call of the
// system's session journal also its link (interface and pppd pid) and end.
struct LlamadaAnotada {
    Fecha Inicio;
    std::string Conexion;
    std::string Interfaz = {};
    int Pid = 0;
    Fecha Fin = {};
};

// DateConexion's answer for a missing, empty or session-less modem log.
inline constexpr Fecha kSinSesion = Fecha::DesdeSegundos(Fecha::kSegundosDia);

class RegistroMonitor {
public:
    virtual ~RegistroMonitor() = default;
    virtual bool ExisteModemLog() const = 0;
    // Appends the finished calls of the modem log; true when the log held a
    // finished session and has been deleted.
    virtual bool AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                           colConexion& pendientes) = 0;
    // Start of the last session in the modem log, or kSinSesion.
    virtual Fecha DateConexion() const = 0;
    virtual int Count() const = 0;
    virtual void SalvarLog() = 0;
    // A call the monitor watched from `inicio` has ended: a register fed by
    // a session journal awaits the session that covers it.
    virtual void LlamadaTerminada(Fecha /*inicio*/) {}

    // The register's calls, for the running call's data plan; null when
    // they are not at hand.
    virtual const std::vector<RegistroLlamada>* Llamadas() const { return nullptr; }
    // The call at a position (from 0) of the register.
    virtual LlamadaAnotada Anotada(int indice) const = 0;
    // Whether the modem log holds the session that began at `inicio`, and
    // whether its closing lines are there.
    virtual SesionEnLog EstadoEnLog(Fecha inicio) const = 0;
    // Appends the meter's own record as a call, priced by the register's
    // reader like a session of the modem log (written to `rutaLog` for it),
    // with the record's tariff and discount. Returns the calls appended.
    virtual int AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog,
                            cBono& bono, const std::vector<Fecha>& festivos) = 0;
    // Whether the system's session of a call that ended may still come; a
    // bounded wait where the register cannot tell (the modem log alone).
    virtual bool SesionPuedeLlegar(const LlamadaVista& /*vista*/) const { return true; }
    // The calls corrected in place since the last ask.
    virtual int TomarCorregidas() { return 0; }
    // The journal's sessions that entered the register since the last ask,
    // and whether they are waiting to be asked for.
    virtual std::vector<LlamadaAnotada> TomarSesionesEntradas() { return {}; }
    virtual bool HaySesionesEntradas() const { return false; }
};

} // namespace vorimesk
