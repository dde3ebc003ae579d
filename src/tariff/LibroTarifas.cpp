#include "LibroTarifas.h"

namespace vorimesk {

LibroTarifas::LibroTarifas(std::filesystem::path carpeta)
    : carpeta_(std::move(carpeta)), libro_(carpeta_) {}

const cLlamada& LibroTarifas::Actual() const {
    // Looked at before reading: a save while it is read shows at the next use.
    const HuellaArchivo ahora = HuellaArchivo::De(libro_.Ruta());
    if (lecturas_ > 0 && ahora == huella_) {
        return libro_;
    }
    cLlamada leido(carpeta_);
    leido.Load();
    leido.RecargarAlPreciar(false);
    libro_ = std::move(leido);
    huella_ = ahora;
    ++lecturas_;
    return libro_;
}

} // namespace vorimesk
