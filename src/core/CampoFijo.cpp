#include "CampoFijo.h"

#include "Texto1252.h"

#include <bit>
#include <cstring>

namespace vorimesk {
namespace {

template <typename T> void EscribirLE(char* destino, T v) {
    using U = std::make_unsigned_t<T>;
    auto u = static_cast<U>(v);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        destino[i] = static_cast<char>(u & 0xFF);
        u = static_cast<U>(u >> 8);
    }
}

template <typename T> T LeerLE(const char* origen) {
    using U = std::make_unsigned_t<T>;
    U u = 0;
    for (std::size_t i = sizeof(T); i-- > 0;) {
        u = static_cast<U>((u << 8) | static_cast<unsigned char>(origen[i]));
    }
    return static_cast<T>(u);
}

} // namespace

void EscribirCampo(char* destino, std::size_t ancho, std::string_view utf8) {
    const std::string bytes = A1252(utf8);
    const std::size_t n = bytes.size() < ancho ? bytes.size() : ancho;
    std::memcpy(destino, bytes.data(), n);
    std::memset(destino + n, ' ', ancho - n);
}

std::string LeerCampo(const char* origen, std::size_t ancho) {
    return De1252(std::string_view(origen, ancho));
}

std::string LeerCampoRecortado(const char* origen, std::size_t ancho) {
    return Recortar(LeerCampo(origen, ancho));
}

void EscribirDoble(char* destino, double v) {
    EscribirLE(destino, std::bit_cast<std::uint64_t>(v));
}

double LeerDoble(const char* origen) { return std::bit_cast<double>(LeerLE<std::uint64_t>(origen)); }

void EscribirEntero16(char* destino, std::int16_t v) { EscribirLE(destino, v); }
std::int16_t LeerEntero16(const char* origen) { return LeerLE<std::int16_t>(origen); }
void EscribirEntero32(char* destino, std::int32_t v) { EscribirLE(destino, v); }
std::int32_t LeerEntero32(const char* origen) { return LeerLE<std::int32_t>(origen); }

} // namespace vorimesk
