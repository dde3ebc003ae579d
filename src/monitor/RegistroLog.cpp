#include "RegistroLog.h"

#include "LlamadaVista.h"
#include "core/Archivo.h"
#include "core/Errores.h"
#include "core/Lineas.h"
#include "register/LogModem.h"
#include "tariff/colConexion.h"

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
    if (!diario_) {
        return log_.AñadirLog(bono, festivos, pendientes);
    }
    const TomaDiario::Resultado r = TomarDiario(bono, pendientes);
    if (r.Añadidas > 0 || r.Corregidas > 0) {
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

TomaDiario::Resultado RegistroLog::TomarDiario(cBono& bono, colConexion& pendientes) {
    if (!diario_) {
        return {};
    }
    TomaDiario::Resultado r = diario_->Tomar(log_, *ajustes_, bono, pendientes);
    corregidas_ += r.Corregidas;
    entradas_.insert(entradas_.end(), r.Entradas.begin(), r.Entradas.end());
    return r;
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
    if (diario_ && diario_->HaySesiones()) {
        esperada_ = inicio;
    }
}

LlamadaAnotada RegistroLog::Anotada(int indice) const {
    return {log_.Dia(indice).MasSegundos(log_.Hora(indice).SegundosDelDia()),
            log_.Conexion(indice)};
}

SesionEnLog RegistroLog::EstadoEnLog(Fecha inicio) const {
    if (!ExisteModemLog()) {
        return SesionEnLog::Ausente;
    }
    SesionEnLog estado = SesionEnLog::Ausente;
    const std::string texto = LeerArchivo(log_.NombreLog());
    for (const std::string_view linea : DividirLineas(texto)) {
        if (linea.find(kModemEnUso) != std::string_view::npos) {
            if (estado != SesionEnLog::Ausente) {
                break; // the next session began: that one never closed
            }
            try {
                if (FechaHoraDeLinea(linea) == inicio) {
                    estado = SesionEnLog::Abierta;
                }
            } catch (const Error&) {
                // A line the reader cannot date is the reader's to report.
            }
        } else if (estado == SesionEnLog::Abierta &&
                   linea.find(kModemCerrado) != std::string_view::npos) {
            return SesionEnLog::Cerrada;
        }
    }
    return estado;
}

int RegistroLog::AnotarVista(const LlamadaVista& vista, const std::filesystem::path& rutaLog,
                             cBono& bono, const std::vector<Fecha>& festivos) {
    EscribirArchivoSeguro(rutaLog, vista.TextoModemLog(), kSoloUsuario);
    colConexion propia;
    propia.Add(vista.Inicio, vista.Tarifa, vista.Descuento, vista.Entrada);
    // The reader reads the register's modem log: it is pointed at this one
    // for the one run and back whatever happens.
    const std::string delSistema = log_.NombreLog();
    log_.NombreLog(rutaLog.string());
    const int antes = log_.Count();
    try {
        log_.AñadirLog(bono, festivos, propia);
    } catch (...) {
        log_.NombreLog(delSistema);
        throw;
    }
    log_.NombreLog(delSistema);
    const int anotadas = log_.Count() - antes;
    if (anotadas > 0 && diario_ && !vista.Interfaz.empty()) {
        // Its session may come after all: it will correct this call. The
        // call stands without the note: written again it would be twice.
        try {
            diario_->Anotada(vista);
        } catch (const Error&) {
        }
    }
    return anotadas;
}

bool RegistroLog::SesionPuedeLlegar(const LlamadaVista& vista) const {
    if (!vista.ConDiario) {
        return false;
    }
    if (!diario_) {
        return true; // the modem log alone: waited for a bounded time
    }
    return diario_->PuedeLlegar(vista.Interfaz, vista.Pid);
}

} // namespace vorimesk
