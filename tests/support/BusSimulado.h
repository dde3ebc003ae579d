#pragma once
// A private system bus with python-dbusmock playing NetworkManager (its own
// template) and a small ModemManager, so the NetworkManager backend is
// driven through whole calls without touching the machine's bus. The test
// skips when dbus-daemon or dbusmock is missing.

#include "CarpetaTemporal.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <optional>
#include <sdbus-c++/sdbus-c++.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>

extern char** environ;

namespace vorimesk::prueba {

class BusSimulado : public CarpetaTemporal {
protected:
    static constexpr const char* kNM = "org.freedesktop.NetworkManager";
    static constexpr const char* kMM = "org.freedesktop.ModemManager1";
    static constexpr const char* kMock = "org.freedesktop.DBus.Mock";
    static constexpr const char* kRaizNM = "/org/freedesktop";
    static constexpr const char* kGestor = "/org/freedesktop/NetworkManager";
    static constexpr const char* kRaizMM = "/org/freedesktop/ModemManager1";
    static constexpr const char* kPython = "/usr/bin/python3";

    using Propiedades = std::map<std::string, sdbus::Variant>;
    using Ajustes = std::map<std::string, Propiedades>;

    void SetUp() override {
        if (!Ejecutable("dbus-daemon")) {
            GTEST_SKIP() << "Falta dbus-daemon: no se prueba NetworkManager sobre un bus simulado.";
        }
        if (Lanzar({kPython, "-c", "import dbusmock"}, true) != 0) {
            GTEST_SKIP() << "Falta python3-dbusmock (" << kPython
                         << "): no se prueba NetworkManager sobre un bus simulado.";
        }
        ArrancarBus();
        ArrancarNetworkManager();
        mm_ = Arrancar({kPython, "-m", "dbusmock", "--system", "-m", kMM, kRaizMM, kMM});
        EsperarDueño(kMM, true);
    }

    void TearDown() override {
        control_.reset();
        for (pid_t* p : {&nm_, &mm_, &daemon_}) {
            Parar(*p);
        }
        if (!busPropio_) {
            return;
        }
        if (direccionAnterior_) {
            ::setenv("DBUS_SYSTEM_BUS_ADDRESS", direccionAnterior_->c_str(), 1);
        } else {
            ::unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        }
    }

    void ArrancarNetworkManager() {
        nm_ = Arrancar({kPython, "-m", "dbusmock", "--system", "--template", "networkmanager"});
        EsperarDueño(kNM, true);
    }
    void PararNetworkManager() {
        Parar(nm_);
        EsperarDueño(kNM, false);
    }

    // A connection of the settings, as the desktop's network settings add it.
    std::string AñadirConexion(const std::string& id, const std::string& tipo,
                               const std::string& uuid, const std::string& interfaz = {},
                               Ajustes a = {}) {
        a["connection"]["id"] = sdbus::Variant(id);
        a["connection"]["type"] = sdbus::Variant(tipo);
        a["connection"]["uuid"] = sdbus::Variant(uuid);
        if (!interfaz.empty()) {
            a["connection"]["interface-name"] = sdbus::Variant(interfaz);
        }
        sdbus::ObjectPath ruta;
        Proxy(kNM, "/org/freedesktop/NetworkManager/Settings")
            ->callMethod("AddConnection")
            .onInterface("org.freedesktop.NetworkManager.Settings")
            .withArguments(a)
            .storeResultsTo(ruta);
        return ruta;
    }

    // A modem device (QMI/MBIM or serial) that can carry the connections,
    // with its byte counters.
    std::string AñadirModem(const std::string& nombre, const std::string& ipInterfaz,
                            const std::vector<sdbus::ObjectPath>& conexiones) {
        const std::string ruta = "/org/freedesktop/NetworkManager/Devices/" + nombre;
        Propiedades p;
        p["DeviceType"] = sdbus::Variant(std::uint32_t{8});
        p["Interface"] = sdbus::Variant(std::string("cdc-wdm0"));
        p["IpInterface"] = sdbus::Variant(ipInterfaz);
        p["State"] = sdbus::Variant(std::uint32_t{30});
        p["ActiveConnection"] = sdbus::Variant(sdbus::ObjectPath("/"));
        p["AvailableConnections"] = sdbus::Variant(conexiones);
        p["StateReason"] = sdbus::Variant(sdbus::Struct<std::uint32_t, std::uint32_t>{30u, 0u});
        AñadirObjeto(kNM, kRaizNM, ruta, "org.freedesktop.NetworkManager.Device", p);
        Propiedades e;
        e["RefreshRateMs"] = sdbus::Variant(std::uint32_t{0});
        e["RxBytes"] = sdbus::Variant(std::uint64_t{0});
        e["TxBytes"] = sdbus::Variant(std::uint64_t{0});
        Proxy(kNM, ruta)
            ->callMethod("AddProperties")
            .onInterface(kMock)
            .withArguments(std::string("org.freedesktop.NetworkManager.Device.Statistics"), e);
        return ruta;
    }

