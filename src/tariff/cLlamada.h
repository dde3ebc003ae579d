#pragma once
// The tariff book and the pricing of calls.
//
// The book is the list of tariffs of "Tarifas.Dat" in the data folder, the
// holidays and the name of the tariff in use. Tariffs live in a zero-based
// array with one spare, empty slot at the end: `Count` is its index, and
// index arguments go from 0 to `Count` (ErrorIndice otherwise).
//
// `Datos` prices a call from its start to its end (or to now, for the live
// meter) and leaves the results in `importe`, `Duracion`, `TipoActual`,
// `Tipo`, `BonoNetActual` and `BonoNet`. The way calls have always been
// priced is kept, odd corners included: the tariff file is read again on
// every pricing; the included time of the connection charge is read as
// minutes:seconds from the stored hours:minutes; the day type is taken at the
// start of each stretch of a band; the BonoNet day/night test looks at the
// tariff at index 1 whatever tariff is priced; calls are cut at the billing
// periods of the ledger's billing day, always as if the user billed every odd
// two months.
//
// BonoNet: given a ledger, `Datos` prices with a working copy of it, kept in
// `Bono()`, and draws each band stretch's seconds from the bundles of the
// group the day/night test picks at its start (free while they last, see
// cBono.h). Without a ledger nothing is drawn and the book's own ledger is
// only refilled and asked for the BonoNet flags. To keep what a finished call
// used, hand the program's ledger to `TraspasarBono`.

#include "RegistroTarifa.h"
#include "cBono.h"
#include "core/Fecha.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorimesk {

class cLlamada {
public:
    static constexpr const char* kArchivo = "Tarifas.Dat";

    // `carpeta` is the data folder that holds "Tarifas.Dat".
    explicit cLlamada(std::filesystem::path carpeta);
    const std::filesystem::path& Ruta() const { return ruta_; }

    // Reads the file; nothing happens when there is none. The first record
    // whose name does not start with a byte from 32 to 126 ends the book (a
    // record cut short ends it too). ErrorArchivo when it cannot be read.
    void Load();
    // Replaces the file; an empty book leaves no file at all.
    void Save() const;

    // Appends an empty tariff, to be filled with `Valor`.
    void Add();
    void Delete(std::int16_t indice);
    void Copy(std::int16_t destino, std::int16_t origen);
    std::int16_t Count() const { return static_cast<std::int16_t>(tarifas_.size() - 1); }
    // First tariff whose name equals `nombre` exactly, or -1.
    std::int16_t Find(std::string_view nombre) const;

    // By key ("Nombre", "Conexion.Importe", "Semana.Normal.Inicio", ...): see
    // RegistroTarifa for what each form reads and stores.
    ValorTarifa Valor(std::int16_t indice, std::string_view clave) const;
    std::string ValorTexto(std::int16_t indice, std::string_view clave) const;
    void Valor(std::int16_t indice, std::string_view clave, std::string_view texto);
    void Valor(std::int16_t indice, std::string_view clave, Fecha fecha);
    void Valor(std::int16_t indice, std::string_view clave, double numero);
    const RegistroTarifa& Tarifa(std::int16_t indice) const;
    // Puts a whole record in place, bytes and all (the editor keeps the
    // records it read so untouched fields are written back unchanged).
    void Tarifa(std::int16_t indice, const RegistroTarifa& registro);

    const std::string& NombreTarifa() const { return nombreTarifa_; }
    void NombreTarifa(std::string nombre) { nombreTarifa_ = std::move(nombre); }
    // Holidays count on their own day, month and year only.
    const std::vector<Fecha>& Festivos() const { return festivos_; }
    void Festivos(std::vector<Fecha> festivos) {
        festivos_ = std::move(festivos);
        tipoDia_.reset();
    }

