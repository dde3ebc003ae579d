#include "MarcadorCombinado.h"

namespace vorimesk {

void MarcadorCombinado::Marcar(const std::string& entrada) {
    ultimo_ = nm_->Conoce(entrada) ? static_cast<Marcador*>(nm_.get()) : ppp_.get();
    ultimo_->Marcar(entrada);
}

int MarcadorCombinado::Colgar(const std::string& entrada) {
    const int nm = nm_->Colgar(entrada);
    const int ppp = ppp_->Colgar(entrada);
    if (nm > 0 || ppp > 0) {
        ultimo_ = ppp > 0 ? ppp_.get() : static_cast<Marcador*>(nm_.get());
    }
    return nm + ppp;
}

} // namespace vorimesk
