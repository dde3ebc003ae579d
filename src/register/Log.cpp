#include "Log.h"

#include "CopiaSeguridad.h"
#include "FormatoRegistro.h"
#include "Importe.h"
#include "LectorModemLog.h"
#include "LogModem.h"
#include "PrecioRegistro.h"
#include "VolumenRegistro.h"
#include "core/Archivo.h"
#include "core/CerrojoArchivo.h"
#include "core/Errores.h"
#include "core/Lineas.h"
#include "core/cTiempo.h"
#include "tariff/PlanesJson.h"
#include "tariff/cLlamada.h"

#include <algorithm>
#include <optional>

namespace fs = std::filesystem;

namespace vorimesk {

Log::Log(fs::path carpetaDatos) : carpeta_(std::move(carpetaDatos)), propio_(carpeta_) {}

std::string Log::Conectando() const {
    return std::string(kModemMarcando);
}
std::string Log::Conectado() const {
    return std::string(kModemConectado);
}
std::string Log::Desconectando() const {
    return std::string(kModemColgando);
}
std::string Log::Desconectado() const {
    return std::string(kModemCerrado);
}

const RegistroLlamada& Log::En(int i) const {
    static const RegistroLlamada kVacio;
    if (i < 0 || i > Count()) {
        throw ErrorIndice("llamada " + std::to_string(i) + " de " + std::to_string(Count()));
    }
    return i == Count() ? kVacio : registros_[static_cast<std::size_t>(i)];
}

Fecha Log::Dia(int i) const {
    return Fecha::DesdeOle(En(i).Dia);
}
Fecha Log::Hora(int i) const {
    return Fecha::DesdeOle(En(i).Hora);
}
std::string Log::Duracion(int i) const {
    return En(i).Duracion.Texto();
}
std::string Log::importe(int i) const {
    return En(i).importe.Recortado();
}
int Log::RenombrarTarifa(std::string_view viejo, std::string_view nuevo) {
    int cambiadas = 0;
    for (RegistroLlamada& r : registros_) {
        if (r.Tarifa.Recortado() == viejo) {
            r.Tarifa.Poner(nuevo);
            ++cambiadas;
        }
    }
    return cambiadas;
}

std::string Log::Tarifa(int i) const {
    return En(i).Tarifa.Recortado();
}
std::string Log::Conexion(int i) const {
    return En(i).Conexion.Recortado();
}
std::string Log::Reservada(int i) const {
    return En(i).Reservada.Recortado();
}
std::uint8_t Log::Tipo(int i) const {
    return En(i).Tipo;
}
int Log::Banda(int i) const {
    return BandaDeTipo(En(i).Tipo);
}
std::int16_t Log::Bono(int i) const {
    return En(i).Bono;
}
std::int32_t Log::Recibidos(int i) const {
    return En(i).Recibidos;
}
std::int32_t Log::Enviados(int i) const {
    return En(i).Enviados;
}
const RegistroLlamada& Log::Registro(int i) const {
    return En(i);
}

std::string Log::TotalDuracion() const {
    cTiempo total;
    for (const RegistroLlamada& r : registros_) {
        total.Sumar(r.Duracion.Texto());
    }
    return total.Valor();
}

fs::path Log::RutaRegistro() {
    if (nombreSaveLog_.empty()) {
        nombreSaveLog_ = (carpeta_ / kNombreArchivo).string();
    }
    return nombreSaveLog_;
}

void Log::CargarLog() {
    const fs::path ruta = RutaRegistro();
    std::error_code ec;
    if (!fs::exists(ruta, ec)) {
        EscribirArchivoSeguro(ruta, {}, kSoloUsuario);
        registros_.clear();
        return;
    }
    registros_ = LeerRegistros(LeerArchivo(ruta));
}

void Log::SalvarLog() {
    const fs::path ruta = RutaRegistro();
    const std::string bytes = EscribirRegistros(registros_);
    // Once per session the backup keeps the register as the session found
    // it; otherwise every save leaves the one before.
    const bool copiar = !copiaUnaVez_ || !copiaHecha_;
    std::error_code ec;
    const bool existia = copiar ? HacerCopiaSeguridad(ruta) : fs::exists(ruta, ec);
    copiaHecha_ = true;
    if (registros_.empty()) {
        if (existia) {
            BorrarArchivo(ruta);
        }
        return;
    }
    // Written beside and renamed over the old file: a crash leaves either
    // the old register or the new one.
    EscribirArchivoSeguro(ruta, bytes, kSoloUsuario);
}

void Log::EliminarLog() {
    if (nombreSaveLog_.empty()) {
        return;
    }
    RenombrarArchivo(nombreSaveLog_, NombreCopiaSeguridad(nombreSaveLog_, "BAK"));
    BorrarArchivo(nombreSaveLog_);
}

void Log::BorrarItem(int i) {
    if (i < 0 || i >= Count()) {
        return;
    }
    registros_.erase(registros_.begin() + i);
}

void Log::AñadirItem(Fecha dia, Fecha hora, std::string_view duracion, std::string_view importe,
                     std::uint8_t tipo, std::string_view tarifa, std::string_view conexion,
                     std::string_view reservada, std::int16_t bono, std::int32_t recibidos,
                     std::int32_t enviados) {
    AñadirItem(RegistroLlamada::Crear(dia, hora, duracion, importe, tipo, tarifa, conexion,
                                      reservada, bono, recibidos, enviados));
}

void Log::AñadirItem(const RegistroLlamada& registro) {
    if (registros_.size() >= static_cast<std::size_t>(kMaximoLlamadas)) {
        throw ErrorDesbordamiento("el registro no admite mas de " +
                                  std::to_string(kMaximoLlamadas) + " llamadas");
    }
    registros_.push_back(registro);
}

Fecha Log::DateConexion() const {
    if (nombreLog_.empty()) {
        throw Error(std::string(kMensajeSinOrigenLog));
    }
    if (!ExisteArchivo(nombreLog_)) {
        return Fecha::DesdeOle(1.0);
    }
    return UltimoInicioDeSesion(LeerArchivo(nombreLog_));
}

namespace {

// Every run prices with this tariff when the call names none.
constexpr const char* kTarifaPorDefecto = "Metropolitana";

cLlamada LibroDeTarifas(const LibroTarifas& libros, const std::vector<Fecha>& festivos) {
    cLlamada libro = libros.Actual();
    libro.Festivos(festivos);
    libro.NombreTarifa(kTarifaPorDefecto);
    return libro;
}

// The calls from `desde` on, just taken from the modem log, pay their
// volume under the data plans too, after the calls already there. A plan
// file that does not read leaves them on their time cost: a finished call is
// never lost over it, and re-pricing reports the file.
void SumarVolumen(std::vector<RegistroLlamada>& registros, std::size_t desde,
                  const fs::path& carpeta, const std::vector<Fecha>& festivos, const cBono& bono) {
    std::vector<float> volumen;
    try {
        volumen = VolumenDeLlamadas(carpeta, festivos, bono, registros);
    } catch (const ErrorPlanes&) {
        return;
    }
    for (std::size_t i = desde; i < volumen.size(); ++i) {
        if (volumen[i] != 0.0f) {
            RegistroLlamada& r = registros[i];
            r.importe.Poner(TextoImporte(LeerImporte(r.importe.Recortado()) + volumen[i]));
        }
    }
}

} // namespace

bool Log::LeerModemLog(cBono& bono, const std::vector<Fecha>& festivos,
                       const colConexion& pendientes) {
    if (nombreLog_.empty()) {
        throw Error(std::string(kMensajeSinOrigenLog));
    }
    if (!ExisteArchivo(nombreLog_)) {
        return false;
    }
    const std::string texto = LeerArchivo(nombreLog_);
    if (texto.empty()) {
        return false;
    }
    const std::size_t entrada = registros_.size();
    const cBono bonoEntrada(bono);
    // The calls of this run and the bundle time they used go together.
    auto deshacer = [&] {
        registros_.resize(entrada);
        bono.Copiar(bonoEntrada);
    };
    cLlamada libro = LibroDeTarifas(Libro(), festivos);
    LectorModemLog lector(libro, bono, pendientes);
    try {
        for (const std::string_view linea : DividirLineas(texto)) {
            if (const auto llamada = lector.Linea(linea)) {
                AñadirItem(*llamada);
            }
        }
    } catch (...) {
        deshacer();
        throw;
    }
    // The last session is unfinished: its calls come in a later run, which
    // reads the whole log again.
    if (!lector.SesionTerminada()) {
        deshacer();
    }
    return lector.SesionCerrada();
}

bool Log::AñadirLog(cBono& bono, const std::vector<Fecha>& festivos, colConexion& pendientes) {
    // No lock file is left beside a log that does not exist.
    const bool hayLog = !nombreLog_.empty() && ExisteArchivo(nombreLog_);
    const std::optional<CerrojoArchivo> cerrojo =
        hayLog ? CerrojoArchivo::Intentar(RutaCerrojo(nombreLog_)) : std::nullopt;
    const std::size_t entrada = registros_.size();
    const cBono bonoEntrada(bono);
    if (!LeerModemLog(bono, festivos, pendientes)) {
        return false;
    }
    SumarVolumen(registros_, entrada, carpeta_, festivos, bono);
    try {
        BorrarArchivo(nombreLog_);
    } catch (...) {
        // A log that stays must not give its calls twice.
        registros_.resize(entrada);
        bono.Copiar(bonoEntrada);
        throw;
    }
    while (pendientes.Count() != 0) {
        pendientes.Remove(1);
    }
    return true;
}

bool Log::CrearLog(cBono& bono, const std::vector<Fecha>& festivos, colConexion& pendientes) {
    Vaciar();
    return AñadirLog(bono, festivos, pendientes);
}

std::string AvisoTarifasDesconocidas(const RecalculoLog& r) {
    if (r.LlamadasSinTarifa == 0) {
        return {};
    }
    std::string nombres;
    for (const std::string& t : r.TarifasDesconocidas) {
        nombres += (nombres.empty() ? "\"" : ", \"") + t + "\"";
    }
    const bool una = r.LlamadasSinTarifa == 1;
    return std::to_string(r.LlamadasSinTarifa) + (una ? " llamada tiene" : " llamadas tienen") +
           " una tarifa que no esta en el libro de tarifas (" + nombres +
           "): " + (una ? "conserva su importe anterior." : "conservan su importe anterior.");
}

RecalculoLog Log::ModificarLog(cBono& bono, const std::vector<Fecha>& festivos) {
    RecalculoLog resultado;
    PrecioRegistro precio(Libro().Actual(), festivos, bono);
    const std::vector<float> volumen = VolumenDeLlamadas(carpeta_, festivos, bono, registros_);
    // Only these fields change: they are worked out aside and put in place
    // once every call is priced, so a failure leaves every call as it was.
    struct Precio {
        CampoTexto<8> importe;
        std::uint8_t Tipo;
        std::int16_t Bono;
    };
    std::vector<Precio> precios;
    precios.reserve(registros_.size());
    for (std::size_t i = 0; i < registros_.size(); ++i) {
        RegistroLlamada r = registros_[i];
        if (!precio.Preciar(r, {}, volumen.empty() ? 0.0f : volumen[i])) {
            // The book's results are another call's: this one keeps its own.
            std::string nombre(r.Tarifa.Recortado());
            if (nombre.empty()) {
                nombre = precio.TarifaPorDefecto();
            }
            auto& desconocidas = resultado.TarifasDesconocidas;
            if (std::find(desconocidas.begin(), desconocidas.end(), nombre) == desconocidas.end()) {
                desconocidas.push_back(nombre);
            }
            ++resultado.LlamadasSinTarifa;
        }
        precios.push_back({r.importe, r.Tipo, r.Bono});
    }
    for (std::size_t i = 0; i < registros_.size(); ++i) {
        registros_[i].importe = precios[i].importe;
        registros_[i].Tipo = precios[i].Tipo;
        registros_[i].Bono = precios[i].Bono;
    }
    bono.Copiar(precio.Bono());
    return resultado;
}

} // namespace vorimesk