    void AñadirModemMM(const std::string& n, const std::string& fabricante,
                       const std::string& modelo, const std::vector<std::string>& puertos) {
        Propiedades p;
        p["Manufacturer"] = sdbus::Variant(fabricante);
        p["Model"] = sdbus::Variant(modelo);
        p["DeviceIdentifier"] = sdbus::Variant("id" + n);
        std::vector<sdbus::Struct<std::string, std::uint32_t>> ps;
        for (const auto& puerto : puertos) {
            ps.emplace_back(puerto, 3u);
        }
        p["Ports"] = sdbus::Variant(ps);
        AñadirObjeto(kMM, kRaizMM, std::string(kRaizMM) + "/Modem/" + n,
                     "org.freedesktop.ModemManager1.Modem", p);
    }

    // What NetworkManager itself would do: activate, set properties.
    std::string Activar(const std::string& conexion, const std::string& dispositivo) {
        sdbus::ObjectPath activa;
        Proxy(kNM, kGestor)
            ->callMethod("ActivateConnection")
            .onInterface(kNM)
            .withArguments(sdbus::ObjectPath(conexion), sdbus::ObjectPath(dispositivo),
                           sdbus::ObjectPath("/"))
            .storeResultsTo(activa);
        return activa;
    }
    void Fijar(const std::string& ruta, const std::string& interfaz, const std::string& nombre,
               const sdbus::Variant& valor) {
        Proxy(kNM, ruta)
            ->callMethod("Set")
            .onInterface("org.freedesktop.DBus.Properties")
            .withArguments(interfaz, nombre, valor);
    }
    sdbus::Variant Propiedad(const std::string& ruta, const std::string& interfaz,
                             const std::string& nombre) {
        sdbus::Variant v;
        Proxy(kNM, ruta)
            ->callMethod("Get")
            .onInterface("org.freedesktop.DBus.Properties")
            .withArguments(interfaz, nombre)
            .storeResultsTo(v);
        return v;
    }
    std::vector<sdbus::ObjectPath> Activas() {
        return Propiedad(kGestor, kNM, "ActiveConnections").get<std::vector<sdbus::ObjectPath>>();
    }
    void Borrar(const std::string& conexion) {
        Proxy(kNM, conexion)
            ->callMethod("Delete")
            .onInterface("org.freedesktop.NetworkManager.Settings.Connection");
    }

    std::unique_ptr<sdbus::IProxy> Proxy(const char* destino, const std::string& ruta) {
        if (!control_) {
            control_ = sdbus::createSystemBusConnection();
        }
        return sdbus::createProxy(*control_, destino, ruta);
    }

private:
    static bool Ejecutable(const std::string& nombre) {
        const char* path = std::getenv("PATH");
        std::string resto = path != nullptr ? path : "/usr/bin:/bin";
        for (std::size_t i = 0; i <= resto.size();) {
            const std::size_t fin = std::min(resto.find(':', i), resto.size());
            if (::access((resto.substr(i, fin - i) + "/" + nombre).c_str(), X_OK) == 0) {
                return true;
            }
            i = fin + 1;
        }
        return false;
    }

