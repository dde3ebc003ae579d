#pragma once
// The system folders the Linux backend reads. Tests point them at a fake tree.

#include <filesystem>

namespace vorimesk {

struct RaicesLinux {
    std::filesystem::path sys = "/sys";
    std::filesystem::path proc = "/proc";
    std::filesystem::path run = "/run";
    std::filesystem::path peers = "/etc/ppp/peers";
};

} // namespace vorimesk
