#pragma once
// The connection monitor: the state timer that notices a dial-up call come
// up and go down, the live meter that prices it every tick, and the clock
// timer. Plain logic: the caller reads the connection source, hands the
// reading in, and paints Pantalla() and carries out the returned sucesos.
//
// A call opens on the first tick in state 2 (a link already up when the
// program starts included): the connected latch goes to 65535, so however
// many ticks follow in state 2 the start actions run once. While a call is
// open, any other state ends it as the release of cmdConexion does: 0 as the
// source reports a finished call, and also -1 and 3, which mean the link went
// away without the 0 being seen (the source moved straight on to nothing or
// to a new dial); so every call that came up reaches the register. A dial
// that fails (3 then -1) never opens a call. A code outside -1, 3, 2 and 0
// changes nothing.
//
// The start time of a call in the pending-connection list is the modem
// log's "in use" stamp (DateConexion), which the log reader matches. A modem
// may bring the link up a moment before it writes that line, so
// while the log gives no session, or only the one the previous call used,
// the stamp is read again on later ticks and once more when the call ends.
//
// A call is one link session: when the source names the session (interface,
// ifindex, pppd pid) and a tick in state 2 shows another one than the open
// call's, the link dropped and came back between two looks, so the open call
// ends and a new one starts on that tick.
//
// Ending a call stops the meter and takes the call from the modem log,
// waiting for its closing lines a bounded time (see EsperaLogModem); a new
// call does not cancel that wait. The meter's own record of the call
// becomes the call as soon as no session of the system can come for it
// (LlamadasPropias). Calls that enter the register are saved at
// once. Only a hang-up asked by the user (the button, the tray, an alert's
// action) hangs up the entry: a link that dropped by itself is left to its
// pppd, which may be redialling. After a hang-up asked by the user, state 2
// opens no call until the source has shown the link gone (or another
// session), so the last ticks of a link being torn down are not taken for a
// new call.

#include "AvisosLlamada.h"
#include "ControlHora.h"
#include "EsperaLogModem.h"
#include "LecturaConexion.h"
#include "LecturaMedidor.h"
#include "LlamadasPropias.h"
#include "Marcador.h"
#include "MedidorLlamada.h"
#include "PantallaMonitor.h"
#include "RegistroMonitor.h"
#include "SucesoMonitor.h"
#include "VolumenEnVivo.h"
#include "core/Reloj.h"
#include "settings/Settings.h"
#include "tariff/LibroTarifas.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"
#include "tariff/colConexion.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// Told once per run when a call is recorded from the meter's own record.
inline constexpr const char* kAvisoSinRegistroSistema =
    "Las llamadas se estan anotando sin el registro de sesiones del sistema: no ha llegado "
    "el de una conexion terminada (puede faltar el gancho de pppd en /etc/ppp/ip-up.d e "
    "ip-down.d, un /etc/ppp/ip-up.local impide que se ejecute, o pppd termino sin ejecutar "
    "ip-down). Se anotan con la hora, la tarifa y los bytes que midio el contador.";

class MonitorConexion {
public:
    static constexpr std::uint16_t kEnganchado = 65535;
    using Sucesos = std::vector<SucesoMonitor>;

    struct Opciones {
        // How long a call's closing lines are awaited in the modem log.
        std::int64_t esperaLogSegundos = EsperaLogModem::kSegundosPorDefecto;
        // The session's tariff book, borrowed; without one the monitor
        // keeps its own of `carpetaDatos`.
        const LibroTarifas* libro = nullptr;
    };

    // Everything is borrowed and must outlive the monitor. `carpetaDatos`
    // holds the tariff book "Tarifas.Dat".
    MonitorConexion(const Reloj& reloj, Settings& ajustes, cBono& bono, colConexion& pendientes,
                    RegistroMonitor& registro, Marcador& marcador,
                    std::filesystem::path carpetaDatos, Opciones opciones);
    MonitorConexion(const Reloj& reloj, Settings& ajustes, cBono& bono, colConexion& pendientes,
                    RegistroMonitor& registro, Marcador& marcador,
                    std::filesystem::path carpetaDatos)
        : MonitorConexion(reloj, ajustes, bono, pendientes, registro, marcador,
                          std::move(carpetaDatos), Opciones{}) {}

    // One second of the meter: the state timer, then the live meter while a
    // call runs, then the clock timer.
    Sucesos Tick(const LecturaConexion& lectura);
    // The same without the clock timer, for a caller that runs it apart.
    Sucesos TickEnlace(const LecturaConexion& lectura);
    Sucesos TickEstado(const LecturaConexion& lectura);
    Sucesos TickActual();
    Sucesos TickHora();

