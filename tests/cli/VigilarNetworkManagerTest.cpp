// vigilar on a desktop where NetworkManager dials: the mobile broadband
// connection of its settings is watched from the first tick to the end of
// the call, under its id and with the tariff the user gave that entry.

#include "AplicacionCli.h"
#include "BusSimulado.h"
#include "CarpetaCli.h"
#include "Ordenes.h"
#include "core/Errores.h"
#include "register/Log.h"
#include "settings/ArchivoVariables.h"

#include <chrono>
#include <iostream>
#include <sstream>
#include <thread>
#include <tuple>

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
        // A journal the pppd hook keeps, which never gets a session of
        // NetworkManager's links: the meter must not wait for one.
        std::filesystem::create_directories(dir / "diario");
        ::setenv("VORIMESK_SESIONES", (dir / "diario").c_str(), 1);
        std::filesystem::create_directories(datos);
        Settings ajustes;
        ajustes.EntradasConexion = {{"Movistar 3G", "Provincial", "Ninguno"},
                                    {"Vodafone LTE", "Interprovincial", "Ninguno"}};
        GuardarVariables(datos / Settings::kNombreArchivo, ajustes);
    }

    prueba::ResultadoCli Vigilar(const std::string& segundos) {
        return Orden({"vigilar", "--segundos", segundos});
    }
    prueba::ResultadoCli Orden(const std::vector<std::string>& orden) {
        std::vector<std::string> args = {"vorimesk-cli", "--datos", datos.string()};
        args.insert(args.end(), orden.begin(), orden.end());
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

    // Seconds from `desde` until the register file holds `n` calls (10 at most).
    double HastaQueHaya(int n, std::chrono::steady_clock::time_point desde) {
        for (int i = 0; i < 100; ++i) {
            Log log(datos);
            try {
                log.CargarLog();
            } catch (const Error&) {
            }
            if (log.Count() >= n) {
                break;
            }
            std::this_thread::sleep_for(100ms);
        }
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - desde).count();
    }
    void Colgar(const std::string& activa) {
        Proxy(kNM, kGestor)
            ->callMethod("DeactivateConnection")
            .onInterface(kNM)
            .withArguments(sdbus::ObjectPath(activa));
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
    Colgar(activa);
    const double segundos = HastaQueHaya(1, std::chrono::steady_clock::now());
    contador.join();
    EXPECT_LE(segundos, 5.0) << "en el registro en cuanto cae: ninguna sesion de pppd va a llegar";

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

// An LTE connection on wwan0 after a gsm one on ppp0: each call is in the
// register file within seconds of its end, with its own tariff.
TEST_F(VigilarNetworkManager, BandaAnchaPorPppYPorWwanQuedanAnotadasAlCaer) {
    const std::string gsm = AñadirConexion("Movistar 3G", "gsm", "uuid-movistar");
    const std::string lte = AñadirConexion("Vodafone LTE", "gsm", "uuid-vodafone");
    const std::string ttyUSB = AñadirModem("ttyUSB2", "ppp0", {sdbus::ObjectPath(gsm)});
    const std::string wwan = AñadirModem("wwan0", "wwan0", {sdbus::ObjectPath(lte)});
    prueba::ResultadoCli r;
    std::thread contador([&] { r = Vigilar("14"); });
    std::this_thread::sleep_for(1500ms);
    std::string activa = Activar(gsm, ttyUSB);
    std::this_thread::sleep_for(3000ms);
    Colgar(activa);
    const double primera = HastaQueHaya(1, std::chrono::steady_clock::now());
    activa = Activar(lte, wwan);
    std::this_thread::sleep_for(2000ms);
    Colgar(activa);
    const double segunda = HastaQueHaya(2, std::chrono::steady_clock::now());
    contador.join();

    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    EXPECT_LE(primera, 5.0) << r.salida;
    EXPECT_LE(segunda, 5.0) << r.salida;
    Log log(datos);
    log.CargarLog();
    ASSERT_EQ(log.Count(), 2) << r.salida;
    EXPECT_EQ(log.Registro(0).Conexion.Recortado(), "Movistar 3G");
    EXPECT_EQ(log.Registro(1).Conexion.Recortado(), "Vodafone LTE");
    EXPECT_EQ(log.Registro(1).Tarifa.Recortado(), "Interprovincial");
    // For the record of how long the user waits.
    std::cout << "gsm/ppp0 " << primera << " s, lte/wwan0 " << segunda << " s\n";
}

// Dialling and hanging up from a script go through NetworkManager, as the
// window's "Conectar" does.
TEST_F(VigilarNetworkManager, MarcarYColgarDesdeLaLineaDeOrdenes) {
    const std::string conexion = AñadirConexion("Movistar 3G", "gsm", "uuid-movistar");
    AñadirModem("wwan0", "wwan0", {sdbus::ObjectPath(conexion)});
    prueba::ResultadoCli r = Orden({"marcar", "Movistar 3G", "--json"});
    EXPECT_EQ(r.estado, 0) << r.errores;
    EXPECT_EQ(r.salida, "{\"entrada\":\"Movistar 3G\",\"orden\":\"marcar\",\"resultado\":true}\n");
    const sdbus::Variant activas =
        Proxy(kNM, kGestor)->getProperty("ActiveConnections").onInterface(kNM);
    EXPECT_EQ(activas.get<std::vector<sdbus::ObjectPath>>().size(), 1u);

    r = Orden({"colgar"});
    EXPECT_EQ(std::tuple(r.estado, r.salida), std::tuple(0, "Colgando Movistar 3G.\n"))
        << r.errores;
    r = Orden({"colgar"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("No hay ninguna conexion activa que colgar."), std::string::npos)
        << r.errores;
    r = Orden({"marcar", "Orange"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("No hay ninguna entrada de acceso telefonico llamada \"Orange\". "
                             "Las que hay: Movistar 3G"),
              std::string::npos)
        << r.errores;
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
