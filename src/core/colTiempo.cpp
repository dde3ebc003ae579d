#include "colTiempo.h"

namespace vorimesk {

cTiempo& colTiempo::Add(std::string_view texto, std::string_view clave) {
    return elementos_.Agregar(std::make_unique<cTiempo>(texto), clave);
}

} // namespace vorimesk
