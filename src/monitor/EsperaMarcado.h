#pragma once
// A dial the user asked for with "Conectar": it either brings a link up, or
// the button goes back up with the reason, the system's refusal or no
// answer within kSegundos, so the window never pretends to be connecting.

#include "PantallaMonitor.h"
#include "core/Fecha.h"

#include <optional>
#include <string>

namespace vorimesk {

class EsperaMarcado {
public:
    static constexpr int kSegundos = 30;

    void Empezar(const std::string& entrada, Fecha ahora);
    // Looks at the display after a tick. Gives the message to release the
    // button with, once; nothing while the dial may still work, and nothing
    // once a link is coming up or the user let go of the button.
    std::optional<std::string> Mirar(const PantallaMonitor& p, Fecha ahora);

private:
    std::optional<Fecha> desde_;
    std::string entrada_;
};

} // namespace vorimesk
