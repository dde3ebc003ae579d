#pragma once
// The meter's run-time, the same for the main window and `vigilar`: the
// user's data folder (Sesion), the platform and the connection monitor over
// it. It starts up in one order (settings, modem log, register, the system's
// sessions), takes one step per tick and returns the events with everything
// already saved, presses and releases the line, and stops in order. Whoever
// holds it only shows what it returns, or listens as an observer.

#include "meter/LimitesContador.h"
#include "meter/ObservadorContador.h"
#include "monitor/EsperaMarcado.h"
#include "monitor/MonitorConexion.h"
#include "platform/Plataforma.h"
#include "session/Sesion.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorimesk {

class Contador {
public:
    using Sucesos = MonitorConexion::Sucesos;
    // Picks one of several modems (index into the list).
    using ElegirModem = std::function<std::size_t(const std::vector<Modem>& modems)>;

    // `plataforma` was made from `opciones` by the caller, who may have
    // needed it first (the single-instance lock); `opciones.reloj` is the
    // meter's clock. Nothing is read yet.
    Contador(const OpcionesPlataforma& opciones, Plataforma plataforma);
    Contador(const Contador&) = delete;
    Contador& operator=(const Contador&) = delete;

    // Hears every event after it is saved; null for none. Borrowed.
    void Observar(ObservadorContador* observador) { observador_ = observador; }

    // Start-up, in this order.

    // The system's dial-up entries now.
    std::vector<std::string> EntradasDelSistema() const;
    // Those of `delSistema` new to the user's settings become connections
    // there; the names added.
    std::vector<std::string> AñadirEntradasNuevas(const std::vector<std::string>& delSistema);
    // Which modem's log the register reads: the only one, or the one
    // `elegir` picks among several. With none found, the data folder's log,
    // where the system's sessions still pass; false then.
    bool ElegirLogModem(const ElegirModem& elegir);
    // The register (an empty one when there is none), then the calls made
    // while the meter was closed, from the system's own record, which the
    // meter follows from now on. Throws the register's reading Error; the
    // register is then never written over.
    Sucesos Arrancar();

    // The run.

    // One second of the meter: the connection is read, the state machine and
    // the live meter run, then the clock timer.
    Sucesos Paso();
    // The same step split for two timers: the state and the live meter ...
    Sucesos PasoEstado();
    // ... and the clock (the "A la hora" alert, the bundles' renewal).
    Sucesos PasoHora();
    // The user dials `entrada` outside the meter's own button. A limit of
    // the connection may refuse it (a MarcadoRechazado event, nothing
    // dialled) unless the user allows this one call (`forzar`).
    Sucesos Marcar(const std::string& entrada, bool forzar = false);
    // The button goes down: with no call up, `entrada` is dialled (refused
    // as Marcar is), and a dial that neither comes up nor fails within
    // EsperaMarcado::kSegundos is let go with a MarcadoFallido event.
    Sucesos Pulsar(const std::string& entrada, bool forzar = false);
    // The user stops a limit's countdown before it hangs the call up.
    Sucesos CancelarCuentaLimite();
    bool CuentaLimiteEnMarcha() const { return limites_.CuentaEnMarcha(); }
    // The button comes up: the call is hung up and ends.
    Sucesos Soltar();
    // The orderly stop: every ended call goes in the register, then the
    // session writes what it keeps. Throws when the files cannot be written.
    void Parar();

    Sesion& DatosUsuario() { return sesion_; }
    const Sesion& DatosUsuario() const { return sesion_; }
    MonitorConexion& Monitor() { return monitor_; }
    const MonitorConexion& Monitor() const { return monitor_; }
    const Plataforma& Sistema() const { return plataforma_; }
    const LecturaConexion& UltimaLectura() const { return lectura_; }

private:
    // Saves what the events ask for and tells the observer; a save that
    // fails becomes an ErrorRegistro event and the meter goes on.
    Sucesos Hecho(Sucesos sucesos);
    void Contar(const Sucesos& sucesos) const;
    void Añadir(Sucesos& a, Sucesos b) const;
    std::optional<std::string> RechazoLimite(const std::string& entrada, bool forzar);
    std::optional<LimitesContador::EnCurso> LlamadaEnCurso() const;

    OpcionesPlataforma opciones_;
    const Reloj& reloj_;
    Sesion sesion_;
    Plataforma plataforma_;
    MonitorConexion monitor_;
    EsperaMarcado esperaMarcado_;
    LimitesContador limites_;
    LecturaConexion lectura_{};
    ObservadorContador* observador_ = nullptr;
};

} // namespace vorimesk
