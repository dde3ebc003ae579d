#pragma once
// What the main window is given from outside: where the user's data and the
// program's files are, the operating system (through the platform layer) and
// the clock.

#include "core/Reloj.h"
#include "platform/Plataforma.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorimesk {

struct EntornoVentana {
    std::filesystem::path carpetaDatos;
    // The folder of the program, where the tariff editor is.
    std::filesystem::path carpetaPrograma;
    // What starting at login starts, and with which options.
    std::filesystem::path ejecutable;
    std::vector<std::string> argumentos;
    // The entries, modems, dialling, connection state and start at login.
    Plataforma plataforma;
    // The environment the platform was made with (where the session log is
    // when the system has no modem at all, ...).
    EntornoPlataforma sistema = EntornoPlataforma::Actual();
    const Reloj* reloj = nullptr;
    // Started on a scripted modem to show a call: the mini window comes up
    // with every call, whatever the options say.
    bool demostracion = false;
};

} // namespace vorimesk
