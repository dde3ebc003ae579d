#include "FuenteConexionesLinux.h"

#include <algorithm>

namespace vorimesk {

FuenteConexionesLinux::FuenteConexionesLinux(RaicesLinux raices) : lector_(std::move(raices)) {}

// Same name, and no sign of a re-created interface or of another pppd: an
// index or pid not known on one of the two looks does not tell them apart.
bool FuenteConexionesLinux::EsLaVigilada(const EnlacePpp& e) const {
    const SesionEnlace& v = *vigilada_;
    return e.arriba && e.interfaz == v.interfaz &&
           (v.indice == 0 || e.indice == 0 || e.indice == v.indice) &&
           (v.pid == 0 || e.pid == 0 || e.pid == v.pid) && e.marca == v.marca;
}

const EnlacePpp* FuenteConexionesLinux::PppdSinInterfaz(const std::vector<EnlacePpp>& enlaces) {
    const auto it = std::find_if(enlaces.begin(), enlaces.end(), [](const EnlacePpp& e) {
        return !e.arriba && e.pid != 0 && e.interfaz.empty();
    });
    return it == enlaces.end() ? nullptr : &*it;
}

std::optional<Trafico> FuenteConexionesLinux::DesdeBase(std::optional<Trafico> bytes) const {
    if (!bytes || !base_) {
        return bytes;
    }
    const auto resta = [](std::uint64_t a, std::uint64_t b) { return a > b ? a - b : 0; };
    return Trafico{resta(bytes->recibidos, base_->recibidos),
                   resta(bytes->enviados, base_->enviados)};
}

LecturaConexion FuenteConexionesLinux::FinDeLlamada(int count) {
    // A link taken down by hand keeps its interface and final counters; one
    // pppd removed has taken them with it, so the last ones seen stand. A
    // re-created interface holds the new session's counters: not these.
    if (lector_.Indice(vigilada_->interfaz) == vigilada_->indice) {
        if (const auto finales = DesdeBase(lector_.Bytes(vigilada_->interfaz))) {
            bytesVigilada_ = finales;
        }
    }
    const SesionEnlace terminada = *vigilada_;
    vigilada_.reset();
    return Lectura(count, LecturaConexion::kDesconectado, entradaVigilada_, bytesVigilada_,
                   terminada);
}

LecturaConexion FuenteConexionesLinux::Leer() {
    auto enlaces = lector_.Enlaces();
    const int count = static_cast<int>(enlaces.size());
    if (vigilada_) {
        const auto sigue = std::find_if(enlaces.begin(), enlaces.end(),
                                        [&](const EnlacePpp& e) { return EsLaVigilada(e); });
        if (sigue == enlaces.end()) {
            return FinDeLlamada(count);
        }
        std::rotate(enlaces.begin(), sigue, sigue + 1);
    }
    if (enlaces.empty()) {
        return {};
    }
    const EnlacePpp& primero = enlaces.front();
    if (!primero.arriba) {
        return Lectura(count, LecturaConexion::kConectando, primero.entrada, std::nullopt);
    }
    if (!vigilada_ && primero.pid == 0) {
        // pppd makes the interface before it writes its pid file: until
        // then the link is not known to be that pppd's, and a call opened
        // now would carry the interface's name instead of the peer's.
        if (const EnlacePpp* pppd = PppdSinInterfaz(enlaces)) {
            return Lectura(count, LecturaConexion::kConectando, pppd->entrada, std::nullopt);
        }
    }
    auto bytes = lector_.Bytes(primero.interfaz);
    if (!vigilada_) {
        bytesVigilada_.reset(); // a new call: nothing of the last one carries over
        vigilada_ = SesionEnlace{primero.interfaz, primero.indice, primero.pid, primero.marca};
        // A demand interface counts on from call to call: this call's bytes
        // are those after its mark.
        base_ = primero.marca.empty() ? std::nullopt : bytes;
    }
    bytes = DesdeBase(bytes);
    // What a first look could not read yet (the pid file comes after the
    // interface) is learnt on a later one.
    vigilada_->indice = vigilada_->indice != 0 ? vigilada_->indice : primero.indice;
    vigilada_->pid = vigilada_->pid != 0 ? vigilada_->pid : primero.pid;
    entradaVigilada_ = primero.entrada;
    if (bytes) {
        bytesVigilada_ = bytes;
    }
    return Lectura(count, LecturaConexion::kConectado, primero.entrada, bytes, *vigilada_);
}

} // namespace vorimesk
