#pragma once
// The headless meter's alerts also reach the desktop as notifications, with
// the alert's own sentence, when the user's session has a notification
// service; without one they stay in the output.

#include "meter/ObservadorContador.h"
#include "platform/Notificador.h"

#include <memory>

namespace vorimesk::cli {

class AvisoEscritorio final : public ObservadorContador {
public:
    explicit AvisoEscritorio(std::unique_ptr<Notificador> notificador);
    void Suceso(const SucesoMonitor& s, const MomentoContador& m) override;

private:
    std::unique_ptr<Notificador> notificador_;
};

} // namespace vorimesk::cli
