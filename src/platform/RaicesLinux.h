#pragma once
// The system folders the Linux backend reads. Tests point them at a fake tree.

#include <filesystem>

namespace vorimesk {

struct RaicesLinux {
    std::filesystem::path sys = "/sys";
    std::filesystem::path proc = "/proc";
    std::filesystem::path run = "/run";
    std::filesystem::path peers = "/etc/ppp/peers";
    // Where the pppd hook marks the links whose ip-up has run (one file per
    // interface holding "PPPD_PID START"); it removes the mark at ip-down.
    std::filesystem::path marcas = "/run/vorimesk/enlaces";
};

} // namespace vorimesk
