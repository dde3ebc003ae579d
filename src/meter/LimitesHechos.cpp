#include "meter/LimitesHechos.h"

#include "core/Archivo.h"

#include <nlohmann/json.hpp>

namespace vorimesk {

LimitesHechos::LimitesHechos(std::filesystem::path carpeta)
    : ruta_(std::move(carpeta) / kArchivoLimitesHechos) {
    if (!ExisteArchivo(ruta_)) {
        return;
    }
    try {
        const nlohmann::json j = nlohmann::json::parse(LeerArchivo(ruta_));
        for (const auto& clave : j.at("hechos")) {
            hechos_.insert(clave.get<std::string>());
        }
    } catch (const std::exception&) {
        legible_ = false;
    }
}

void LimitesHechos::Anotar(const std::string& clave) {
    if (!hechos_.insert(clave).second || !legible_) {
        return;
    }
    const nlohmann::json j{
        {"formato", "vorimesk-limites-hechos"}, {"version", 1}, {"hechos", hechos_}};
    EscribirArchivoSeguro(ruta_, j.dump(1) + "\n");
}

} // namespace vorimesk
