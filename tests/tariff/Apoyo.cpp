#include "Apoyo.h"

#include <stdexcept>
#include <unistd.h>

namespace fs = std::filesystem;

namespace prueba {

CarpetaTemporal::CarpetaTemporal() {
    std::string plantilla = (fs::temp_directory_path() / "vorimesk-tarifa-XXXXXX").string();
    if (::mkdtemp(plantilla.data()) == nullptr) {
        throw std::runtime_error("no se pudo crear la carpeta temporal");
    }
    dir = plantilla;
}

CarpetaTemporal::~CarpetaTemporal() {
    std::error_code ec;
    fs::remove_all(dir, ec);
}

Dia Laborable(std::string normal, std::string reducida) {
    return {{std::move(normal), "08:00:00", "17:59:59"},
            {std::move(reducida), "18:00:00", "07:59:59"}};
}

Dia TodoReducido(std::string reducida) {
    return {{"0", "00:00:00", "00:00:00"}, {std::move(reducida), "00:00:00", "23:59:59"}};
}

namespace {
void Poner(vorimesk::cLlamada& l, std::int16_t i, const std::string& clave, const Franja& f) {
    l.Valor(i, clave + ".Importe", f.importe);
    l.Valor(i, clave + ".Inicio", f.inicio);
    l.Valor(i, clave + ".Fin", f.fin);
}
} // namespace

std::int16_t PonerTarifa(vorimesk::cLlamada& l, const std::string& nombre,
                         const std::string& conexion, const std::string& incluido,
                         const Dia& semana, const Dia& sabado, const Dia& festivo) {
    l.Add();
    const auto i = static_cast<std::int16_t>(l.Count() - 1);
    l.Valor(i, "Nombre", nombre);
    l.Valor(i, "Conexion.Importe", conexion);
    l.Valor(i, "Conexion.Tiempo", incluido);
    const Dia* dias[] = {&semana, &sabado, &festivo};
    const char* nombres[] = {"Semana", "Sabado", "Festivo"};
    for (int d = 0; d < 3; ++d) {
        Poner(l, i, std::string(nombres[d]) + ".Normal", dias[d]->normal);
        Poner(l, i, std::string(nombres[d]) + ".Reducida", dias[d]->reducida);
    }
    return i;
}

} // namespace prueba
