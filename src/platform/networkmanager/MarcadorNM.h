#pragma once
// Dials and hangs up NetworkManager connections by their id: the connection
// is activated, and every active connection of that id deactivated.

#include "monitor/Marcador.h"
#include "platform/networkmanager/ClienteNM.h"

#include <memory>

namespace vorimesk {

class MarcadorNM final : public Marcador {
public:
    explicit MarcadorNM(std::shared_ptr<ClienteNM> cliente) : cliente_(std::move(cliente)) {}

    // A refusal is kept in Spanish for the status line (ClienteNM::Aviso)
    // and leaves UltimoResultado at -1.
    void Marcar(const std::string& entrada) override;
    int Colgar(const std::string& entrada) override;
    int UltimoResultado() const override { return resultado_; }

    // Whether NetworkManager has a connection of that id.
    bool Conoce(const std::string& entrada) const;

private:
    std::shared_ptr<ClienteNM> cliente_;
    int resultado_ = 0;
};

} // namespace vorimesk
