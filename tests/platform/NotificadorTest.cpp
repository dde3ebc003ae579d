// The desktop notification of an alert, against a notification server of the
// test's own on a private session bus.

#include "BusPrivado.h"
#include "CarpetaTemporal.h"
#include "platform/linux/NotificadorDbus.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

using Notificaciones = prueba::CarpetaTemporal;

TEST_F(Notificaciones, ElAvisoLlegaAlServidorYSinBusNoFalla) {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (dir / "nadie").string()).c_str(), 1);
    NotificadorDbus notificador;
    EXPECT_FALSE(notificador.Notificar("Vorimesk", "sin bus"));

    prueba::BusPrivado bus(dir);
    if (!bus.Razon().empty()) {
        GTEST_SKIP() << bus.Razon();
    }
    EXPECT_TRUE(notificador.Notificar("Vorimesk", "Importe superado: la llamada cuesta ya 1.50."));
    EXPECT_TRUE(bus.Esperar("Notify"));
    EXPECT_NE(bus.Llamadas().find("\"Vorimesk\" 0 \"vorimesk\" \"Vorimesk\" "
                                  "\"Importe superado: la llamada cuesta ya 1.50.\" [] {} -1"),
              std::string::npos)
        << bus.Llamadas();
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

} // namespace
