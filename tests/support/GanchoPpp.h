#pragma once
// The pppd hook of data/ppp, installed in a test folder as make install
// does (the same script in ip-up.d and ip-down.d) and run as pppd runs it:
// the arguments given and a bare environment.

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace vorimesk::prueba {

inline void InstalarGancho(const std::filesystem::path& carpeta) {
    const char* fuentes = std::getenv("VORIMESK_FUENTES");
    const std::filesystem::path gancho =
        std::filesystem::path(fuentes ? fuentes : VORIMESK_FUENTES_COMPILADAS) / "data" / "ppp" /
        "vorimesk";
    for (const char* fase : {"ip-up.d", "ip-down.d"}) {
        std::filesystem::create_directories(carpeta / fase);
        std::filesystem::copy_file(gancho, carpeta / fase / "vorimesk");
    }
}

inline pid_t LanzarGancho(const std::filesystem::path& script, const std::vector<std::string>& args,
                          std::vector<std::string> entorno) {
    entorno.push_back("PATH=/usr/sbin:/usr/bin:/sbin:/bin");
    // The link marks go to the test folder, never to the real /run.
    entorno.push_back("VORIMESK_MARCAS=" +
                      (script.parent_path().parent_path() / "marcas").string());
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

} // namespace vorimesk::prueba
