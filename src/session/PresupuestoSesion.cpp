#include "PresupuestoSesion.h"

#include "settings/Presupuesto.h"

namespace vorimesk {

PresupuestoSesion::PresupuestoSesion(std::filesystem::path carpeta)
    : carpeta_(std::move(carpeta)) {}

std::optional<double> PresupuestoSesion::Actual() const {
    const HuellaArchivo ahora = HuellaArchivo::De(carpeta_ / kArchivoPresupuesto);
    if (!leido_ || ahora != huella_) {
        valor_.reset();
        error_ = nullptr;
        try {
            valor_ = LeerPresupuesto(carpeta_);
        } catch (...) {
            error_ = std::current_exception();
        }
        huella_ = ahora;
        leido_ = true;
    }
    if (error_) {
        std::rethrow_exception(error_);
    }
    return valor_;
}

void PresupuestoSesion::Cambiar(std::optional<double> presupuesto) {
    GuardarPresupuesto(carpeta_, presupuesto);
    leido_ = false;
}

} // namespace vorimesk
