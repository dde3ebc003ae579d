#pragma once
// Register file records put together byte by byte from the record layout,
// without the code under test, so the files it writes can be compared; and
// the one way tests fill a register with calls.

#include "register/Log.h"

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>

namespace vorimesk::prueba {

struct CamposAMano {
    double dia = 36479.0; // 15/11/1999
    double hora = 0.5;    // 12:00:00
    std::string duracion = "00:05:00";
    std::string importe = "125";
    std::uint8_t tipo = 0;
    std::string tarifa = "Metropolitana";
    std::string conexion = "Casa";
    std::string reservada = "";
    std::int16_t bono = 0;
    std::int32_t recibidos = 120;
    std::int32_t enviados = 30;
};

inline void PonerLE(std::string& r, std::size_t en, std::uint64_t v, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        r[en + i] = static_cast<char>((v >> (8 * i)) & 0xFF);
    }
}

// `texto` is already single-byte; it is padded with blanks, never cut.
inline void PonerTexto(std::string& r, std::size_t en, const std::string& texto, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
        r[en + i] = i < texto.size() ? texto[i] : ' ';
    }
}

inline std::string RegistroAMano(const CamposAMano& c) {
    std::string r(85, '\0');
    std::uint64_t bits = 0;
    std::memcpy(&bits, &c.dia, 8);
    PonerLE(r, 0, bits, 8);
    std::memcpy(&bits, &c.hora, 8);
    PonerLE(r, 8, bits, 8);
    PonerTexto(r, 16, c.duracion, 8);
    PonerTexto(r, 24, c.importe, 8);
    r[32] = static_cast<char>(c.tipo);
    PonerTexto(r, 33, c.tarifa, 16);
    PonerTexto(r, 49, c.conexion, 16);
    PonerTexto(r, 65, c.reservada, 10);
    PonerLE(r, 75, static_cast<std::uint16_t>(c.bono), 2);
    PonerLE(r, 77, static_cast<std::uint32_t>(c.recibidos), 4);
    PonerLE(r, 81, static_cast<std::uint32_t>(c.enviados), 4);
    return r;
}

// Appends calls to a register, each as the file would hold it.
inline void AñadirLlamadas(Log& registro, std::initializer_list<CamposAMano> llamadas) {
    for (const CamposAMano& c : llamadas) {
        registro.AñadirItem(RegistroLlamada::Decodificar(RegistroAMano(c).data()));
    }
}

} // namespace vorimesk::prueba
