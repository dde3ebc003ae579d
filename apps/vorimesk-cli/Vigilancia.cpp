#include "Vigilancia.h"

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "monitor/EntradasConexion.h"
#include "platform/LineasModemLog.h"
#include "settings/ArchivoVariables.h"
#include "tariff/AjustesTarifa.h"

namespace vorimesk::cli {
namespace {

Fecha Comienzo(const OpcionesVigilar& o) {
    return o.inicio ? LeerFechaHora(*o.inicio) : RelojSistema().Ahora();
}

} // namespace

Vigilancia::Vigilancia(std::filesystem::path carpeta, const OpcionesVigilar& o,
                       ObservadorVigilancia& observador)
    : carpeta_(std::move(carpeta)), simulada_(o.guion.has_value()), observador_(observador),
      relojSimulado_(Comienzo(o)),
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
    linea_ = std::make_unique<LineaMarcador>(*plataforma_.marcador);
    monitor_ = std::make_unique<MonitorConexion>(*reloj_, ajustes_, bono_, pendientes_, registro_,
                                                 *linea_, carpeta_);
    observador_.Comienzo({reloj_->Ahora(), carpeta_, rutaModemLog_, simulada_});
    TomarSesionesDelSistema();
}

// Calls made while the meter was closed, told as the monitor tells its own.
void Vigilancia::TomarSesionesDelSistema() {
    registro_.UsarSesiones(ajustes_, plataforma_.sesiones);
    const TomaSesiones::Resultado toma = registro_.TomarSesiones(bono_, pendientes_);
    const LecturaConexion sinLectura{};
    const MomentoVigilancia momento{reloj_->Ahora(), sinLectura, *monitor_, log_};
    if (toma.Añadidas > 0) {
        SucesoMonitor s{SucesoMonitor::Tipo::LlamadasAnotadas, {}};
        s.llamadas = toma.Añadidas;
        observador_.Suceso(s, momento);
    }
    if (!toma.Error.empty()) {
        observador_.Suceso({SucesoMonitor::Tipo::ErrorRegistro, toma.Error}, momento);
    }
}

Vigilancia::~Vigilancia() = default;

std::string Vigilancia::RutaLogModem() const {
    // Every modem of this system shares the data folder's modem log; with no
    // modem found, that is still where the journal's calls pass.
    const std::vector<Modem> modems = plataforma_.modems->Modems();
    if (!modems.empty()) {
        return modems.front().rutaLog.string();
    }
    return RutaModemLogLinux(EntornoPlataforma::Actual().modemLog, carpeta_).string();
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
    const LecturaConexion lectura{fuente.Count(), fuente.IntState(), fuente.EntryName(),
                                  fuente.Aviso()};
    const MomentoVigilancia momento{reloj_->Ahora(), lectura, *monitor_, log_};
    observador_.Lectura(momento);
    for (const SucesoMonitor& s : monitor_->Tick(lectura)) {
        observador_.Suceso(s, momento);
    }
    observador_.Tick(momento);
}

void Vigilancia::Guardar() {
    log_.SalvarLog();
    GuardarBono(bono_, ajustes_);
    GuardarConexiones(pendientes_, ajustes_);
    GuardarVariables(carpeta_ / Settings::kNombreArchivo, ajustes_);
}

} // namespace vorimesk::cli
