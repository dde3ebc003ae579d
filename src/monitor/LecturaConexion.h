#pragma once
// What the caller read from the connection source for one tick: the monitor
// never asks the system itself, so the same logic runs on the Linux links, on
// the scripted modem and on a test's made-up values.

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace vorimesk {

struct LecturaConexion {
    // State codes of the first connection.
    static constexpr int kNada = -1;
    static constexpr int kDesconectado = 0;
    static constexpr int kConectado = 2;
    static constexpr int kConectando = 3;

    // A constructor, not an aggregate: a reading made without a notice is
    // complete as it is.
    LecturaConexion(int count = 0, int estado = kNada, std::string entrada = {},
                    std::string aviso = {})
        : Count(count), IntState(estado), EntryName(std::move(entrada)), Aviso(std::move(aviso)) {}

    int Count = 0;
    int IntState = kNada;
    std::string EntryName;
    // Why the system refused the last dial or hang-up; shown on the status line.
    std::string Aviso;
    // The link session (interface, ifindex and pppd pid as one text); empty
    // when the source cannot tell sessions apart. A new identity while a
    // call is open is a new call: the link dropped and came back between
    // two looks.
    std::string Enlace = {};
    std::string Interfaz = {};
    int Pid = 0;
    // A pppd that runs the journal hook may carry the link; false for links
    // that never get a session in the journal (NetworkManager's).
    bool ConDiario = true;
    // Bytes of the link so far (the final ones for kDesconectado), when known.
    std::optional<std::uint64_t> Recibidos = {};
    std::optional<std::uint64_t> Enviados = {};
};

} // namespace vorimesk
