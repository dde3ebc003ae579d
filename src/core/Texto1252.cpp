#include "Texto1252.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vorimesk {
namespace {

// Code points of bytes 0x80..0x9F; the undefined ones keep their own value.
constexpr std::array<char32_t, 32> kAltos = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AñadirUtf8(std::string& s, char32_t c) {
    if (c < 0x80) {
        s += static_cast<char>(c);
    } else if (c < 0x800) {
        s += static_cast<char>(0xC0 | (c >> 6));
        s += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        s += static_cast<char>(0xE0 | (c >> 12));
        s += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        s += static_cast<char>(0x80 | (c & 0x3F));
    }
}

char ByteDe(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
        return static_cast<char>(c);
    }
    for (std::size_t i = 0; i < kAltos.size(); ++i) {
        if (kAltos[i] == c) {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}

// Decodes one UTF-8 sequence at s[i]; returns its length, 0 when malformed.
std::size_t Decodificar(std::string_view s, std::size_t i, char32_t& c) {
    const auto b = static_cast<unsigned char>(s[i]);
    std::size_t n = 0;
    if (b < 0x80) {
        c = b;
        return 1;
    }
    if ((b & 0xE0) == 0xC0) {
        c = b & 0x1F;
        n = 2;
    } else if ((b & 0xF0) == 0xE0) {
        c = b & 0x0F;
        n = 3;
    } else if ((b & 0xF8) == 0xF0) {
        c = b & 0x07;
        n = 4;
    } else {
        return 0;
    }
    if (i + n > s.size()) {
        return 0;
    }
    for (std::size_t k = 1; k < n; ++k) {
        const auto cont = static_cast<unsigned char>(s[i + k]);
        if ((cont & 0xC0) != 0x80) {
            return 0;
        }
        c = (c << 6) | (cont & 0x3F);
    }
    const char32_t minimo[] = {0, 0, 0x80, 0x800, 0x10000};
    return c < minimo[n] ? 0 : n;
}

} // namespace

std::string De1252(std::string_view bytes) {
    // Plain ASCII, as nearly every field is, is the same in UTF-8.
    if (std::all_of(bytes.begin(), bytes.end(),
                    [](char ch) { return static_cast<unsigned char>(ch) < 0x80; })) {
        return std::string(bytes);
    }
    std::string s;
    s.reserve(bytes.size());
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        AñadirUtf8(s, b >= 0x80 && b < 0xA0 ? kAltos[b - 0x80] : char32_t{b});
    }
    return s;
}

std::string A1252(std::string_view utf8) {
    std::string s;
    s.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size();) {
        char32_t c = 0;
        const std::size_t n = Decodificar(utf8, i, c);
        if (n == 0) {
            s += utf8[i];
            ++i;
            continue;
        }
        s += ByteDe(c);
        i += n;
    }
    return s;
}

std::string Recortar(std::string_view t) {
    const auto inicio = t.find_first_not_of(" ");
    if (inicio == std::string_view::npos) {
        return {};
    }
    const auto fin = t.find_last_not_of(" ");
    return std::string(t.substr(inicio, fin - inicio + 1));
}

} // namespace vorimesk
