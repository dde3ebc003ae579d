#pragma once
// One tariff of the book exactly as "Tarifas.Dat" holds it: 168 bytes of
// fixed-width single-byte text and 8-byte OLE dates. The bytes are kept as
// read, so a book saved unchanged writes back the very same file, whatever
// odd values an older editor left in it.

#include "core/Fecha.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vorimesk {

// What `Valor` hands out: nothing for an unknown key, text for the text keys,
// the stored date value for the time keys.
using ValorTarifa = std::variant<std::monostate, std::string, Fecha>;

class RegistroTarifa {
public:
    static constexpr std::size_t kTamaño = 168;
    // Day types and bands, in the order their fields follow each other.
    static constexpr int kSemana = 0, kSabado = 1, kFestivo = 2;
    static constexpr int kNormal = 0, kReducida = 1;

    // A slot never written holds zero bytes: its name starts with code 0,
    // which is also what ends a book on loading.
    RegistroTarifa() { bytes_.fill(0); }
    // The first 168 bytes; missing ones read as zero.
    static RegistroTarifa DesdeBytes(std::string_view bytes);
    std::string_view Bytes() const { return {bytes_.data(), bytes_.size()}; }
    unsigned char PrimerByte() const { return static_cast<unsigned char>(bytes_[0]); }

    // The 21 keys in file order ("Nombre", "Conexion.Importe", ...).
    static const std::vector<std::string>& Claves();
    static bool EsClaveDeHora(std::string_view clave);

    ValorTarifa Valor(std::string_view clave) const;
    // Any key as text: text fields trimmed, times as hh:mm:ss of their time
    // of day; empty for an unknown key.
    std::string Texto(std::string_view clave) const;
    // Unknown keys are ignored. Text keys take the text cut or padded to the
    // field; time keys read it as a date and time, a date or a clock time
    // (ErrorTipo when it is none of them).
    void Valor(std::string_view clave, std::string_view texto);
    void Valor(std::string_view clave, Fecha fecha);
    // A number goes to a text key as its shortest decimal text ("2.5") and to
    // a time key as an OLE date.
    void Valor(std::string_view clave, double numero);

    // What pricing reads. Times are seconds of the time of day (a stored date
    // part is ignored); amounts use the numeric-prefix conversion.
    std::string Nombre() const;
    float ImporteConexion() const;
    std::int32_t TiempoConexion() const;
    float Importe(int tipoDia, int franja) const;
    std::int32_t Inicio(int tipoDia, int franja) const;
    std::int32_t Fin(int tipoDia, int franja) const;

    bool operator==(const RegistroTarifa&) const = default;

private:
    std::array<char, kTamaño> bytes_;
};

} // namespace vorimesk
