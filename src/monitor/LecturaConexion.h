#pragma once
// What the caller read from the connection source for one tick: the monitor
// never asks the system itself, so the same logic runs on the Linux links, on
// the scripted modem and on a test's made-up values.

#include <string>

namespace vorimesk {

struct LecturaConexion {
    // State codes of the first connection.
    static constexpr int kNada = -1;
    static constexpr int kDesconectado = 0;
    static constexpr int kConectado = 2;
    static constexpr int kConectando = 3;

    int Count = 0;
    int IntState = kNada;
    std::string EntryName;
};

} // namespace vorimesk
