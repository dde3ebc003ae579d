// vigilar on a desktop where NetworkManager dials: the mobile broadband
// connection of its settings is watched from the first tick to the end of
// the call, under its id and with the tariff the user gave that entry.

#include "AplicacionCli.h"
#include "BusSimulado.h"
#include "CarpetaCli.h"
#include "Ordenes.h"
#include "register/Log.h"
#include "settings/ArchivoVariables.h"

#include <sstream>

using namespace vorimesk;
using namespace std::chrono_literals;

namespace {

class VigilarNetworkManager : public prueba::BusSimulado {
protected:
    void SetUp() override {
        BusSimulado::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        ::setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
        ::setenv("VORIMESK_MODEMLOG", (dir / "modemlog.txt").c_str(), 1);
        // No pppd journal covers a NetworkManager link here: the meter's own
        // record becomes the call once the short wait is over.
        ::setenv("VORIMESK_SESIONES", (dir / "sin-diario").c_str(), 1);
        ::setenv("VORIMESK_ESPERA_LOG", "1", 1);
        std::filesystem::create_directories(datos);
        Settings ajustes;
        ajustes.EntradasConexion = {{"Movistar 3G", "Provincial", "Ninguno"}};
        GuardarVariables(datos / Settings::kNombreArchivo, ajustes);
    }

    prueba::ResultadoCli Vigilar(const std::string& segundos) {
        std::vector<std::string> args = {"vorimesk-cli", "--datos",    datos.string(),
                                         "vigilar",      "--segundos", segundos};
        std::vector<const char*> argv;
        for (const std::string& a : args) {
            argv.push_back(a.c_str());
        }
        cli::AplicacionCli app;
        cli::RegistrarOrdenes(app);
        std::ostringstream salida, errores;
        const int e = app.Ejecutar(static_cast<int>(argv.size()), argv.data(), salida, errores);
        return {e, salida.str(), errores.str()};
    }

    std::filesystem::path datos = dir / "datos";
};

TEST_F(VigilarNetworkManager, UnaLlamadaDeBandaAnchaMovilConLaTarifaDeSuEntrada) {
    const std::string conexion = AñadirConexion("Movistar 3G", "gsm", "uuid-movistar");
    const std::string modem = AñadirModem("wwan0", "wwan0", {sdbus::ObjectPath(conexion)});
    prueba::ResultadoCli r;
    std::thread contador([&] { r = Vigilar("7"); });
    // Ticks at 0, 1, ... 5 s: the link is up from 1.5 s to 3.5 s.
    std::this_thread::sleep_for(1500ms);
    const std::string activa = Activar(conexion, modem);
    std::this_thread::sleep_for(2000ms);
    Proxy(kNM, kGestor)
        ->callMethod("DeactivateConnection")
        .onInterface(kNM)
        .withArguments(sdbus::ObjectPath(activa));
    contador.join();

    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    for (const char* linea :
         {"Sin conexion", "Estado: Conectado (Movistar 3G).",
          "Llamada iniciada con Movistar 3G (tarifa Provincial, descuento Ninguno).",
          "Llamada terminada con Movistar 3G.", "Estado: Desconectado (Movistar 3G)."}) {
        EXPECT_NE(r.salida.find(linea), std::string::npos) << linea << "\n" << r.salida;
    }
    const auto veces = [&](const std::string& texto) {
        int n = 0;
        for (auto i = r.salida.find(texto); i != std::string::npos;
             i = r.salida.find(texto, i + 1)) {
            ++n;
        }
        return n;
    };
    EXPECT_EQ(veces("Llamada iniciada"), 1);
    EXPECT_EQ(veces("Llamada terminada"), 1);

    // In the register exactly once, with its entry's tariff.
    Log log(datos);
    log.CargarLog();
    ASSERT_EQ(log.Count(), 1) << r.salida;
    EXPECT_EQ(log.Registro(0).Conexion.Recortado(), "Movistar 3G");
    EXPECT_EQ(log.Registro(0).Tarifa.Recortado(), "Provincial");
}

TEST_F(VigilarNetworkManager, LaAyudaDiceDeDondeVienenLasConexiones) {
    std::vector<const char*> argv = {"vorimesk-cli", "vigilar", "--help"};
    cli::AplicacionCli app;
    cli::RegistrarOrdenes(app);
    std::ostringstream salida, errores;
    app.Ejecutar(static_cast<int>(argv.size()), argv.data(), salida, errores);
    EXPECT_NE(salida.str().find("Conexiones de NetworkManager y de pppd (/etc/ppp/peers)."),
              std::string::npos)
        << salida.str();
}

} // namespace
