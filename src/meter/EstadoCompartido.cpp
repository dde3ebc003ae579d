#include "meter/EstadoCompartido.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "meter/LineaEstado.h"
#include "register/Log.h"

#include <unistd.h>

namespace vorimesk {

void EstadoCompartido::Comienzo(const InicioContador& i) {
    carpeta_ = i.carpeta;
    estado_.pid = static_cast<long>(::getpid());
    estado_.suceso = "Vigilando las conexiones.";
    Guardar(i.ahora);
}

void EstadoCompartido::Suceso(const SucesoMonitor& s, const MomentoContador& m) {
    switch (s.tipo) {
    case SucesoMonitor::Tipo::LlamadaIniciada:
        estado_.inicio = m.monitor.InicioLlamada().TextoIso();
        estado_.tarifa = m.monitor.Pantalla().Tarifa2;
        estado_.descuento = m.monitor.Pantalla().Descuento;
        break;
    case SucesoMonitor::Tipo::LlamadaTerminada:
        estado_.inicio.clear();
        break;
    case SucesoMonitor::Tipo::LlamadasAnotadas:
        if (s.llamadas > 0) {
            estado_.suceso = LineaAnotada(m.log, m.log.Count() - 1);
            Guardar(m.ahora);
        }
        return;
    default:
        break;
    }
    if (const auto texto = LineaSuceso(s, m.monitor)) {
        estado_.suceso = *texto;
        Guardar(m.ahora);
    }
}

void EstadoCompartido::Lectura(const MomentoContador& m) {
    ultimaHora_ = m.ahora;
    if (cambio_.Cambia(m.lectura)) {
        estado_.estado = m.lectura.IntState;
        estado_.texto = NombreEstado(m.lectura.IntState);
        estado_.conexion = m.lectura.EntryName;
        Guardar(m.ahora);
    }
}

void EstadoCompartido::Error(const std::string& texto) {
    estado_.suceso = texto;
    Guardar(ultimaHora_);
}

void EstadoCompartido::Fin() {
    try {
        BorrarArchivo(carpeta_ / EstadoContador::kNombreArchivo);
    } catch (const vorimesk::Error&) {
    }
}

void EstadoCompartido::Guardar(Fecha hora) {
    if (carpeta_.empty()) {
        return;
    }
    estado_.hora = hora.TextoIso();
    try {
        GuardarEstadoContador(carpeta_, estado_);
    } catch (const vorimesk::Error&) {
        // A full disk shows in the register's own save; this file is a
        // courtesy to other programs.
    }
}

} // namespace vorimesk
