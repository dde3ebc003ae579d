#include "RegistroLlamada.h"

#include "core/CampoFijo.h"

namespace vorimesk {
namespace {

// Offsets of the fields inside a record.
constexpr std::size_t kDia = 0;
constexpr std::size_t kHora = 8;
constexpr std::size_t kDuracion = 16;
constexpr std::size_t kImporte = 24;
constexpr std::size_t kTipo = 32;
constexpr std::size_t kTarifa = 33;
constexpr std::size_t kConexion = 49;
constexpr std::size_t kReservada = 65;
constexpr std::size_t kBono = 75;
constexpr std::size_t kRecibidos = 77;
constexpr std::size_t kEnviados = 81;
static_assert(kEnviados + 4 == RegistroLlamada::kTamaño);

} // namespace

RegistroLlamada RegistroLlamada::Crear(Fecha dia, Fecha hora, std::string_view duracion,
                                       std::string_view importe, std::uint8_t tipo,
                                       std::string_view tarifa, std::string_view conexion,
                                       std::string_view reservada, std::int16_t bono,
                                       std::int32_t recibidos, std::int32_t enviados) {
    RegistroLlamada r;
    r.Dia = dia.AOle();
    r.Hora = hora.AOle();
    r.Duracion.Poner(duracion);
    r.importe.Poner(importe);
    r.Tipo = tipo;
    r.Tarifa.Poner(tarifa);
    r.Conexion.Poner(conexion);
    r.Reservada.Poner(reservada);
    r.Bono = bono;
    r.Recibidos = recibidos;
    r.Enviados = enviados;
    return r;
}

void RegistroLlamada::Codificar(char* d) const {
    EscribirDoble(d + kDia, Dia);
    EscribirDoble(d + kHora, Hora);
    Duracion.Escribir(d + kDuracion);
    importe.Escribir(d + kImporte);
    d[kTipo] = static_cast<char>(Tipo);
    Tarifa.Escribir(d + kTarifa);
    Conexion.Escribir(d + kConexion);
    Reservada.Escribir(d + kReservada);
    EscribirEntero16(d + kBono, Bono);
    EscribirEntero32(d + kRecibidos, Recibidos);
    EscribirEntero32(d + kEnviados, Enviados);
}

RegistroLlamada RegistroLlamada::Decodificar(const char* o) {
    RegistroLlamada r;
    r.Dia = LeerDoble(o + kDia);
    r.Hora = LeerDoble(o + kHora);
    r.Duracion.Leer(o + kDuracion);
    r.importe.Leer(o + kImporte);
    r.Tipo = static_cast<std::uint8_t>(o[kTipo]);
    r.Tarifa.Leer(o + kTarifa);
    r.Conexion.Leer(o + kConexion);
    r.Reservada.Leer(o + kReservada);
    r.Bono = LeerEntero16(o + kBono);
    r.Recibidos = LeerEntero32(o + kRecibidos);
    r.Enviados = LeerEntero32(o + kEnviados);
    return r;
}

int BandaDeTipo(std::uint8_t tipo) {
    return tipo == 255 ? -1 : tipo;
}

std::uint8_t TipoDeBanda(int banda) {
    return static_cast<std::uint8_t>(banda & 0xFF);
}

} // namespace vorimesk
