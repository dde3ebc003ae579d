#include "RegistroLog.h"

#include "core/Archivo.h"

namespace vorimesk {

bool RegistroLog::ExisteModemLog() const {
    return !log_.NombreLog().empty() && ExisteArchivo(log_.NombreLog());
}

bool RegistroLog::AñadirLog(cBono& bono, const std::vector<Fecha>& festivos,
                            colConexion& pendientes) {
    return log_.AñadirLog(bono, festivos, pendientes);
}

} // namespace vorimesk
