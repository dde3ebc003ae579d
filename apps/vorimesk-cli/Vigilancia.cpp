#include "Vigilancia.h"

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "LineaEstado.h"
#include "monitor/EntradasConexion.h"
#include "platform/LineasModemLog.h"

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
      sesion_(carpeta_, *reloj_) {
    // A damaged settings file stops the meter: it is never rewritten from
    // defaults.
    LeerAjustes(sesion_);

    OpcionesPlataforma op;
    op.carpetaDatos = carpeta_;
    op.reloj = reloj_;
    if (o.guion) {
        op.guion = *o.guion;
    }
    plataforma_ = CrearPlataforma(op);
    AñadirEntradasNuevas(sesion_.Ajustes(), plataforma_.entradas->Entradas());
    rutaModemLog_ = RutaLogModem();
}

void Vigilancia::Iniciar() {
    sesion_.Registro().NombreLog(rutaModemLog_);
    sesion_.CargarRegistro();
    linea_ = std::make_unique<LineaPlataforma>(*plataforma_.marcador);
    monitor_ = std::make_unique<MonitorConexion>(*reloj_, sesion_.Ajustes(), sesion_.Bono(),
                                                 sesion_.Pendientes(), sesion_.RegistroDelMonitor(),
                                                 *linea_, carpeta_);
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
    FuenteConexiones& fuente = *plataforma_.conexiones;
    fuente.Actualizar();
    const LecturaConexion lectura{fuente.Count(), fuente.IntState(), fuente.EntryName()};
    const Log& log = sesion_.Registro();
    for (const SucesoMonitor& s : monitor_->Tick(lectura)) {
        if (s.tipo == SucesoMonitor::Tipo::LlamadaIniciada) {
            sesion_.PendienteAñadido();
        }
        if (s.tipo == SucesoMonitor::Tipo::LlamadasAnotadas) {
            for (int i = log.Count() - s.llamadas; i < log.Count(); ++i) {
                Escribir(LineaAnotada(log, i), true);
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
    sesion_.Guardar();
}

} // namespace vorimesk::cli
