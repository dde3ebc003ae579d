#pragma once
// One meter per data folder: an exclusive flock on a lock file inside the
// folder, which also holds the holder's process id. The kernel drops the
// lock when the process ends, so a crash leaves nothing stale.

#include "platform/InstanciaUnica.h"

#include <filesystem>

namespace vorimesk {

class InstanciaUnicaFlock final : public InstanciaUnica {
public:
    static constexpr const char* kNombre = "vorimesk.lock";

    explicit InstanciaUnicaFlock(std::filesystem::path archivo);
    ~InstanciaUnicaFlock() override;
    InstanciaUnicaFlock(const InstanciaUnicaFlock&) = delete;
    InstanciaUnicaFlock& operator=(const InstanciaUnicaFlock&) = delete;

    // "vorimesk.lock" in the data folder: two meters on one folder would
    // both append to its register, meters on different folders do not meet.
    static std::filesystem::path Ruta(const std::filesystem::path& carpetaDatos);

    // Throws ErrorArchivo when the lock file cannot be opened at all.
    bool Adquirir() override;
    std::optional<long> Titular() const override;
    bool Relevar(std::chrono::milliseconds espera) override;

private:
    std::filesystem::path archivo_;
    int fd_ = -1;
};

} // namespace vorimesk
