#include "cPila.h"

#include "Errores.h"

namespace vorimesk {

void cPila::Meter(ValorPila valor) {
    if (elementos_.size() >= 32767) {
        throw ErrorDesbordamiento("la pila esta llena");
    }
    elementos_.push_back(std::move(valor));
}

ValorPila cPila::Sacar() {
    if (elementos_.empty()) {
        throw ErrorIndice("la pila esta vacia");
    }
    ValorPila cima = std::move(elementos_.back());
    elementos_.pop_back();
    return cima;
}

} // namespace vorimesk
