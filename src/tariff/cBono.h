#pragma once
// The ledger of the user's prepaid BonoNet hour bundles: "10DIA" and "50DIA"
// (day group 0), "10NOCHE" and "50NOCHE" (night group 1), plus the billing
// day and interval. One ledger belongs to the program; pricing works on a
// copy of it.
//
// How bundle time is spent (the rules a BonoNet customer expects):
// - Bundle time covers the metered seconds of its own group and those seconds
//   cost nothing; the connection charge of the call is still due.
// - `Restar` draws a group down oldest bundle first (earliest `Alta`, then
//   ledger order); a bundle that runs out hands over to the next one.
// - A stretch of a call that lasts longer than the group has left is split:
//   the covered part is free, the rest is paid at the band's price.
// - `TiempoGastadoGrupo` is the full content of the group's bundles minus
//   what they have left.
// - Plain `Reset` refills every bundle. `Reset(fecha)` is the renewal at the
//   start of a billing period: bundles taken up by that day and not given up
//   before it are refilled, bundles given up before it are left with nothing,
//   bundles taken up later are not touched.
// - `Limpiar` removes the bundles but keeps the billing day and interval.
//
// Bundles live in a zero-based array with one spare slot at the end; index
// arguments go from 0 to `Count` (the spare slot, which reads as empty), any
// other index throws ErrorIndice.

#include "core/FechaVariante.h"
#include "core/Reloj.h"
#include "core/cTiempo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorimesk {

class cBono {
public:
    static constexpr std::int16_t kGrupoDia = 0;
    static constexpr std::int16_t kGrupoNoche = 1;
    // Kind indexes: 0 "10DIA", 1 "50DIA", 2 "10NOCHE", 3 "50NOCHE".
    static constexpr std::int16_t kTipos = 4;
    static std::string NombreTipo(std::int16_t tipo);

    // Take-up dates default to today on the machine's clock...
    cBono();
    // ...or on the given one, which must outlive the ledger.
    explicit cBono(const Reloj& reloj);

    // Takes up a bundle of the kind (ErrorIndice outside 0-3), full, dated
    // `fecha` or today, not given up; returns its index.
    std::int16_t DarAlta(std::int16_t tipo, std::optional<Fecha> fecha = std::nullopt);

    Fecha Alta(std::int16_t i) const;
    void Alta(std::int16_t i, Fecha fecha);
    // Give-up date: empty or null while the bundle is kept, as the settings
    // file writes it.
    FechaVariante Baja(std::int16_t i) const;
    void Baja(std::int16_t i, FechaVariante baja);
    // True when the bundle was given up before the billing period that starts
    // on `inicioPeriodo`, so it brings no time into it.
    bool BajaPer(std::int16_t i, Fecha inicioPeriodo) const;
    // The kind text without its padding ("10DIA"); empty for the spare slot.
    std::string Nombre(std::int16_t i) const;
    // Time left, hh:mm:ss. Setting keeps the text as the user wrote it.
    std::string tiempo(std::int16_t i) const;
    void tiempo(std::int16_t i, std::string_view texto);
    // Kind index and group of the bundle; -1 for a kind text that is none.
    std::int16_t Tipo(std::int16_t i) const;
    std::int16_t Grupo(std::int16_t i) const;

    std::int16_t Count() const;
    std::int16_t CountGrupo(std::int16_t grupo) const;
    std::int16_t CountTipo(std::int16_t tipo) const;

    std::string TotalTiempoTipo(std::int16_t tipo) const;
    std::string TotalTiempoGrupo(std::int16_t grupo) const;
    std::string TiempoGastadoGrupo(std::int16_t grupo) const;
    bool EstaVacioGrupo(std::int16_t grupo) const;
    bool EstaVacioTipo(std::int16_t tipo) const;

    // Draws up to `segundos` from the group, oldest bundle first; returns
    // the seconds the group could cover (less when it runs out).
    std::int32_t Restar(std::int16_t grupo, std::int32_t segundos);
    // The bundle the group draws from next, or -1 when the group is spent.
    std::int16_t Cual(std::int16_t grupo) const;

    void Reset();
    void Reset(Fecha inicioPeriodo);
    void Limpiar();
    // This ledger takes the other's bundles and billing settings (not its
    // clock).
    void Copiar(const cBono& otro);

    std::uint8_t DiaFactura() const { return diaFactura_; }
    void DiaFactura(std::uint8_t dia) { diaFactura_ = dia; }
    // The user's interval choice: 0 "Mensual", 1 "Par Bimensual",
    // 2 "Impar Bimensual", 3 "Trimestral".
    std::uint8_t perFactura() const { return perFactura_; }
    void perFactura(std::uint8_t intervalo) { perFactura_ = intervalo; }

private:
    struct Paquete {
        std::string tipo; // kind text, 8 characters
        cTiempo resto;
        Fecha alta;
        FechaVariante baja;
        bool activo = false;
    };

    Paquete& En(std::int16_t i);
    const Paquete& En(std::int16_t i) const;
    static std::int16_t TipoDe(const Paquete& p);
    static std::int16_t GrupoDe(const Paquete& p);
    static std::int32_t Contenido(const Paquete& p);
    template <typename Filtro> std::int32_t SumaResto(Filtro filtro) const;

    const Reloj* reloj_;
    std::vector<Paquete> paquetes_ = std::vector<Paquete>(1);
    std::uint8_t diaFactura_ = 1;
    std::uint8_t perFactura_ = 0;
};

} // namespace vorimesk
