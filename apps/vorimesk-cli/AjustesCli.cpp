#include "AjustesCli.h"

#include "ArgumentosCli.h"

namespace vorimesk::cli {

void LeerAjustes(Sesion& sesion) {
    try {
        sesion.LeerAjustesEstrictos();
    } catch (const ErrorAjustes& e) {
        throw ErrorOrden(
            std::string(e.what()) +
            ". No se ha cambiado nada; corrija o aparte el archivo y repita la orden.");
    }
}

} // namespace vorimesk::cli
