#include "EsperaMarcado.h"

namespace vorimesk {

void EsperaMarcado::Empezar(const std::string& entrada, Fecha ahora) {
    desde_ = ahora;
    entrada_ = entrada;
}

std::optional<std::string> EsperaMarcado::Mirar(const PantallaMonitor& p, Fecha ahora) {
    if (!desde_) {
        return std::nullopt;
    }
    // A link that is coming up, or a button let go, ends the wait quietly.
    if (!p.BotonConexion || p.EtiquetasLlamada) {
        desde_.reset();
        return std::nullopt;
    }
    const std::string prefijo = "No se ha podido conectar con \"" + entrada_ + "\": ";
    if (!p.Aviso.empty()) {
        desde_.reset();
        return prefijo + p.Aviso;
    }
    if (ahora.Segundos() - desde_->Segundos() >= kSegundos) {
        desde_.reset();
        return prefijo + "no ha respondido en " + std::to_string(kSegundos) + " segundos.";
    }
    return std::nullopt;
}

} // namespace vorimesk
