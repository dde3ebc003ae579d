#include "FuenteConexionesCombinada.h"

namespace vorimesk {
namespace {

bool Activa(int estado) {
    return estado == FuenteConexiones::kConectado || estado == FuenteConexiones::kConectando;
}

} // namespace

FuenteConexionesCombinada::FuenteConexionesCombinada(std::shared_ptr<FuenteConexiones> nm,
                                                     std::shared_ptr<FuenteConexiones> ppp)
    : nm_(std::move(nm)), ppp_(std::move(ppp)), lider_(nm_.get()) {}

// A pppd link of its own: not one NetworkManager runs. NetworkManager's pppd
// has no peer, so while dialling it shows with no entry at all.
bool FuenteConexionesCombinada::PppPropio() const {
    if (!Activa(ppp_->IntState()) || ppp_->EntryName().empty()) {
        return false;
    }
    const std::string interfaz = ppp_->Interfaz();
    return interfaz.empty() || interfaz != interfazNM_;
}

void FuenteConexionesCombinada::Actualizar() {
    nm_->Actualizar();
    ppp_->Actualizar();
    if (!nm_->Interfaz().empty()) {
        interfazNM_ = nm_->Interfaz();
    }
    const bool nmActiva = Activa(nm_->IntState());
    const bool pppActiva = PppPropio();
    const bool sigue = lider_ == nm_.get() ? nmActiva : pppActiva;
    // A leader that has just fallen is shown falling before the other takes over.
    if (!sigue && !liderActivo_) {
        if (nmActiva) {
            lider_ = nm_.get();
        } else if (pppActiva) {
            lider_ = ppp_.get();
        }
    }
    liderActivo_ = lider_ == nm_.get() ? nmActiva : pppActiva;
    count_ = nm_->Count() + (pppActiva ? ppp_->Count() : 0);
}

std::string FuenteConexionesCombinada::Aviso() const {
    const std::string aviso = nm_->Aviso();
    return aviso.empty() ? ppp_->Aviso() : aviso;
}

} // namespace vorimesk
