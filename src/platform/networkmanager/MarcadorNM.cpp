#include "MarcadorNM.h"

#include "core/Texto1252.h"

#include <algorithm>

namespace vorimesk {

void MarcadorNM::Marcar(const std::string& entrada) {
    cliente_->Bombear(); // the list as it is now
    resultado_ = cliente_->Activar(entrada) ? -1 : 0;
}

int MarcadorNM::Colgar(const std::string& entrada) {
    cliente_->Bombear();
    std::optional<std::string> error;
    const int pedidas = cliente_->Desactivar(entrada, error);
    if (pedidas > 0) {
        resultado_ = error ? -1 : 0;
    }
    return pedidas;
}

bool MarcadorNM::Conoce(const std::string& entrada) const {
    const std::string buscada = Recortar(entrada);
    const auto& conexiones = cliente_->Conexiones();
    return std::any_of(conexiones.begin(), conexiones.end(),
                       [&](const ConexionNM& c) { return Recortar(c.id) == buscada; });
}

} // namespace vorimesk
