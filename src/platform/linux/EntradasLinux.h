#pragma once
// Dial-up entries are the pppd peers: the files of /etc/ppp/peers, which
// "pon NAME" dials.

#include "platform/ListaEntradas.h"

#include <filesystem>

namespace vorimesk {

class EntradasLinux final : public ListaEntradas {
public:
    explicit EntradasLinux(std::filesystem::path peers = "/etc/ppp/peers");
    // Sorted by name; hidden files, editor and package backups are not peers.
    std::vector<std::string> Entradas() const override;

private:
    std::filesystem::path peers_;
};

} // namespace vorimesk
