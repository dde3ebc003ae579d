#include "AvisoEscritorio.h"

#include "monitor/TextoAviso.h"

namespace vorimesk::cli {

AvisoEscritorio::AvisoEscritorio(std::unique_ptr<Notificador> notificador)
    : notificador_(std::move(notificador)) {}

void AvisoEscritorio::Suceso(const SucesoMonitor& s, const MomentoContador& m) {
    if (s.tipo == SucesoMonitor::Tipo::Sonar) {
        notificador_->Notificar(kTituloVentana, TextoAviso(s.motivo, m.monitor.Pantalla()));
    }
}

} // namespace vorimesk::cli
