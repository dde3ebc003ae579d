#include "meter/LineaEstado.h"

#include "register/Log.h"

namespace vorimesk {
const char* NombreEstado(int estado) {
    switch (estado) {
    case LecturaConexion::kNada:
        return "Sin conexion";
    case LecturaConexion::kConectando:
        return "Conectando";
    case LecturaConexion::kConectado:
        return "Conectado";
    case LecturaConexion::kDesconectado:
        return "Desconectado";
    default:
        return "Estado desconocido";
    }
}

namespace {

const char* NombreAviso(MotivoAviso motivo) {
    switch (motivo) {
    case MotivoAviso::Conectar:
        return "conexion establecida";
    case MotivoAviso::Desconectar:
        return "conexion terminada";
    case MotivoAviso::Tiempo:
        return "tiempo de llamada superado";
    case MotivoAviso::Importe:
        return "importe superado";
    case MotivoAviso::Bono:
        return "queda poco bono";
    case MotivoAviso::Hora:
        return "es la hora";
    }
    return "";
}

} // namespace

std::string LineaEstado(const MonitorConexion& monitor, const LecturaConexion& lectura) {
    const PantallaMonitor& p = monitor.Pantalla();
    std::string linea = p.HoraAhora + " | " + NombreEstado(lectura.IntState);
    if (!lectura.EntryName.empty()) {
        linea += " | Conexion: " + lectura.EntryName;
    }
    if (!lectura.Aviso.empty()) {
        linea += " | " + lectura.Aviso;
    }
    if (monitor.MedidorActivo()) {
        linea += " | Duracion: " + p.Tiempo + " | Coste: " + p.Gasto + " | Franja: " + p.Tarifa +
                 " | BonoNet: " + (p.Bono.empty() ? "no" : "si");
    }
    return linea;
}

std::optional<std::string> LineaSuceso(const SucesoMonitor& s, const MonitorConexion& monitor) {
    const PantallaMonitor& p = monitor.Pantalla();
    switch (s.tipo) {
    case SucesoMonitor::Tipo::LlamadaIniciada:
        return "Llamada iniciada con " + s.texto + " (tarifa " + p.Tarifa2 + ", descuento " +
               p.Descuento + ").";
    case SucesoMonitor::Tipo::LlamadaTerminada:
        return "Llamada terminada con " + s.texto + ".";
    case SucesoMonitor::Tipo::Sonar:
        return std::string("Aviso: ") + NombreAviso(s.motivo) + ".";
    case SucesoMonitor::Tipo::LanzarPrograma:
        return "Programa al conectar (no se abre desde la linea de ordenes): " + s.texto;
    case SucesoMonitor::Tipo::LogSinCerrar:
    case SucesoMonitor::Tipo::SinRegistroSistema:
    case SucesoMonitor::Tipo::LlamadasCorregidas:
    case SucesoMonitor::Tipo::MarcadoFallido:
    case SucesoMonitor::Tipo::LimiteAviso:
    case SucesoMonitor::Tipo::LimiteNoMarcar:
    case SucesoMonitor::Tipo::LimiteCuentaAtras:
    case SucesoMonitor::Tipo::LimiteColgado:
    case SucesoMonitor::Tipo::LimiteCuentaCancelada:
    case SucesoMonitor::Tipo::MarcadoRechazado:
        return s.texto;
    case SucesoMonitor::Tipo::ErrorRegistro:
        return "Error del registro: " + s.texto;
    case SucesoMonitor::Tipo::BonoRenovado:
        return std::string("Bonos renovados para el nuevo periodo de factura.");

    case SucesoMonitor::Tipo::LlamadasAnotadas: // the caller lists them from the register
    case SucesoMonitor::Tipo::MostrarMini:
    case SucesoMonitor::Tipo::RellenarRegistro:
        return std::nullopt;
    }
    return std::nullopt;
}

std::string LineaAnotada(const Log& log, int i) {
    const Fecha inicio = log.Dia(i).MasSegundos(log.Hora(i).SegundosDelDia());
    return "Anotada en el registro: " + inicio.TextoCorto() + ", " + log.Duracion(i) + ", coste " +
           log.importe(i) + ", tarifa " + log.Tarifa(i) + ", " + log.Conexion(i) + ".";
}

} // namespace vorimesk
