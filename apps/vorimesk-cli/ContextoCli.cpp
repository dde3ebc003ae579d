#include "ContextoCli.h"

#include "core/CarpetaDatos.h"

namespace vorimesk::cli {

const std::filesystem::path& ContextoCli::Carpeta() {
    if (!carpeta_) {
        std::optional<std::filesystem::path> dir;
        if (datos) {
            dir = *datos;
        }
        carpeta_ = CarpetaDatos::Resolver(CarpetaDatos::EntornoActual(dir));
    }
    return *carpeta_;
}

} // namespace vorimesk::cli
