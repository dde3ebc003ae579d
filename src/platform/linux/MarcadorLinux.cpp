#include "MarcadorLinux.h"

#include "core/Texto1252.h"

namespace vorimesk {

MarcadorLinux::MarcadorLinux(RaicesLinux raices, EjecutarOrden ejecutar)
    : lector_(std::move(raices)), ejecutar_(std::move(ejecutar)) {}

void MarcadorLinux::Marcar(const std::string& entrada) {
    resultado_ = ejecutar_({"pon", Recortar(entrada)});
}

int MarcadorLinux::Colgar(const std::string& entrada) {
    const std::string buscada = Recortar(entrada);
    std::string peer;
    int colgadas = 0;
    for (const auto& enlace : lector_.Enlaces()) {
        if (enlace.pid != 0 && !enlace.entrada.empty() && Recortar(enlace.entrada) == buscada) {
            peer = enlace.entrada;
            ++colgadas;
        }
    }
    if (colgadas > 0) {
        resultado_ = ejecutar_({"poff", peer});
    }
    return colgadas;
}

} // namespace vorimesk
