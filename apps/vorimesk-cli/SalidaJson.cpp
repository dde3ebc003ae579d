#include "SalidaJson.h"

#include "VistaLlamadas.h"
#include "meter/LineaEstado.h"
#include "monitor/TextoAviso.h"
#include "register/Log.h"

#include <ostream>
#include <unistd.h>

namespace vorimesk::cli {

using nlohmann::json;

SalidaJson::SalidaJson(std::ostream& salida) : salida_(salida) {}

void SalidaJson::Escribir(const char* suceso, Fecha hora, json campos) {
    ultimaHora_ = hora;
    json linea = {{"suceso", suceso}, {"hora", hora.TextoIso()}};
    linea.update(campos);
    // Invalid UTF-8 (an entry name from a foreign file) is replaced, never
    // allowed to stop the meter.
    salida_ << linea.dump(-1, ' ', false, json::error_handler_t::replace) << "\n";
    salida_.flush();
}

void SalidaJson::Comienzo(const InicioContador& i) {
    Escribir("vigilando", i.ahora,
             {{"carpeta", i.carpeta.string()},
              {"logModem", i.rutaModemLog},
              {"simulado", i.simulada},
              {"pid", static_cast<long>(::getpid())}});
}

void SalidaJson::Suceso(const SucesoMonitor& s, const MomentoContador& m) {
    const PantallaMonitor& p = m.monitor.Pantalla();
    switch (s.tipo) {
    case SucesoMonitor::Tipo::LlamadaIniciada:
        Escribir("llamada_iniciada", m.ahora,
                 {{"conexion", s.texto}, {"tarifa", p.Tarifa2}, {"descuento", p.Descuento}});
        break;
    case SucesoMonitor::Tipo::LlamadaTerminada:
        Escribir("llamada_terminada", m.ahora,
                 {{"conexion", s.texto},
                  {"inicio", m.monitor.InicioLlamada().TextoIso()},
                  {"duracion", p.Tiempo},
                  {"coste", p.Gasto}});
        break;
    case SucesoMonitor::Tipo::LlamadasAnotadas:
        for (int i = m.log.Count() - s.llamadas; i < m.log.Count(); ++i) {
            Escribir("llamada_anotada", m.ahora, {{"llamada", LlamadaJson(m.log, i, false)}});
        }
        break;
    case SucesoMonitor::Tipo::Sonar:
        Escribir("aviso", m.ahora,
                 {{"tipo", ClaseAviso(s.motivo)}, {"texto", TextoAviso(s.motivo, p)}});
        break;
    case SucesoMonitor::Tipo::LanzarPrograma:
        Escribir("programa", m.ahora, {{"ruta", s.texto}});
        break;
    case SucesoMonitor::Tipo::LogSinCerrar:
        Escribir("log_sin_cerrar", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::SinRegistroSistema:
        Escribir("sin_registro_sistema", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::ErrorRegistro:
        Escribir("error", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::BonoRenovado:
        Escribir("bono_renovado", m.ahora);
        break;
    case SucesoMonitor::Tipo::LlamadasCorregidas:
        Escribir("llamadas_corregidas", m.ahora, {{"llamadas", s.llamadas}});
        break;
    case SucesoMonitor::Tipo::MarcadoFallido:
        Escribir("marcado_fallido", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::LimiteAviso:
        Escribir("limite", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::LimiteNoMarcar:
        Escribir("limite_no_marcar", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::LimiteCuentaAtras:
        Escribir("limite_cuenta_atras", m.ahora, {{"segundos", s.llamadas}, {"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::LimiteColgado:
        Escribir("limite_colgado", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::LimiteCuentaCancelada:
        Escribir("limite_cuenta_cancelada", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::MarcadoRechazado:
        Escribir("marcado_rechazado", m.ahora, {{"texto", s.texto}});
        break;
    case SucesoMonitor::Tipo::MostrarMini:
    case SucesoMonitor::Tipo::RellenarRegistro:
        break;
    }
}

void SalidaJson::Lectura(const MomentoContador& m) {
    ultimaHora_ = m.ahora; // the stop and a failure carry the last tick's time
    if (cambio_.Cambia(m.lectura)) {
        Escribir("estado", m.ahora,
                 {{"estado", m.lectura.IntState},
                  {"texto", NombreEstado(m.lectura.IntState)},
                  {"conexion", m.lectura.EntryName}});
    }
}

void SalidaJson::Error(const std::string& texto) {
    Escribir("error", ultimaHora_, {{"texto", texto}});
}

void SalidaJson::Fin() {
    Escribir("terminado", ultimaHora_);
}

} // namespace vorimesk::cli