    // Starts a program with its output in a file of the test's folder.
    pid_t Arrancar(const std::vector<std::string>& argv, const std::string& salida = {}) {
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        const std::string ruta = salida.empty() ? (dir / "mock.log").string() : salida;
        posix_spawn_file_actions_addopen(&acciones, STDOUT_FILENO, ruta.c_str(),
                                         O_WRONLY | O_CREAT | O_APPEND, 0600);
        posix_spawn_file_actions_adddup2(&acciones, STDOUT_FILENO, STDERR_FILENO);
        std::vector<char*> args;
        for (const auto& a : argv) {
            args.push_back(const_cast<char*>(a.c_str()));
        }
        args.push_back(nullptr);
        pid_t pid = 0;
        const int r = ::posix_spawnp(&pid, args[0], &acciones, nullptr, args.data(), environ);
        posix_spawn_file_actions_destroy(&acciones);
        if (r != 0) {
            throw std::runtime_error("no se pudo lanzar " + argv[0]);
        }
        return pid;
    }

    int Lanzar(const std::vector<std::string>& argv, bool callado) {
        pid_t pid = Arrancar(argv, callado ? "/dev/null" : std::string());
        int estado = 0;
        ::waitpid(pid, &estado, 0);
        return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
    }

    static void Parar(pid_t& pid) {
        if (pid > 0) {
            ::kill(pid, SIGTERM);
            int estado = 0;
            ::waitpid(pid, &estado, 0);
            pid = 0;
        }
    }

    void ArrancarBus() {
        Escribir(dir / "bus.conf",
                 "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration "
                 "1.0//EN\"\n \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                 "<busconfig>\n  <listen>unix:dir=" +
                     dir.string() +
                     "</listen>\n  <auth>EXTERNAL</auth>\n  <policy context=\"default\">\n"
                     "    <allow send_destination=\"*\" eavesdrop=\"true\"/>\n"
                     "    <allow eavesdrop=\"true\"/>\n    <allow own=\"*\"/>\n"
                     "  </policy>\n</busconfig>\n");
        const std::string direccion = (dir / "direccion").string();
        daemon_ = Arrancar({"dbus-daemon", "--config-file=" + (dir / "bus.conf").string(),
                            "--nofork", "--print-address=1"},
                           direccion);
        for (int i = 0; i < 500 && Leer(direccion).find('\n') == std::string::npos; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        const std::string texto = Leer(direccion);
        const std::size_t fin = texto.find('\n');
        ASSERT_NE(fin, std::string::npos) << "dbus-daemon no dio su direccion";
        if (const char* antes = std::getenv("DBUS_SYSTEM_BUS_ADDRESS")) {
            direccionAnterior_ = antes;
        }
        busPropio_ = true;
        ::setenv("DBUS_SYSTEM_BUS_ADDRESS", texto.substr(0, fin).c_str(), 1);
    }

    bool TieneDueño(const char* nombre) {
        bool tiene = false;
        Proxy("org.freedesktop.DBus", "/org/freedesktop/DBus")
            ->callMethod("NameHasOwner")
            .onInterface("org.freedesktop.DBus")
            .withArguments(std::string(nombre))
            .storeResultsTo(tiene);
        return tiene;
    }

    void EsperarDueño(const char* nombre, bool con) {
        for (int i = 0; i < 1500 && TieneDueño(nombre) != con; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        ASSERT_EQ(TieneDueño(nombre), con) << nombre << ": " << Leer(dir / "mock.log");
        // The template adds its objects after taking the name.
        for (int i = 0; con && i < 500; ++i) {
            try {
                Proxy(nombre, nombre == std::string(kNM) ? kGestor : kRaizMM)
                    ->callMethod("GetAll")
                    .onInterface("org.freedesktop.DBus.Properties")
                    .withArguments(std::string(nombre == std::string(kNM) ? kNM : kMM));
                return;
            } catch (const sdbus::Error&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        }
    }

    void AñadirObjeto(const char* destino, const char* raiz, const std::string& ruta,
                      const std::string& interfaz, const Propiedades& p) {
        std::vector<sdbus::Struct<std::string, std::string, std::string, std::string>> metodos;
        Proxy(destino, raiz)
            ->callMethod("AddObject")
            .onInterface(kMock)
            .withArguments(ruta, interfaz, p, metodos);
    }

    std::unique_ptr<sdbus::IConnection> control_;
    pid_t daemon_ = 0;
    pid_t nm_ = 0;
    pid_t mm_ = 0;
    std::optional<std::string> direccionAnterior_;
    bool busPropio_ = false;
};

} // namespace vorimesk::prueba
