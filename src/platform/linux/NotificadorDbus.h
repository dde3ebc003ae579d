#pragma once
// Notifications through org.freedesktop.Notifications on the session bus
// (DBUS_SESSION_BUS_ADDRESS, else $XDG_RUNTIME_DIR/bus). The bus is looked
// for at each message, so a meter started before the desktop's session bus
// still notifies once there is one.

#include "platform/Notificador.h"

#include <chrono>

namespace vorimesk {

class NotificadorDbus final : public Notificador {
public:
    // A notification server that does not answer in this time is given up,
    // so the meter's tick is never held up for long.
    static constexpr std::chrono::seconds kEspera{2};

    bool Notificar(const std::string& titulo, const std::string& texto) override;
};

} // namespace vorimesk
