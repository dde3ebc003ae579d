#pragma once
// Whether this machine lets a real-link rig be built, asked once of the
// probe every rig shares (tests/platform/sonda_rig.sh). A rig that cannot be
// built here is skipped with the probe's reason; it never fails for it.

#include <cstdio>
#include <optional>
#include <string>
#include <sys/wait.h>

namespace vorimesk::prueba {

// Nothing when a rig can be built; otherwise why not, in Spanish.
inline std::optional<std::string> SinRig() {
    static const std::optional<std::string> motivo = [] {
        std::string texto;
        FILE* f = ::popen("bash " VORIMESK_SONDA_RIG " 2>&1", "r");
        if (f == nullptr) {
            return std::optional<std::string>("no se puede lanzar la sonda del banco de enlaces");
        }
        char buf[256];
        while (std::fgets(buf, sizeof buf, f)) {
            texto += buf;
        }
        const int estado = ::pclose(f);
        while (!texto.empty() && texto.back() == '\n') {
            texto.pop_back();
        }
        if (WIFEXITED(estado) && WEXITSTATUS(estado) == 0) {
            return std::optional<std::string>();
        }
        return std::optional<std::string>(texto.empty() ? "la sonda del banco de enlaces fallo"
                                                        : texto);
    }();
    return motivo;
}

} // namespace vorimesk::prueba
