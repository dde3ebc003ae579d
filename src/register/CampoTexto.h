#pragma once
// A fixed-width text field of the register file, held as the file's own
// Windows-1252 bytes so that loading and saving copy bytes and nothing else;
// the text is converted to UTF-8 only when it is read.

#include "core/CampoFijo.h"
#include "core/Texto1252.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

namespace vorimesk {

template <std::size_t N> class CampoTexto {
public:
    static constexpr std::size_t kAncho = N;

    // A field never filled holds blanks, as an empty text is stored.
    CampoTexto() { bytes_.fill(' '); }

    // The text cut or blank-padded to the width.
    void Poner(std::string_view utf8) { EscribirCampo(bytes_.data(), N, utf8); }
    // The whole field as UTF-8, blanks kept.
    std::string Texto() const { return LeerCampo(bytes_.data(), N); }
    // Without the blanks around it.
    std::string Recortado() const { return Recortar(Texto()); }

    void Leer(const char* origen) { std::memcpy(bytes_.data(), origen, N); }
    void Escribir(char* destino) const { std::memcpy(destino, bytes_.data(), N); }
    const std::array<char, N>& Bytes() const { return bytes_; }

    bool operator==(const CampoTexto&) const = default;

private:
    std::array<char, N> bytes_;
};

} // namespace vorimesk