    // Prices the call with the tariff `tarifa` (`NombreTarifa` when empty).
    // Returns false, leaving every result as it was, when the book has no
    // such tariff.
    bool Datos(Fecha inicio, Fecha fin, const cBono* bono = nullptr, std::string tarifa = "");
    // Off, `Datos` prices with the book in memory instead of reading the file
    // again: for a batch of pricings over a book that cannot change meanwhile.
    void RecargarAlPreciar(bool recargar) { recargar_ = recargar; }
    // 0 "Semana", 1 "Sabado", 2 "Festivo" (Sundays and the holidays).
    std::int16_t TipoDia(Fecha momento) const;
    static std::int16_t TipoDiaCalendario(Fecha momento, const std::vector<Fecha>& festivos);

    float importe() const { return importe_; }
    const std::string& Duracion() const;
    // Band at the end and at the start: 0 normal, 1 reduced, -1 when the
    // reduced band is empty.
    std::int16_t Tipo() const { return tipo_; }
    std::int16_t TipoActual() const { return tipoActual_; }
    // Whether the BonoNet group in force at the end / start has time left.
    bool BonoNet() const { return bonoNet_; }
    bool BonoNetActual() const { return bonoNetActual_; }
    // Seconds of the last priced call that bundles covered.
    std::int32_t SegundosBono() const { return segundosBono_; }

    // The working ledger: after pricing with a ledger, its bundles as the
    // call left them.
    cBono& Bono() { return bono_; }
    const cBono& Bono() const { return bono_; }
    // Carries the last pricing's bundle use into the program's ledger: it ends
    // as the working copy was left, drawn down and, where the call ran into a
    // new billing period, renewed. Does nothing unless the last `Datos` found
    // its tariff and was given a ledger.
    void TraspasarBono(cBono& programa) const;

private:
    // What pricing reads of a tariff, decoded from its bytes once after the
    // book changes instead of at every stretch of every call. A time that
    // does not decode is left empty and read from the record, which throws
    // there as it always has.
    struct Precios {
        std::string nombre;
        float importeConexion = 0.0f;
        std::optional<std::int32_t> incluido; // the connection's included time
        float importe[3][2] = {};
        std::optional<std::int32_t> inicio[3][2];
        std::optional<std::int32_t> fin[3][2];
    };

    const RegistroTarifa& En(std::int16_t indice) const;
    // For a change to the tariff: what was decoded of the book is dropped.
    RegistroTarifa& Editar(std::int16_t indice);
    const Precios& PreciosDe(std::int16_t indice) const;
    std::int32_t Inicio(std::int16_t tarifa, const Precios& p, int dia, int franja) const;
    std::int32_t Fin(std::int16_t tarifa, const Precios& p, int dia, int franja) const;
    std::int16_t Banda(std::int16_t tarifa, Fecha momento) const;
    bool Noche(Fecha momento) const;
    bool QuedaBono(Fecha momento) const;
    // Adds each stretch's cost to `total` one by one, in single precision.
    void SumarPeriodos(std::int16_t tarifa, Fecha desde, Fecha hasta, bool conBono, float& total);
    float CosteTramo(std::int16_t tarifa, Fecha& desde, Fecha limite, bool conBono);

    std::filesystem::path ruta_;
    std::vector<RegistroTarifa> tarifas_ = std::vector<RegistroTarifa>(1);
    mutable std::vector<std::optional<Precios>> precios_;
    std::vector<Fecha> festivos_;
    // The last day asked for and its type: a stretch asks for its day's
    // type several times.
    mutable std::optional<std::pair<std::int64_t, std::int16_t>> tipoDia_;
    std::string nombreTarifa_;
    bool recargar_ = true;

    float importe_ = 0.0f;
    // The priced length, written out only when asked for.
    std::int32_t segundos_ = 0;
    mutable std::optional<std::string> duracion_ = std::string();
    std::int16_t tipo_ = 0;
    std::int16_t tipoActual_ = 0;
    bool bonoNet_ = false;
    bool bonoNetActual_ = false;
    std::int32_t segundosBono_ = 0;
    bool bonoPendiente_ = false;
    cBono bono_;
};

} // namespace vorimesk
