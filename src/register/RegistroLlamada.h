#pragma once
// One finished call as the register file "RegDat.log" stores it: 85 bytes,
// little-endian, no padding, in the order of the fields below.

#include "CampoTexto.h"
#include "core/Fecha.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vorimesk {

struct RegistroLlamada {
    static constexpr std::size_t kTamaño = 85;

    // The date values exactly as the file holds them (days since 30 Dec
    // 1899), so a record that is loaded and saved again keeps every bit.
    double Dia = 0.0;  // the call's date, time of day 0
    double Hora = 0.0; // the start time, date part 0
    CampoTexto<8> Duracion;
    CampoTexto<8> importe;
    std::uint8_t Tipo = 0; // the band; -1 is kept as 255 (see BandaDeTipo)
    CampoTexto<16> Tarifa;
    CampoTexto<16> Conexion;
    CampoTexto<10> Reservada;
    std::int16_t Bono = 0; // -1 charged to a bono, 0 otherwise
    std::int32_t Recibidos = 0;
    std::int32_t Enviados = 0;

    // Builds a record the way AñadirItem fills one: each text cut or
    // space-padded to its width.
    static RegistroLlamada Crear(Fecha dia, Fecha hora, std::string_view duracion,
                                 std::string_view importe, std::uint8_t tipo,
                                 std::string_view tarifa, std::string_view conexion,
                                 std::string_view reservada, std::int16_t bono,
                                 std::int32_t recibidos, std::int32_t enviados);

    void Codificar(char* destino) const;
    static RegistroLlamada Decodificar(const char* origen);

    bool operator==(const RegistroLlamada&) const = default;
};

// The band codes of the pricing are 0, 1 and -1 (reduced band empty); the
// byte of the file holds -1 as 255. These two convert between them; every
// other byte value is its own band.
int BandaDeTipo(std::uint8_t tipo);
std::uint8_t TipoDeBanda(int banda);

} // namespace vorimesk
