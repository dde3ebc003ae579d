#include "AvisoEscritorio.h"

#include "monitor/TextoAviso.h"

namespace vorimesk::cli {

AvisoEscritorio::AvisoEscritorio(std::unique_ptr<Notificador> notificador)
    : notificador_(std::move(notificador)) {}

void AvisoEscritorio::Suceso(const SucesoMonitor& s, const MomentoContador& m) {
    switch (s.tipo) {
    case SucesoMonitor::Tipo::Sonar:
        notificador_->Notificar(kTituloVentana, TextoAviso(s.motivo, m.monitor.Pantalla()));
        break;
    case SucesoMonitor::Tipo::LimiteAviso:
    case SucesoMonitor::Tipo::LimiteNoMarcar:
    case SucesoMonitor::Tipo::LimiteCuentaAtras:
    case SucesoMonitor::Tipo::LimiteColgado:
        notificador_->Notificar(kTituloVentana, s.texto);
        break;
    default:
        break;
    }
}

} // namespace vorimesk::cli