    // The user presses cmdConexion: with no connection and an entry chosen,
    // that entry is dialled.
    Sucesos Pulsar(const std::string& entradaElegida);
    // The user releases cmdConexion or picks "&Desconectar": hangs up and
    // ends the call.
    Sucesos Soltar();

    // What the user is told when late sessions corrected `n` calls.
    static std::string TextoCorregidas(int n);

    // The meter stops (a signal, "Salir", the end of the desktop session):
    // every ended call still waiting for the system's session is recorded
    // now from the meter's own record; a session that comes later corrects
    // it. A call still up keeps its record for the next start.
    Sucesos Parar();

    // Ticking an alert's option box arms it again.
    void ArmarAviso(AvisosLlamada::Umbral umbral) { avisos_.Armar(umbral); }
    const AvisosLlamada& Avisos() const { return avisos_; }
    // The bundle group selected on the bono tab (0 day, 1 night).
    void GrupoBono(std::int16_t grupo) { grupoBono_ = grupo; }

    const PantallaMonitor& Pantalla() const { return pantalla_; }
    std::uint16_t Enganche() const { return enganche_; }
    bool LlamadaAbierta() const { return enganche_ == kEnganchado; }
    bool MedidorActivo() const { return medidorActivo_; }
    Fecha InicioLlamada() const { return inicioLlamada_; }
    const std::string& EntradaLlamada() const { return entradaLlamada_; }
    // The figures of the last live-meter tick.
    const LecturaMedidor& Medida() const { return medida_; }
    bool EsperandoLog() const { return espera_.Esperando(); }
    // The meter's own records of ended calls still waiting for the log.
    int LlamadasPropiasEnEspera() const { return propias_.Esperando(); }

private:
    void IniciarLlamada(const LecturaConexion& lectura, Sucesos& s);
    static bool OtraSesion(const std::string& vista, const std::string& ahora);
    void AccionesAlConectar(Sucesos& s);
    void AlSoltar(Sucesos& s);
    // Asks for the refill itself when `rellenar` (the release asks for its own).
    void LeerLog(Sucesos& s, bool rellenar);
    void Esperar(Sucesos& s, bool rellenar);
    void AnotarPropias(Sucesos& s, bool rellenar, bool todas = false);
    void Anotadas(int n, Sucesos& s, bool rellenar);
    void AbrirPropia(const LecturaConexion& lectura, Sucesos& s);
    void SeguirPropia(const LecturaConexion* lectura, Sucesos& s);
    std::optional<Fecha> FechaSesion() const;
    // Runs a step of the own records, reporting a failure of their files.
    template <typename Paso> void Propias(Sucesos& s, Paso paso);
    std::optional<Fecha> LeerFechaConexion(Sucesos& s);
    void RefrescarFecha(Sucesos& s);
    bool PerfilSigue() const;
    // The live call's copy of the book, taken again when the book is read
    // again (an editor's save); the call's holidays stay.
    void TomarLibro();
    void Sonar(MotivoAviso motivo, Sucesos& s) const;

    const Reloj& reloj_;
    Settings& ajustes_;
    cBono& bono_;
    colConexion& pendientes_;
    RegistroMonitor& registro_;
    Marcador& marcador_;
    std::filesystem::path carpeta_;

    PantallaMonitor pantalla_;
    AvisosLlamada avisos_;
    MedidorLlamada medidor_;
    EsperaLogModem espera_;
    LlamadasPropias propias_;
    bool sinRegistroAvisado_ = false;
    ControlHora hora_;
    LibroTarifas libroPropio_;
    const LibroTarifas* libroPrestado_;
    std::optional<cLlamada> libro_;
    std::uint64_t lecturasLibro_ = 0;
    std::vector<Fecha> festivosLlamada_;
    LecturaMedidor medida_;
    VolumenEnVivo volumenVivo_;

    std::uint16_t enganche_ = 0;
    bool medidorActivo_ = false;
    bool colgadoPorUsuario_ = false;
    std::string sesionLlamada_; // the link session of the open call
    std::string sesionColgada_; // the one the user hung up last
    Fecha inicioLlamada_;
    std::string entradaLlamada_;
    std::int16_t grupoBono_ = cBono::kGrupoDia;

    // The call's profile in the pending list and whether its date is the
    // call's own "in use" stamp yet.
    cConexion* perfil_ = nullptr;
    bool fechaFirme_ = false;
    bool errorFechaAvisado_ = false;
    std::optional<Fecha> fechaAnterior_; // the stamp the last call used
};

} // namespace vorimesk
