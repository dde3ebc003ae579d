// The real pppd hook writes the session log and the register reads it back:
// one link up and down becomes one call, and a log read between the two is
// kept until the link is down.

#include "CarpetaTemporal.h"
#include "GanchoPpp.h"
#include "core/cTiempo.h"
#include "register/Log.h"
#include "register/LogModem.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/cLlamada.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class GanchoLector : public CarpetaTemporal {
protected:
    void SetUp() override {
        InstalarGancho(dir);
        cLlamada libro(dir);
        RellenarLibroPorDefecto(libro);
        libro.Save();
        log = Log(dir); // the data folder exists from here on
        log.NombreLog(ModemLog().string());
    }
    fs::path ModemLog() const { return dir / "spool" / "modemlog.txt"; }
    int Fase(const char* fase, std::vector<std::string> entorno) {
        entorno.push_back("VORIMESK_MODEMLOG=" + ModemLog().string());
        return EsperarGancho(LanzarGancho(
            dir / fase / "vorimesk",
            {"ppp0", "/dev/ttyS0", "115200", "10.0.0.2", "10.0.0.1", "casa"}, std::move(entorno)));
    }
    bool Añadir() { return log.AñadirLog(bono, {}, pendientes); }

    Log log{fs::path()};
    cBono bono;
    colConexion pendientes;
};

const std::vector<std::string> kSubida = {"PPP_IFACE=ppp0",   "PPP_TTY=/dev/ttyS0",
                                          "PPP_SPEED=115200", "LINKNAME=casa",
                                          "IPPARAM=casa",     "CALL_FILE=casa"};
const std::vector<std::string> kBajada = {
    "PPP_IFACE=ppp0", "PPP_TTY=/dev/ttyS0", "LINKNAME=casa",   "IPPARAM=casa",
    "CONNECT_TIME=1", "BYTES_RCVD=153600",  "BYTES_SENT=20480"};

} // namespace

TEST_F(GanchoLector, UnEnlaceDePppdEsUnaLlamadaDelRegistro) {
    ASSERT_EQ(Fase("ip-up.d", kSubida), 0);
    const std::string subida = Leer(ModemLog());
    // The meter records the connection at the moment it sees the link up,
    // the moment the hook stamps.
    const Fecha inicio = FechaHoraDeLinea(subida);
    pendientes.Add(inicio, "Provincial", "Ninguno", "casa");

    EXPECT_FALSE(Añadir()) << "link still up";
    EXPECT_EQ(log.Count(), 0);
    EXPECT_EQ(Leer(ModemLog()), subida);

    ASSERT_EQ(Fase("ip-down.d", kBajada), 0);
    const std::string todo = Leer(ModemLog());
    const Fecha fin = FechaHoraDeLinea(todo.substr(todo.rfind("\r\n", todo.size() - 3) + 2));
    ASSERT_TRUE(Añadir()) << todo;
    ASSERT_EQ(log.Count(), 1);
    EXPECT_EQ(log.Dia(0), inicio.SoloFecha());
    EXPECT_EQ(log.Hora(0), inicio.SoloHora());
    cTiempo duracion;
    duracion.ConvTiempo(static_cast<std::int32_t>(fin.Segundos() - inicio.Segundos()));
    EXPECT_EQ(log.Duracion(0), duracion.Valor());
    EXPECT_EQ(log.Tarifa(0), "Provincial");
    EXPECT_EQ(log.Conexion(0), "casa");
    EXPECT_EQ(log.Recibidos(0), 150);
    EXPECT_EQ(log.Enviados(0), 20);
    EXPECT_FALSE(fs::exists(ModemLog()));
    EXPECT_EQ(pendientes.Count(), 0);

    // The next link starts a new log.
    ASSERT_EQ(Fase("ip-up.d", kSubida), 0);
    EXPECT_FALSE(Añadir());
    EXPECT_EQ(log.Count(), 1);
    EXPECT_TRUE(fs::exists(ModemLog()));
}
