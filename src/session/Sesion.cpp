#include "Sesion.h"

#include "core/Archivo.h"
#include "core/CerrojoArchivo.h"
#include "core/ErrorFormato.h"
#include "settings/ArchivoVariables.h"
#include "tariff/AjustesTarifa.h"
#include "tariff/PeriodoEnCurso.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace vorimesk {

ErrorAjustes::ErrorAjustes(fs::path ruta, std::string motivo)
    : Error("El archivo de opciones \"" + ruta.string() + "\" esta dañado: " + motivo),
      ruta_(std::move(ruta)), motivo_(std::move(motivo)) {}

Sesion::Sesion(fs::path carpeta, const Reloj& reloj) : datos_(std::move(carpeta), reloj) {}

fs::path Sesion::RutaAjustes() const {
    return datos_.Carpeta / std::string(Settings::kNombreArchivo);
}

std::vector<Fecha> Sesion::Festivos() const {
    return FestivosDeAjustes(datos_.Ajustes);
}

void Sesion::CargarListas() {
    CargarBono(datos_.Ajustes, datos_.Bono);
    CargarConexiones(datos_.Ajustes, datos_.Conexiones);
}

Sesion::LecturaAjustes Sesion::LeerAjustes() {
    LecturaVariables lectura = LeerVariables(RutaAjustes());
    datos_.Ajustes = std::move(lectura.valores);
    datos_.RecalculoPendiente = false;
    LecturaAjustes resultado;
    if (lectura.dañado) {
        resultado.dañado = lectura.aviso;
    }
    try {
        CargarListas();
    } catch (const Error& error) {
        // Written back from what could be read, the file would lose the
        // rest: it is left alone for this run.
        ajustesGuardables_ = false;
        datos_.Bono.Limpiar();
        resultado.listasIlegibles = std::string("Los bonos o las conexiones de ") +
                                    std::string(Settings::kNombreArchivo) +
                                    " no se pueden leer: " + error.what() +
                                    "\nLas opciones no se guardaran al salir, para no perder "
                                    "el archivo.";
    }
    return resultado;
}

void Sesion::LeerAjustesEstrictos() {
    const fs::path ruta = RutaAjustes();
    datos_.Ajustes = ValoresPorDefecto();
    std::error_code ec;
    if (fs::exists(ruta, ec)) {
        try {
            datos_.Ajustes = LeerTextoVariables(LeerArchivo(ruta));
        } catch (const ErrorFormato& e) {
            throw ErrorAjustes(ruta, e.Linea() > 0
                                         ? "linea " + std::to_string(e.Linea()) + ", " + e.Detalle()
                                         : e.Detalle());
        }
    }
    try {
        CargarListas();
    } catch (const Error& e) {
        ajustesGuardables_ = false;
        throw ErrorAjustes(ruta, std::string("un bono no es valido (") + e.what() + ")");
    }
}

void Sesion::CargarRegistro() {
    datos_.Registro.CopiaUnaVezPorSesion();
    datos_.Registro.CargarLog();
    registroLeido_ = true;
}

void Sesion::CalcularPeriodo() {
    const Fecha hoy = datos_.RelojPrograma.Hoy();
    const Fecha primera = datos_.Registro.Count() > 0 ? datos_.Registro.Dia(0) : hoy;
    const PeriodoFacturacion p =
        PeriodoEnCurso(datos_.Bono.DiaFactura(), datos_.Bono.perFactura(), primera, hoy);
    datos_.InicioPeriodo = p.inicio;
    datos_.FinPeriodo = p.fin;
}

void Sesion::LlamadasAnotadas() {
    // Written even over a register that could not be read: the modem log
    // the calls came from is gone already, and the old file stays as the
    // backup copy.
    // The monitor's register skips a save the journal's taking made already.
    registroMonitor_.SalvarLog();
}

bool Sesion::AñadirModemLog(const std::filesystem::path& ruta, colConexion& pendientes) {
    Log& log = datos_.Registro;
    log.NombreLog(ruta.string());
    const std::string leido = ExisteArchivo(ruta) ? LeerArchivo(ruta) : std::string();
    const bool añadido = log.AñadirLog(datos_.Bono, Festivos(), pendientes);
    try {
        LlamadasAnotadas();
    } catch (const Error&) {
        if (añadido) {
            const auto cerrojo = CerrojoArchivo::Intentar(RutaCerrojo(ruta));
            const std::string nuevo = ExisteArchivo(ruta) ? LeerArchivo(ruta) : std::string();
            EscribirArchivoSeguro(ruta, leido + nuevo);
        }
        throw;
    }
    return añadido;
}

TomaDiario::Resultado Sesion::TomarDiario(std::shared_ptr<TomaDiario> diario) {
    registroMonitor_.UsarDiario(datos_.Ajustes, std::move(diario));
    return registroMonitor_.TomarDiario(datos_.Bono, datos_.Conexiones);
}

void Sesion::RegistroCambiado() {
    registroSucio_ = true;
    GuardarRegistro();
}

RecalculoLog Sesion::Recalcular() {
    RecalculoLog r = datos_.Registro.ModificarLog(datos_.Bono, Festivos());
    registroSucio_ = true;
    GuardarRegistro();
    return r;
}

void Sesion::GuardarRegistro() {
    if (registroLeido_ && registroSucio_) {
        datos_.Registro.SalvarLog();
        registroSucio_ = false;
    }
}

void Sesion::Guardar() {
    GuardarRegistro();
    GuardarAjustes();
}

void Sesion::TrasSucesos(const std::vector<SucesoMonitor>& sucesos) {
    if (std::any_of(sucesos.begin(), sucesos.end(), PideGuardarSesion)) {
        GuardarAjustes();
    }
}

void Sesion::GuardarAjustes() {
    if (!ajustesGuardables_) {
        return;
    }
    GuardarBono(datos_.Bono, datos_.Ajustes);
    GuardarConexiones(datos_.Conexiones, datos_.Ajustes);
    GuardarVariables(RutaAjustes(), datos_.Ajustes);
}

bool Sesion::GuardarBonoSiCambio() {
    if (!ajustesGuardables_) {
        return false;
    }
    // Compared as the ledger writes itself, so a time left written "10:0:0"
    // by hand does not count as a change.
    cBono leido;
    CargarBono(datos_.Ajustes, leido);
    Settings antes = datos_.Ajustes;
    GuardarBono(leido, antes);
    Settings despues = datos_.Ajustes;
    GuardarBono(datos_.Bono, despues);
    if (despues.Bonos == antes.Bonos && despues.DiaFactura == antes.DiaFactura &&
        despues.perFactura == antes.perFactura) {
        return false;
    }
    GuardarVariables(RutaAjustes(), despues);
    datos_.Ajustes = std::move(despues);
    return true;
}

} // namespace vorimesk
