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

    void Actualizar() override;
    int Count() const override { return count_; }
    int IntState() const override { return lider_->IntState(); }
    std::string EntryName() const override { return lider_->EntryName(); }
    std::optional<Trafico> Bytes() const override { return lider_->Bytes(); }
    std::string Interfaz() const override { return lider_->Interfaz(); }
    OrigenEnlace Origen() const override { return lider_->Origen(); }
    SesionEnlace Sesion() const override { return lider_->Sesion(); }
    std::string Aviso() const override;

private:
    bool PppPropio() const;

    std::shared_ptr<FuenteConexiones> nm_;
    std::shared_ptr<FuenteConexiones> ppp_;
    FuenteConexiones* lider_;
    bool liderActivo_ = false;
    std::string interfazNM_; // the last interface NetworkManager brought up
    int count_ = 0;
};

} // namespace vorimesk
