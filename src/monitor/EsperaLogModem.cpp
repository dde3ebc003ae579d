#include "EsperaLogModem.h"

#include "core/Errores.h"

namespace vorimesk {

EsperaLogModem::EsperaLogModem(std::int64_t segundosMaximos) : segundosMaximos_(segundosMaximos) {}

void EsperaLogModem::Empezar(Fecha ahora) {
    esperando_ = true;
    desde_ = ahora;
}

EsperaLogModem::Resultado EsperaLogModem::Intentar(Fecha ahora, RegistroMonitor& registro,
                                                   cBono& bono, const std::vector<Fecha>& festivos,
                                                   colConexion& pendientes) {
    Resultado r;
    if (!esperando_) {
        return r;
    }
    try {
        for (int i = 0; i < kIntentosPorTick && registro.ExisteModemLog(); ++i) {
            const int antes = registro.Count();
            const bool leido = registro.AñadirLog(bono, festivos, pendientes);
            r.Añadidas += registro.Count() - antes;
            if (!leido) {
                break; // the last session is still open: wait for a later tick
            }
        }
        if (!registro.ExisteModemLog()) {
            r.Terminada = true;
        } else if (ahora.Segundos() - desde_.Segundos() >= segundosMaximos_) {
            r.Abandonada = true;
        }
    } catch (const vorimesk::Error& e) {
        r.Error = e.what();
    }
    if (r.Terminada || r.Abandonada || !r.Error.empty()) {
        esperando_ = false;
    }
    return r;
}

} // namespace vorimesk
