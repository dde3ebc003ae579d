#pragma once
// The meter's own records of the calls it saw, and when one of them becomes
// a call of the register.
//
// A record is written when the call opens and rewritten while it runs and
// when it ends. After the end it waits only while the system's session can
// still come (a pppd that runs the hook, a readable journal, that pppd not
// gone yet), and never longer than a bound:
//  - a call the register takes from the system's session log covers the
//    record, which is then dropped (matched by the session's "in use" stamp,
//    or else by entry and a start close to the meter's own);
//  - when the wait is over and the log holds no closed session of the call
//    (no hook, an ip-up.local that stops run-parts, a pppd killed so its
//    ip-down never ran), the record becomes the call, priced by the
//    register's reader with the record's tariff and discount;
//  - a session that is closed in the log but cannot be read yet (the next
//    call's session is still open behind it) is waited for without limit:
//    it comes in with the next call's, and the record must not add it twice.
// Each call keeps its own record and its own wait, so a new call neither
// drops nor cuts short the previous one's. A record still open when the meter
// starts is taken up again when the same link session is still up (the
// meter was killed mid-call), and is otherwise closed at its last save.

#include "ArchivoLlamadasVistas.h"
#include "LlamadaVista.h"
#include "RegistroMonitor.h"
#include "tariff/cBono.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

class LlamadasPropias {
public:
    // How far apart the meter's start and the log's may be for the same call.
    static constexpr std::int64_t kToleranciaInicio = 60;
    // How often an open call's record is written again.
    static constexpr std::int64_t kSegundosEntreGuardados = 30;

    // Reads the records left in the data folder; those already closed wait
    // again from `ahora`.
    LlamadasPropias(const std::filesystem::path& carpetaDatos, std::int64_t segundosEspera,
                    Fecha ahora);

    // The record of a call left open by an earlier run of the meter on this
    // link session, taken up as the call now open. Records left open on
    // other sessions are closed and wait.
    std::optional<LlamadaVista> Reanudar(const std::string& sesion, Fecha ahora);
    void Abrir(LlamadaVista v, Fecha ahora);
    // While the call runs: its end so far, bytes and session details.
    void Seguir(Fecha ahora, std::optional<std::uint64_t> recibidos,
                std::optional<std::uint64_t> enviados, std::optional<Fecha> fechaSesion);
    void Cerrar(Fecha fin, std::optional<Fecha> fechaSesion);

    struct Resultado {
        int Anotadas = 0; // records that became calls of the register
        std::string Error;
    };
    // How long a call of the log that no record matched is kept to match a
    // record that closes later.
    static constexpr std::int64_t kSegundosSinNota = 600;

    // Drops the records covered by the calls the register appended from
    // position `desde` on (calls of a modem log: start and entry).
    void Cubrir(const RegistroMonitor& registro, int desde, Fecha ahora);
    // Drops the records covered by sessions of the system's journal, each
    // matched by interface, pppd pid when both know it, and the time the two
    // have in common.
    void CubrirSesiones(const std::vector<LlamadaAnotada>& sesiones, Fecha ahora);
    // Turns the records whose wait is over into calls: the bound has passed,
    // or the register says no session can come for them any more. With
    // `todas` (the meter stops), every record of an ended call.
    Resultado Vencidas(Fecha ahora, RegistroMonitor& registro, cBono& bono,
                       const std::vector<Fecha>& festivos, bool todas = false);

    bool HayAbierta() const { return abierta_.has_value(); }
    int Esperando() const { return static_cast<int>(esperando_.size()); }

private:
    struct Registro {
        std::string nombre;
        LlamadaVista vista;
        Fecha plazo; // the end of its wait
    };
    struct SinNota {
        LlamadaAnotada llamada;
        Fecha leida;
    };
    void Escribir(const Registro& r);
    bool CubrirUna(const LlamadaAnotada& a);
    bool CubrirEnlace(const LlamadaAnotada& a);
    void CubrirPendientes(Fecha ahora);
    void CerrarSinLlamada(Registro r, Fecha ahora);

    ArchivoLlamadasVistas archivo_;
    std::int64_t segundosEspera_;
    std::optional<Registro> abierta_;
    Fecha guardada_; // when the open record was last written
    std::vector<Registro> esperando_;
    std::vector<Registro> sinRetomar_; // open records left by an earlier run
    std::vector<SinNota> sinNota_;
};

} // namespace vorimesk
