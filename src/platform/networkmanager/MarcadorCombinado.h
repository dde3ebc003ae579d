#pragma once
// Dialling on a system with NetworkManager and pppd peers: an entry
// NetworkManager knows is activated there, any other is a pppd peer. Hang-up
// asks both, since each only ends links of its own.

#include "monitor/Marcador.h"
#include "platform/networkmanager/MarcadorNM.h"

#include <memory>

namespace vorimesk {

class MarcadorCombinado final : public Marcador {
public:
    MarcadorCombinado(std::shared_ptr<MarcadorNM> nm, std::shared_ptr<Marcador> ppp)
        : nm_(std::move(nm)), ppp_(std::move(ppp)) {}

    void Marcar(const std::string& entrada) override;
    int Colgar(const std::string& entrada) override;
    int UltimoResultado() const override { return ultimo_->UltimoResultado(); }

private:
    std::shared_ptr<MarcadorNM> nm_;
    std::shared_ptr<Marcador> ppp_;
    Marcador* ultimo_ = nm_.get();
};

} // namespace vorimesk
