#include "meter/Contador.h"

#include "core/Errores.h"
#include "monitor/EntradasConexion.h"
#include "platform/LineasModemLog.h"

namespace vorimesk {
namespace {

const Reloj& RelojDe(const OpcionesPlataforma& o) {
    if (o.reloj == nullptr) {
        throw Error("El contador necesita un reloj.");
    }
    return *o.reloj;
}

} // namespace

Contador::Contador(const OpcionesPlataforma& opciones, Plataforma plataforma)
    : opciones_(opciones), reloj_(RelojDe(opciones)), sesion_(opciones.carpetaDatos, reloj_),
      plataforma_(std::move(plataforma)),
      monitor_(reloj_, sesion_.Ajustes(), sesion_.Bono(), sesion_.Pendientes(),
               sesion_.RegistroDelMonitor(), *plataforma_.marcador, opciones.carpetaDatos,
               // One book for the register and the live call: the session's.
               MonitorConexion::Opciones{EsperaLogModem::kSegundosPorDefecto, &sesion_.Libro()}),
      limites_(opciones.carpetaDatos) {}

std::vector<std::string> Contador::EntradasDelSistema() const {
    return plataforma_.entradas->Entradas();
}

std::vector<std::string>
Contador::AñadirEntradasNuevas(const std::vector<std::string>& delSistema) {
    return vorimesk::AñadirEntradasNuevas(sesion_.Ajustes(), delSistema);
}

bool Contador::ElegirLogModem(const ElegirModem& elegir) {
    const std::vector<Modem> modems = plataforma_.modems->Modems();
    if (modems.empty()) {
        sesion_.Registro().NombreLog(
            RutaModemLogLinux(opciones_.entorno.modemLog, opciones_.carpetaDatos).string());
        return false;
    }
    std::size_t i = modems.size() > 1 && elegir ? elegir(modems) : 0;
    if (i >= modems.size()) {
        i = 0;
    }
    sesion_.Registro().NombreLog(modems[i].rutaLog.string());
    return true;
}

Contador::Sucesos Contador::Arrancar() {
    sesion_.CargarRegistro();
    if (observador_ != nullptr) {
        observador_->Comienzo({reloj_.Ahora(), opciones_.carpetaDatos,
                               sesion_.Registro().NombreLog(), opciones_.guion.has_value()});
    }
    const TomaDiario::Resultado toma = sesion_.TomarDiario(plataforma_.diario);
    Sucesos s;
    if (toma.Añadidas > 0) {
        SucesoMonitor anotadas{SucesoMonitor::Tipo::LlamadasAnotadas, {}};
        anotadas.llamadas = toma.Añadidas;
        s.push_back(anotadas);
    }
    if (!toma.Error.empty()) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, toma.Error});
    }
    return Hecho(std::move(s));
}

void Contador::Añadir(Sucesos& a, Sucesos b) const {
    a.insert(a.end(), std::make_move_iterator(b.begin()), std::make_move_iterator(b.end()));
}

Contador::Sucesos Contador::PasoEstado() {
    lectura_ = plataforma_.conexiones->Leer();
    if (observador_ != nullptr) {
        observador_->Lectura({reloj_.Ahora(), lectura_, monitor_, sesion_.Registro()});
    }
    Sucesos s = monitor_.TickEnlace(lectura_);
    if (const auto fallo = esperaMarcado_.Mirar(monitor_.Pantalla(), reloj_.Ahora())) {
        Añadir(s, monitor_.Soltar());
        s.push_back({SucesoMonitor::Tipo::MarcadoFallido, *fallo});
    }
    try {
        LimitesContador::Paso limites = limites_.Mirar(sesion_, LlamadaEnCurso(), reloj_.Ahora());
        Añadir(s, std::move(limites.sucesos));
        if (limites.colgar) {
            // The same hang-up as the user's own.
            Añadir(s, monitor_.Soltar());
        }
    } catch (const Error& e) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
    }
    return Hecho(std::move(s));
}

Contador::Sucesos Contador::PasoHora() {
    return Hecho(monitor_.TickHora());
}

Contador::Sucesos Contador::Paso() {
    Sucesos s = PasoEstado();
    Añadir(s, PasoHora());
    if (observador_ != nullptr) {
        observador_->Tick({reloj_.Ahora(), lectura_, monitor_, sesion_.Registro()});
    }
    return s;
}

std::optional<LimitesContador::EnCurso> Contador::LlamadaEnCurso() const {
    if (!monitor_.LlamadaAbierta()) {
        return std::nullopt;
    }
    constexpr double kBytesMB = 1024.0 * 1024.0;
    const double bytes = static_cast<double>(lectura_.Recibidos.value_or(0)) +
                         static_cast<double>(lectura_.Enviados.value_or(0));
    return LimitesContador::EnCurso{monitor_.EntradaLlamada(), bytes / kBytesMB,
                                    static_cast<double>(monitor_.Medida().Coste)};
}

std::optional<std::string> Contador::RechazoLimite(const std::string& entrada, bool forzar) {
    if (forzar || entrada.empty() || monitor_.LlamadaAbierta()) {
        return std::nullopt;
    }
    return limites_.Rechazo(sesion_, entrada, reloj_.Ahora());
}

Contador::Sucesos Contador::Marcar(const std::string& entrada, bool forzar) {
    if (const auto rechazo = RechazoLimite(entrada, forzar)) {
        return Hecho({{SucesoMonitor::Tipo::MarcadoRechazado, *rechazo}});
    }
    plataforma_.marcador->Marcar(entrada);
    return {};
}

Contador::Sucesos Contador::Pulsar(const std::string& entrada, bool forzar) {
    if (const auto rechazo = RechazoLimite(entrada, forzar)) {
        return Hecho({{SucesoMonitor::Tipo::MarcadoRechazado, *rechazo}});
    }
    if (!entrada.empty() && !monitor_.LlamadaAbierta()) {
        esperaMarcado_.Empezar(entrada, reloj_.Ahora());
    }
    return Hecho(monitor_.Pulsar(entrada));
}

Contador::Sucesos Contador::CancelarCuentaLimite() {
    return Hecho(limites_.CancelarCuenta());
}

Contador::Sucesos Contador::Soltar() {
    return Hecho(monitor_.Soltar());
}

void Contador::Parar() {
    // Every call that has ended is in the register before the exit; a
    // failure stops the exit, so the caller can tell the user.
    const Sucesos s = monitor_.Parar();
    sesion_.TrasSucesos(s);
    Contar(s);
    sesion_.Guardar();
}

Contador::Sucesos Contador::Hecho(Sucesos sucesos) {
    // On disk before it is told: what the user reads is already safe.
    try {
        sesion_.TrasSucesos(sucesos);
    } catch (const Error& e) {
        sucesos.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
    }
    Contar(sucesos);
    return sucesos;
}

void Contador::Contar(const Sucesos& sucesos) const {
    if (observador_ != nullptr) {
        const MomentoContador momento{reloj_.Ahora(), lectura_, monitor_, sesion_.Registro()};
        for (const SucesoMonitor& s : sucesos) {
            observador_->Suceso(s, momento);
        }
    }
}

} // namespace vorimesk
