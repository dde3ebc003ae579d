#pragma once
// The desktop's notifications: a short message in the corner of the screen,
// seen on a muted laptop where the alert sound is not heard.

#include <memory>
#include <string>

namespace vorimesk {

class Notificador {
public:
    virtual ~Notificador() = default;
    // False when the desktop has no notification service (no session bus,
    // a bare console, a service without a desktop); never throws.
    virtual bool Notificar(const std::string& titulo, const std::string& texto) = 0;
};

// The system's own: org.freedesktop.Notifications on the user's session bus.
std::unique_ptr<Notificador> CrearNotificadorEscritorio();

} // namespace vorimesk
