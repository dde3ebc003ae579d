#include "FormatoRegistro.h"

#include "core/Errores.h"

namespace vorimesk {

std::vector<RegistroLlamada> LeerRegistros(std::string_view bytes) {
    const std::size_t enteros = bytes.size() / RegistroLlamada::kTamaño;
    std::vector<RegistroLlamada> registros;
    registros.reserve(enteros < kMaximoLlamadas ? enteros : kMaximoLlamadas);
    for (std::size_t i = 0; i < enteros; ++i) {
        RegistroLlamada r =
            RegistroLlamada::Decodificar(bytes.data() + i * RegistroLlamada::kTamaño);
        if (r.Dia == 0.0) {
            break;
        }
        if (registros.size() == kMaximoLlamadas) {
            throw ErrorDesbordamiento("el registro de llamadas tiene mas de " +
                                      std::to_string(kMaximoLlamadas) + " llamadas");
        }
        registros.push_back(std::move(r));
    }
    return registros;
}

std::string EscribirRegistros(const std::vector<RegistroLlamada>& registros) {
    std::string bytes(registros.size() * RegistroLlamada::kTamaño, '\0');
    for (std::size_t i = 0; i < registros.size(); ++i) {
        registros[i].Codificar(bytes.data() + i * RegistroLlamada::kTamaño);
    }
    return bytes;
}

} // namespace vorimesk
