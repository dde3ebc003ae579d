#include "TextoSistema.h"

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

std::optional<std::string> LeerTodo(const fs::path& ruta) {
    std::ifstream f(ruta, std::ios::binary);
    if (!f) {
        return std::nullopt;
    }
    // A process can end between the open and the read of its /proc files:
    // the read then fails (ESRCH), which the stream buffer throws.
    try {
        std::string texto((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
        if (f.bad()) {
            return std::nullopt;
        }
        return texto;
    } catch (const std::ios_base::failure&) {
        return std::nullopt;
    }
}

} // namespace

std::optional<std::string> LeerTextoSistema(const fs::path& ruta) {
    auto texto = LeerTodo(ruta);
    if (texto) {
        const auto fin = texto->find_last_not_of(" \t\r\n");
        texto->erase(fin == std::string::npos ? 0 : fin + 1);
    }
    return texto;
}

std::vector<std::string> LeerListaNul(const fs::path& ruta) {
    std::vector<std::string> partes;
    const auto texto = LeerTodo(ruta);
    if (!texto) {
        return partes;
    }
    std::size_t inicio = 0;
    while (inicio < texto->size()) {
        auto fin = texto->find('\0', inicio);
        if (fin == std::string::npos) {
            fin = texto->size();
        }
        partes.push_back(texto->substr(inicio, fin - inicio));
        inicio = fin + 1;
    }
    return partes;
}

bool OrdenNatural(const std::string& a, const std::string& b) {
    const auto fa = a.find_last_not_of("0123456789") + 1;
    const auto fb = b.find_last_not_of("0123456789") + 1;
    const std::string_view pa(a.data(), fa), pb(b.data(), fb);
    if (pa != pb || fa == a.size() || fb == b.size()) {
        return a < b;
    }
    const std::string_view na = std::string_view(a).substr(fa);
    const std::string_view nb = std::string_view(b).substr(fb);
    if (na.size() != nb.size()) {
        return na.size() < nb.size();
    }
    return na < nb || (na == nb && a < b);
}

} // namespace vorimesk
