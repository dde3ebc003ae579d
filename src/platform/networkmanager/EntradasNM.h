#pragma once
// Dial-up entries are the NetworkManager connections that dial (mobile
// broadband, PPPoE, Bluetooth DUN, ppp and wwan links), by their id, in the
// order NetworkManager lists its settings.

#include "platform/ListaEntradas.h"
#include "platform/networkmanager/ClienteNM.h"

#include <memory>

namespace vorimesk {

class EntradasNM final : public ListaEntradas {
public:
    explicit EntradasNM(std::shared_ptr<ClienteNM> cliente) : cliente_(std::move(cliente)) {}
    std::vector<std::string> Entradas() const override;

private:
    std::shared_ptr<ClienteNM> cliente_;
};

} // namespace vorimesk
