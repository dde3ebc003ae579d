#include "FuenteConexionesCombinada.h"

namespace vorimesk {
namespace {

bool Activa(int estado) {
    return estado == LecturaConexion::kConectado || estado == LecturaConexion::kConectando;
}

} // namespace

FuenteConexionesCombinada::FuenteConexionesCombinada(std::shared_ptr<FuenteConexiones> nm,
                                                     std::shared_ptr<FuenteConexiones> ppp)
    : nm_(std::move(nm)), ppp_(std::move(ppp)) {}

// A pppd link of its own: not one NetworkManager runs. NetworkManager's pppd
// has no peer, so while dialling it shows with no entry at all.
bool FuenteConexionesCombinada::PppPropio(const LecturaConexion& ppp) const {
    if (!Activa(ppp.IntState) || ppp.EntryName.empty()) {
        return false;
    }
    return ppp.Interfaz.empty() || ppp.Interfaz != interfazNM_;
}

LecturaConexion FuenteConexionesCombinada::Leer() {
    LecturaConexion nm = nm_->Leer();
    LecturaConexion ppp = ppp_->Leer();
    if (!nm.Interfaz.empty()) {
        interfazNM_ = nm.Interfaz;
    }
    const bool nmActiva = Activa(nm.IntState);
    const bool pppActiva = PppPropio(ppp);
    const bool sigue = liderNM_ ? nmActiva : pppActiva;
    // A leader that has just fallen is shown falling before the other takes over.
    if (!sigue && !liderActivo_ && (nmActiva || pppActiva)) {
        liderNM_ = nmActiva;
    }
    liderActivo_ = liderNM_ ? nmActiva : pppActiva;
    const int count = nm.Count + (pppActiva ? ppp.Count : 0);
    std::string aviso = nm.Aviso.empty() ? ppp.Aviso : nm.Aviso;
    LecturaConexion l = liderNM_ ? std::move(nm) : std::move(ppp);
    l.Count = count;
    l.Aviso = std::move(aviso);
    return l;
}

} // namespace vorimesk
