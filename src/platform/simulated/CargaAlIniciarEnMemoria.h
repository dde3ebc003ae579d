#pragma once
// Start at login while simulating: remembered, never written to the desktop,
// so a demonstration leaves the user's session as it was.

#include "platform/CargaAlIniciar.h"

namespace vorimesk {

class CargaAlIniciarEnMemoria final : public CargaAlIniciar {
public:
    void Activar(const std::filesystem::path& ejecutable,
                 const std::vector<std::string>&) override {
        ejecutable_ = ejecutable;
    }
    void Desactivar() override { ejecutable_.clear(); }
    bool Activada() const override { return !ejecutable_.empty(); }

private:
    std::filesystem::path ejecutable_;
};

} // namespace vorimesk
