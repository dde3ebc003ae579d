#pragma once
// Start at login while simulating: remembered, never written to the desktop,
// so a demonstration leaves the user's session as it was.

#include "platform/CargaAlIniciar.h"

namespace vorimesk {

class CargaAlIniciarEnMemoria final : public CargaAlIniciar {
public:
    void Activar(const std::filesystem::path& ejecutable,
                 const std::vector<std::string>& argumentos) override {
        ejecutable_ = ejecutable;
        argumentos_ = argumentos;
    }
    void Desactivar() override {
        ejecutable_.clear();
        argumentos_.clear();
    }
    bool Activada() const override { return !ejecutable_.empty(); }
    const std::vector<std::string>& Argumentos() const { return argumentos_; }

private:
    std::filesystem::path ejecutable_;
    std::vector<std::string> argumentos_;
};

} // namespace vorimesk
