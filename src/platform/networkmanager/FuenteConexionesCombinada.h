#pragma once
// The links of NetworkManager and of pppd seen as one source, for systems
// where both dial: the one with a call keeps it until it ends, and the end
// is shown for at least one tick even when the other has a link at once.
// NetworkManager starts its own pppd for modem and PPPoE links; that pppd's
// interface is NetworkManager's, so the pppd side does not count it again.

#include "platform/FuenteConexiones.h"

#include <memory>

namespace vorimesk {

class FuenteConexionesCombinada final : public FuenteConexiones {
public:
    FuenteConexionesCombinada(std::shared_ptr<FuenteConexiones> nm,
                              std::shared_ptr<FuenteConexiones> ppp);

    // The leader's reading, with the links of both and the first refusal.
    LecturaConexion Leer() override;

private:
    bool PppPropio(const LecturaConexion& ppp) const;

    std::shared_ptr<FuenteConexiones> nm_;
    std::shared_ptr<FuenteConexiones> ppp_;
    bool liderNM_ = true;
    bool liderActivo_ = false;
    std::string interfazNM_; // the last interface NetworkManager brought up
};

} // namespace vorimesk
