#include "FuenteConexionesLinux.h"

#include <algorithm>

namespace vorimesk {

FuenteConexionesLinux::FuenteConexionesLinux(RaicesLinux raices) : lector_(std::move(raices)) {}

void FuenteConexionesLinux::Fijar(int count, int estado, std::string entrada,
                                  std::optional<Trafico> bytes) {
    count_ = count;
    estado_ = estado;
    entrada_ = std::move(entrada);
    bytes_ = bytes;
}

void FuenteConexionesLinux::FinDeLlamada(int count) {
    // A link taken down by hand keeps its interface and final counters; one
    // pppd removed has taken them with it, so the last ones seen stand.
    if (const auto finales = lector_.Bytes(*vigilada_)) {
        bytesVigilada_ = finales;
    }
    vigilada_.reset();
    trasLlamada_ = true;
    Fijar(count, kDesconectado, entradaVigilada_, bytesVigilada_);
}

void FuenteConexionesLinux::Actualizar() {
    auto enlaces = lector_.Enlaces();
    const int count = static_cast<int>(enlaces.size());
    if (vigilada_) {
        const auto sigue = std::find_if(enlaces.begin(), enlaces.end(), [&](const EnlacePpp& e) {
            return e.arriba && e.interfaz == *vigilada_;
        });
        if (sigue == enlaces.end()) {
            FinDeLlamada(count);
            return;
        }
        std::rotate(enlaces.begin(), sigue, sigue + 1);
    }
    if (enlaces.empty()) {
        if (trasLlamada_) {
            Fijar(0, kDesconectado, entradaVigilada_, bytesVigilada_);
        } else {
            Fijar(0, kNada, {}, std::nullopt);
        }
        return;
    }
    trasLlamada_ = false;
    const EnlacePpp& primero = enlaces.front();
    if (!primero.arriba) {
        Fijar(count, kConectando, primero.entrada, std::nullopt);
        return;
    }
    if (!vigilada_) {
        bytesVigilada_.reset(); // a new call: nothing of the last one carries over
    }
    vigilada_ = primero.interfaz;
    entradaVigilada_ = primero.entrada;
    const auto bytes = lector_.Bytes(primero.interfaz);
    if (bytes) {
        bytesVigilada_ = bytes;
    }
    Fijar(count, kConectado, primero.entrada, bytes);
}

} // namespace vorimesk
