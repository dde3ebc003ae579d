#include "Log.h"

#include "CopiaSeguridad.h"
#include "FormatoRegistro.h"
#include "LogModem.h"
#include "core/Archivo.h"
#include "core/Errores.h"
#include "core/cTiempo.h"

namespace fs = std::filesystem;

namespace vorimesk {

Log::Log(fs::path carpetaDatos) : carpeta_(std::move(carpetaDatos)) {}

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
    const bool existia = HacerCopiaSeguridad(ruta);
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

} // namespace vorimesk
