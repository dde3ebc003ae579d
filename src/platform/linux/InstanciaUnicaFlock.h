#pragma once
// One running copy per user: an exclusive flock on a lock file. The kernel
// drops the lock when the process ends, so a crash leaves nothing stale.

#include "platform/InstanciaUnica.h"

#include <filesystem>
#include <optional>
#include <string>

namespace vorimesk {

class InstanciaUnicaFlock final : public InstanciaUnica {
public:
    explicit InstanciaUnicaFlock(std::filesystem::path archivo);
    ~InstanciaUnicaFlock() override;
    InstanciaUnicaFlock(const InstanciaUnicaFlock&) = delete;
    InstanciaUnicaFlock& operator=(const InstanciaUnicaFlock&) = delete;

    // "vorimesk.lock" in $XDG_RUNTIME_DIR (private to the user and emptied
    // at logout) when it is an existing folder, else in the data folder.
    static std::filesystem::path Ruta(const std::optional<std::string>& xdgRuntimeDir,
                                      const std::filesystem::path& carpetaDatos);

    // Throws ErrorArchivo when the lock file cannot be opened at all.
    bool Adquirir() override;

private:
    std::filesystem::path archivo_;
    int fd_ = -1;
};

} // namespace vorimesk
