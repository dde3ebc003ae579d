#include "SalidaTexto.h"

#include "meter/LineaEstado.h"
#include "register/Log.h"

#include <ostream>

namespace vorimesk::cli {

SalidaTexto::SalidaTexto(std::ostream& salida, std::ostream& errores, bool terminal)
    : salida_(salida), errores_(errores), terminal_(terminal) {}

void SalidaTexto::Comienzo(const InicioContador& i) {
    salida_ << "Vigilando las conexiones" << (i.simulada ? " del modem simulado" : "")
            << " (Ctrl-C para terminar). Registro de sesiones: " << i.rutaModemLog << "\n";
    salida_.flush();
}

void SalidaTexto::Suceso(const SucesoMonitor& s, const MomentoContador& m) {
    if (s.tipo == SucesoMonitor::Tipo::LlamadasAnotadas) {
        for (int i = m.log.Count() - s.llamadas; i < m.log.Count(); ++i) {
            Linea(m, LineaAnotada(m.log, i));
        }
    } else if (s.tipo == SucesoMonitor::Tipo::ErrorRegistro) {
        Avisar(*LineaSuceso(s, m.monitor));
    } else if (const auto texto = LineaSuceso(s, m.monitor)) {
        Linea(m, *texto);
    }
}

void SalidaTexto::Lectura(const MomentoContador& m) {
    // On a terminal the status line shows the state.
    if (cambio_.Cambia(m.lectura) && !terminal_) {
        std::string texto = std::string("Estado: ") + NombreEstado(m.lectura.IntState);
        if (!m.lectura.EntryName.empty()) {
            texto += " (" + m.lectura.EntryName + ")";
        }
        Linea(m, texto + ".");
    }
}

void SalidaTexto::Tick(const MomentoContador& m) {
    if (terminal_) {
        // The status line is rewritten in place.
        salida_ << "\r\x1b[K" << LineaEstado(m.monitor, m.lectura);
        salida_.flush();
        lineaAbierta_ = true;
    }
}

void SalidaTexto::Linea(const MomentoContador& m, const std::string& texto) {
    CerrarEstado();
    salida_ << m.ahora.TextoIso().substr(11) << " " << texto << "\n";
    salida_.flush();
}

void SalidaTexto::CerrarEstado() {
    if (lineaAbierta_) {
        salida_ << "\r\x1b[K";
        lineaAbierta_ = false;
    }
}

void SalidaTexto::Avisar(const std::string& texto) {
    CerrarEstado();
    salida_.flush();
    errores_ << texto << "\n";
    errores_.flush();
}

void SalidaTexto::Error(const std::string&) {
    // The command itself prints the message that stops it.
    CerrarEstado();
    salida_.flush();
}

void SalidaTexto::Fin() {
    if (lineaAbierta_) {
        salida_ << "\n"; // the last status line stays on the terminal
        lineaAbierta_ = false;
    }
    salida_ << "Registro y ajustes guardados.\n";
    salida_.flush();
}

} // namespace vorimesk::cli
