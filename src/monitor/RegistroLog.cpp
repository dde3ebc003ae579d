#include "RegistroLog.h"

#include "core/Archivo.h"
#include "core/Errores.h"

namespace vorimesk {
namespace {

// The hook's clock and the meter's may read a second apart.
constexpr std::int64_t kHolguraSegundos = 2;

} // namespace

bool RegistroLog::ExisteModemLog() const {
    return (!log_.NombreLog().empty() && ExisteArchivo(log_.NombreLog())) || esperada_;
}

bool RegistroLog::AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                            colConexion& pendientes) {
    if (!sesiones_) {
        return log_.AñadirLog(bono, festivos, pendientes);
    }
    const TomaSesiones::Resultado r = TomarSesiones(bono, pendientes);
    if (r.Añadidas > 0) {
        guardadoCon_ = log_.Count();
    }
    if (esperada_ && r.UltimoFin && r.UltimoFin->MasSegundos(kHolguraSegundos) >= *esperada_) {
        esperada_.reset();
    }
    if (!r.Error.empty()) {
        esperada_.reset();
        throw Error(r.Error);
    }
    return r.Tomadas > 0;
}

TomaSesiones::Resultado RegistroLog::TomarSesiones(cBono& bono, colConexion& pendientes) {
    if (!sesiones_) {
        return {};
    }
    return sesiones_->Tomar(log_, *ajustes_, bono, pendientes);
}

void RegistroLog::SalvarLog() {
    // The monitor saves the calls the journal just gave, which the taking
    // saved already: once more, the backup would lose the register before them.
    const bool yaGuardado = guardadoCon_ == log_.Count();
    guardadoCon_.reset();
    if (!yaGuardado) {
        log_.SalvarLog();
    }
}

void RegistroLog::LlamadaTerminada(Fecha inicio) {
    if (sesiones_ && sesiones_->HaySesiones()) {
        esperada_ = inicio;
    }
}

} // namespace vorimesk
