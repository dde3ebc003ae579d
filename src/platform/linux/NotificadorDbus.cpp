#include "NotificadorDbus.h"

#include <cstdint>
#include <map>
#include <sdbus-c++/sdbus-c++.h>
#include <vector>

namespace vorimesk {

bool NotificadorDbus::Notificar(const std::string& titulo, const std::string& texto) {
    try {
        const std::unique_ptr<sdbus::IConnection> bus = sdbus::createSessionBusConnection();
        const std::unique_ptr<sdbus::IProxy> servidor = sdbus::createProxy(
            *bus, "org.freedesktop.Notifications", "/org/freedesktop/Notifications");
        std::uint32_t id = 0;
        servidor->callMethod("Notify")
            .onInterface("org.freedesktop.Notifications")
            .withTimeout(kEspera)
            .withArguments(std::string("Vorimesk"), std::uint32_t{0}, std::string("vorimesk"),
                           titulo, texto, std::vector<std::string>{},
                           std::map<std::string, sdbus::Variant>{}, std::int32_t{-1})
            .storeResultsTo(id);
        return true;
    } catch (const sdbus::Error&) {
        return false;
    }
}

std::unique_ptr<Notificador> CrearNotificadorEscritorio() {
    return std::make_unique<NotificadorDbus>();
}

} // namespace vorimesk
