#pragma once
// Reading the small text files of sysfs, procfs and /run.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vorimesk {

// The file's text without trailing blanks and line ends; nothing when it
// cannot be read (the kernel removes these files at any moment).
std::optional<std::string> LeerTextoSistema(const std::filesystem::path& ruta);

// A NUL-separated list such as /proc/PID/cmdline.
std::vector<std::string> LeerListaNul(const std::filesystem::path& ruta);

// Sorts names such as ttyS2 before ttyS10.
bool OrdenNatural(const std::string& a, const std::string& b);

} // namespace vorimesk
