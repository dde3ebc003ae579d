#pragma once
// The pppd hook of data/ppp, installed in a test folder as the package does
// (the same script in ip-up.d and ip-down.d) with its journal moved into the
// test folder, and run as Debian runs it: pppd starts /etc/ppp/ip-up (here a
// copy of its logic in the test folder) with its link as arguments and its
// own environment, and that script hands both to run-parts.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <spawn.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <vector>

namespace vorimesk::prueba {

inline std::filesystem::path FuenteGancho() {
    const char* fuentes = std::getenv("VORIMESK_FUENTES");
    return std::filesystem::path(fuentes ? fuentes : VORIMESK_FUENTES_COMPILADAS) / "data" / "ppp" /
           "vorimesk";
}

// Debian's /etc/ppp/ip-up and ip-down, pointed at the test's folders.
inline std::string EnvolturaDebian(const std::filesystem::path& carpeta, const char* fase) {
    return "#!/bin/sh\n"
           "PATH=/usr/local/sbin:/usr/sbin:/sbin:/usr/local/bin:/usr/bin:/bin\n"
           "export PATH\n"
           "PPP_IFACE=\"$1\"\nPPP_TTY=\"$2\"\nPPP_SPEED=\"$3\"\n"
           "PPP_LOCAL=\"$4\"\nPPP_REMOTE=\"$5\"\nPPP_IPPARAM=\"$6\"\n"
           "export PPP_IFACE PPP_TTY PPP_SPEED PPP_LOCAL PPP_REMOTE PPP_IPPARAM\n"
           "PPP_TTYNAME=`/usr/bin/basename \"$2\"`\nexport PPP_TTYNAME\n"
           "run-parts " +
           (carpeta / (std::string(fase) + ".d")).string() +
           " --arg=\"$1\" --arg=\"$2\" --arg=\"$3\" --arg=\"$4\" --arg=\"$5\" --arg=\"$6\"\n";
}

inline void EscribirEjecutable(const std::filesystem::path& ruta, const std::string& texto) {
    std::filesystem::create_directories(ruta.parent_path());
    std::ofstream(ruta, std::ios::binary | std::ios::trunc) << texto;
    std::filesystem::permissions(ruta, std::filesystem::perms(0755));
}

// The hook with its journal at `diario`, and the two wrappers.
inline void InstalarGancho(const std::filesystem::path& carpeta,
                           const std::filesystem::path& diario) {
    std::ifstream f(FuenteGancho(), std::ios::binary);
    std::string texto{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    const std::string linea = "\nDIARIO=/var/lib/vorimesk/sesiones\n";
    const auto donde = texto.find(linea);
    ASSERT_NE(donde, std::string::npos) << "el gancho ya no fija su diario en una linea";
    texto.replace(donde, linea.size(), "\nDIARIO=" + diario.string() + "\n");
    // The link marks go to the test folder, never to the real /run.
    const std::string marcas = "\nMARCAS=/run/vorimesk/enlaces\n";
    const auto dondeMarcas = texto.find(marcas);
    ASSERT_NE(dondeMarcas, std::string::npos) << "el gancho ya no fija sus marcas en una linea";
    texto.replace(dondeMarcas, marcas.size(), "\nMARCAS=" + (carpeta / "marcas").string() + "\n");
    for (const char* fase : {"ip-up", "ip-down"}) {
        EscribirEjecutable(carpeta / (std::string(fase) + ".d") / "vorimesk", texto);
        EscribirEjecutable(carpeta / fase, EnvolturaDebian(carpeta, fase));
    }
}

inline pid_t LanzarGancho(const std::filesystem::path& script, const std::vector<std::string>& args,
                          std::vector<std::string> entorno) {
    entorno.push_back("PATH=/usr/sbin:/usr/bin:/sbin:/bin");
    if (const char* tz = std::getenv("TZ")) {
        entorno.push_back(std::string("TZ=") + tz);
    }
    std::vector<std::string> todos{script.string()};
    todos.insert(todos.end(), args.begin(), args.end());
    std::vector<char*> argv, envp;
    for (auto& a : todos) {
        argv.push_back(a.data());
    }
    for (auto& e : entorno) {
        envp.push_back(e.data());
    }
    argv.push_back(nullptr);
    envp.push_back(nullptr);
    pid_t pid = 0;
    EXPECT_EQ(::posix_spawn(&pid, argv[0], nullptr, nullptr, argv.data(), envp.data()), 0);
    return pid;
}

// The exit status, or -1 when it did not exit.
inline int EsperarGancho(pid_t pid) {
    int estado = 0;
    ::waitpid(pid, &estado, 0);
    return WIFEXITED(estado) ? WEXITSTATUS(estado) : -1;
}

// One link as pppd knows it, and what pppd hands its scripts.
struct EnlaceFalso {
    std::string interfaz = "ppp0";
    std::string peer = "casa"; // pppd call casa
    int pid = 4242;
    std::string tty = "/dev/ttyS0";
    std::string velocidad = "115200";

    std::vector<std::string> Args() const {
        return {interfaz, tty, velocidad, "10.64.0.2", "10.64.0.1", ""};
    }
    std::vector<std::string> Entorno() const {
        return {"IFNAME=" + interfaz, "DEVICE=" + tty,
                "SPEED=" + velocidad, "IPLOCAL=10.64.0.2",
                "IPREMOTE=10.64.0.1", "PPPLOGNAME=root",
                "ORIG_UID=0",         "CALL_FILE=" + peer,
                "LINKNAME=" + peer,   "PPPD_PID=" + std::to_string(pid)};
    }
};

// pppd runs /etc/ppp/ip-up once the link carries IP.
inline pid_t LanzarSubida(const std::filesystem::path& carpeta, const EnlaceFalso& e) {
    return LanzarGancho(carpeta / "ip-up", e.Args(), e.Entorno());
}
inline int Subir(const std::filesystem::path& carpeta, const EnlaceFalso& e) {
    return EsperarGancho(LanzarSubida(carpeta, e));
}

// And /etc/ppp/ip-down when it goes, with the link's time and bytes.
inline pid_t LanzarBajada(const std::filesystem::path& carpeta, const EnlaceFalso& e,
                          const std::string& segundos, std::uint64_t recibidos,
                          std::uint64_t enviados) {
    auto entorno = e.Entorno();
    if (!segundos.empty()) {
        entorno.push_back("CONNECT_TIME=" + segundos);
    }
    entorno.push_back("BYTES_RCVD=" + std::to_string(recibidos));
    entorno.push_back("BYTES_SENT=" + std::to_string(enviados));
    return LanzarGancho(carpeta / "ip-down", e.Args(), entorno);
}
inline int Bajar(const std::filesystem::path& carpeta, const EnlaceFalso& e,
                 const std::string& segundos, std::uint64_t recibidos, std::uint64_t enviados) {
    return EsperarGancho(LanzarBajada(carpeta, e, segundos, recibidos, enviados));
}

// The files of the journal other than the hidden ones, by name.
inline std::vector<std::string> Registros(const std::filesystem::path& diario) {
    std::vector<std::string> nombres;
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(diario, ec)) {
        const std::string n = e.path().filename().string();
        if (n[0] != '.') {
            nombres.push_back(n);
        }
    }
    std::sort(nombres.begin(), nombres.end());
    return nombres;
}

// A journal record's keys.
inline std::map<std::string, std::string> Campos(const std::filesystem::path& registro) {
    std::map<std::string, std::string> campos;
    std::ifstream f(registro);
    for (std::string linea; std::getline(f, linea);) {
        const auto igual = linea.find('=');
        if (igual != std::string::npos) {
            campos[linea.substr(0, igual)] = linea.substr(igual + 1);
        }
    }
    return campos;
}

} // namespace vorimesk::prueba
