#include "Vigilancia.h"

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "LineaEstado.h"
#include "monitor/EntradasConexion.h"
#include "platform/LecturaFuente.h"
#include "platform/LineasModemLog.h"
#include "settings/ArchivoVariables.h"
#include "tariff/AjustesTarifa.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>

namespace vorimesk::cli {
namespace {

Fecha Comienzo(const OpcionesVigilar& o) {
    return o.inicio ? LeerFechaHora(*o.inicio) : RelojSistema().Ahora();
}

} // namespace

Vigilancia::Vigilancia(std::filesystem::path carpeta, const OpcionesVigilar& o,
                       std::ostream& salida, std::ostream& errores, bool terminal)
    : carpeta_(std::move(carpeta)), simulada_(o.guion.has_value()), salida_(salida),
      errores_(errores), terminal_(terminal), relojSimulado_(Comienzo(o)),
      reloj_(simulada_ ? static_cast<const Reloj*>(&relojSimulado_) : &relojSistema_),
      bono_(*reloj_), log_(carpeta_), registro_(log_) {
    // A damaged settings file stops the meter: it is never rewritten from
    // defaults.
    ajustes_ = LeerAjustes(carpeta_).valores;
    CargarBono(ajustes_, bono_);
    CargarConexiones(ajustes_, pendientes_);

    OpcionesPlataforma op;
    op.carpetaDatos = carpeta_;
    op.reloj = reloj_;
    if (o.guion) {
        op.guion = *o.guion;
    }
    plataforma_ = CrearPlataforma(op);
    AñadirEntradasNuevas(ajustes_, plataforma_.entradas->Entradas());
    rutaModemLog_ = RutaLogModem();
}

void Vigilancia::Iniciar() {
    log_.NombreLog(rutaModemLog_);
    log_.CargarLog();
    log_.CopiaUnaVezPorSesion();
    linea_ = std::make_unique<LineaMarcador>(*plataforma_.marcador);
    monitor_ = std::make_unique<MonitorConexion>(*reloj_, ajustes_, bono_, pendientes_, registro_,
                                                 *linea_, carpeta_, OpcionesMonitor());
}

// VORIMESK_ESPERA_LOG (seconds) shortens the wait for the session log, so the
// fault rig sees the meter's own records become calls in a few seconds.
MonitorConexion::Opciones Vigilancia::OpcionesMonitor() {
    MonitorConexion::Opciones o;
    if (const char* v = std::getenv("VORIMESK_ESPERA_LOG")) {
        char* fin = nullptr;
        const long segundos = std::strtol(v, &fin, 10);
        if (fin != v && *fin == '\0' && segundos > 0) {
            o.esperaLogSegundos = segundos;
        }
    }
    return o;
}

Vigilancia::~Vigilancia() = default;

std::string Vigilancia::RutaLogModem() const {
    // Every modem of this system writes the one session log of the hook; with
    // no modem found, the hook's log is still where calls would be.
    const std::vector<Modem> modems = plataforma_.modems->Modems();
    if (!modems.empty()) {
        return modems.front().rutaLog.string();
    }
    return RutaModemLogLinux(EntornoPlataforma::Actual().modemLog).string();
}

bool Vigilancia::Adquirir() {
    return plataforma_.instancia->Adquirir();
}

void Vigilancia::Avanzar() {
    relojSimulado_.Avanzar(1);
}

void Vigilancia::Paso() {
    const LecturaConexion lectura = LeerFuente(*plataforma_.conexiones);
    const MonitorConexion::Sucesos sucesos = monitor_->Tick(lectura);
    // On disk before it is told: what the user reads is already safe.
    if (std::any_of(sucesos.begin(), sucesos.end(), PideGuardarSesion)) {
        GuardarAjustes();
    }
    for (const SucesoMonitor& s : sucesos) {
        if (s.tipo == SucesoMonitor::Tipo::LlamadasAnotadas) {
            for (int i = log_.Count() - s.llamadas; i < log_.Count(); ++i) {
                Escribir(LineaAnotada(log_, i), true);
            }
        } else if (s.tipo == SucesoMonitor::Tipo::ErrorRegistro) {
            Avisar(*LineaSuceso(s, *monitor_));
        } else if (const auto texto = LineaSuceso(s, *monitor_)) {
            Escribir(*texto, true);
        }
    }
    Escribir(LineaEstado(*monitor_, lectura), false);
}

void Vigilancia::Escribir(const std::string& linea, bool suceso) {
    if (!terminal_) {
        salida_ << linea << "\n";
    } else if (suceso) {
        salida_ << "\r\x1b[K" << linea << "\n";
        lineaAbierta_ = false;
    } else {
        // The status line is rewritten in place.
        salida_ << "\r\x1b[K" << linea;
        lineaAbierta_ = true;
    }
    salida_.flush();
}

void Vigilancia::Avisar(const std::string& linea) {
    if (lineaAbierta_) {
        salida_ << "\r\x1b[K";
        salida_.flush();
        lineaAbierta_ = false;
    }
    errores_ << linea << "\n";
    errores_.flush();
}

void Vigilancia::Terminar() {
    if (lineaAbierta_) {
        salida_ << "\n";
        lineaAbierta_ = false;
    }
}

void Vigilancia::Guardar() {
    log_.SalvarLog();
    GuardarAjustes();
}

// The ledger and the pending list live in the settings file, written
// atomically like the register.
void Vigilancia::GuardarAjustes() {
    GuardarBono(bono_, ajustes_);
    GuardarConexiones(pendientes_, ajustes_);
    GuardarVariables(carpeta_ / Settings::kNombreArchivo, ajustes_);
}

} // namespace vorimesk::cli
