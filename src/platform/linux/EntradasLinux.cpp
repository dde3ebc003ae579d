#include "EntradasLinux.h"

#include <algorithm>
#include <array>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

bool EsCopia(const std::string& nombre) {
    static constexpr std::array<std::string_view, 8> kFinales = {
        "~", ".bak", ".old", ".orig", ".swp", ".rpmnew", ".rpmsave", ".tmp"};
    static constexpr std::array<std::string_view, 2> kIntermedios = {".dpkg-", ".ucf-"};
    const std::string_view n(nombre);
    for (const auto f : kFinales) {
        if (n.size() >= f.size() && n.substr(n.size() - f.size()) == f) {
            return true;
        }
    }
    for (const auto m : kIntermedios) {
        if (n.find(m) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

} // namespace

EntradasLinux::EntradasLinux(fs::path peers) : peers_(std::move(peers)) {}

std::vector<std::string> EntradasLinux::Entradas() const {
    std::vector<std::string> nombres;
    std::error_code ec;
    for (fs::directory_iterator it(peers_, ec), fin; !ec && it != fin; it.increment(ec)) {
        const std::string nombre = it->path().filename().string();
        std::error_code ecTipo;
        if (nombre.front() == '.' || EsCopia(nombre) || !it->is_regular_file(ecTipo)) {
            continue;
        }
        nombres.push_back(nombre);
    }
    std::sort(nombres.begin(), nombres.end());
    return nombres;
}

} // namespace vorimesk
