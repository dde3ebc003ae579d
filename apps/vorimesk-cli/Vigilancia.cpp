#include "Vigilancia.h"

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "monitor/EntradasConexion.h"
#include "platform/LecturaFuente.h"
#include "platform/LineasModemLog.h"

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
    observador_.Comienzo({reloj_->Ahora(), carpeta_, rutaModemLog_, simulada_});
    TomarSesionesDelSistema();
}

// Calls made while the meter was closed, told as the monitor tells its own.
void Vigilancia::TomarSesionesDelSistema() {
    const TomaSesiones::Resultado toma = sesion_.TomarSesionesDelSistema(plataforma_.sesiones);
    const LecturaConexion sinLectura{};
    const MomentoVigilancia momento{reloj_->Ahora(), sinLectura, *monitor_, sesion_.Registro()};
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
    const LecturaConexion lectura = LeerFuente(*plataforma_.conexiones);
    const MomentoVigilancia momento{reloj_->Ahora(), lectura, *monitor_, sesion_.Registro()};
    observador_.Lectura(momento);
    const MonitorConexion::Sucesos sucesos = monitor_->Tick(lectura);
    // On disk before it is told: what the user reads is already safe.
    sesion_.TrasSucesos(sucesos);
    for (const SucesoMonitor& s : sucesos) {
        observador_.Suceso(s, momento);
    }
    observador_.Tick(momento);
}

void Vigilancia::Guardar() {
    if (monitor_) {
        // Every call that has ended is in the register before the exit.
        const MonitorConexion::Sucesos sucesos = monitor_->Parar();
        sesion_.TrasSucesos(sucesos);
        const LecturaConexion sinLectura{};
        const MomentoVigilancia momento{reloj_->Ahora(), sinLectura, *monitor_, sesion_.Registro()};
        for (const SucesoMonitor& s : sucesos) {
            observador_.Suceso(s, momento);
        }
    }
    sesion_.Guardar();
}

} // namespace vorimesk::cli
