#pragma once
// A session bus of the test's own with python3-dbusmock's notification
// server on it (Debian's /usr/bin/python3: the dbusmock module is an apt
// package). The server writes every call it gets to a log file, which the
// test reads. Without dbus-daemon or dbusmock, Razon() says why the test is
// to be skipped.

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>

extern char** environ;

namespace vorimesk::prueba {

class BusPrivado {
public:
    explicit BusPrivado(const std::filesystem::path& carpeta)
        : socket_(carpeta / "bus"), log_(carpeta / "notificaciones.log") {
        if (!std::filesystem::exists("/usr/bin/dbus-daemon")) {
            razon_ = "no esta dbus-daemon (paquete dbus-daemon)";
            return;
        }
        if (std::system("/usr/bin/python3 -c 'import dbusmock' >/dev/null 2>&1") != 0) {
            razon_ = "no esta python3-dbusmock";
            return;
        }
        direccion_ = "unix:path=" + socket_.string();
        demonio_ = Lanzar({"/usr/bin/dbus-daemon", "--session", "--nofork", "--nopidfile",
                           "--address=" + direccion_, "--syslog-only"});
        for (int i = 0; i < 100 && !std::filesystem::exists(socket_); ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        ::setenv("DBUS_SESSION_BUS_ADDRESS", direccion_.c_str(), 1);
        servidor_ = Lanzar({"/usr/bin/python3", "-m", "dbusmock", "--session", "-t",
                            "notification_daemon", "-l", log_.string()});
        // The mock owns its name once busctl sees it; without busctl (no
        // systemd) it is given the time it takes on a slow machine.
        if (!std::filesystem::exists("/usr/bin/busctl")) {
            std::this_thread::sleep_for(std::chrono::seconds(3));
            return;
        }
        const std::string ver = "/usr/bin/busctl --address=" + direccion_ +
                                " status org.freedesktop.Notifications >/dev/null 2>&1";
        for (int i = 0; i < 200 && std::system(ver.c_str()) != 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    }
    ~BusPrivado() {
        for (pid_t pid : {servidor_, demonio_}) {
            if (pid > 0) {
                ::kill(pid, SIGTERM);
                ::waitpid(pid, nullptr, 0);
            }
        }
    }
    BusPrivado(const BusPrivado&) = delete;
    BusPrivado& operator=(const BusPrivado&) = delete;

    const std::string& Razon() const { return razon_; }
    const std::string& Direccion() const { return direccion_; }
    // What the notification server was asked, one call a line.
    std::string Llamadas() const {
        std::ifstream f(log_);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }
    // Waits until the log holds `texto`; true when it does.
    bool Esperar(const std::string& texto) const {
        for (int i = 0; i < 100; ++i) {
            if (Llamadas().find(texto) != std::string::npos) {
                return true;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }

private:
    static pid_t Lanzar(const std::vector<std::string>& args) {
        std::vector<char*> argv;
        for (const std::string& a : args) {
            argv.push_back(const_cast<char*>(a.c_str()));
        }
        argv.push_back(nullptr);
        pid_t pid = -1;
        if (posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), environ) != 0) {
            return -1;
        }
        return pid;
    }

    std::filesystem::path socket_;
    std::filesystem::path log_;
    std::string razon_;
    std::string direccion_;
    pid_t demonio_ = -1;
    pid_t servidor_ = -1;
};

} // namespace vorimesk::prueba
