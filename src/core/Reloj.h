#pragma once
// The clock, injected wherever "now" or "today" matters so tests can set the
// day and move time forward. Local time, as the user's bills are written.

#include "Fecha.h"

namespace vorimesk {

class Reloj {
public:
    virtual ~Reloj() = default;
    virtual Fecha Ahora() const = 0;
    Fecha Hoy() const { return Ahora().SoloFecha(); }
};

// The machine's local clock.
class RelojSistema final : public Reloj {
public:
    Fecha Ahora() const override;
};

// A clock that stays where it is put; tests move it by hand.
class RelojFijo final : public Reloj {
public:
    explicit RelojFijo(Fecha ahora) : ahora_(ahora) {}
    Fecha Ahora() const override { return ahora_; }
    void Poner(Fecha ahora) { ahora_ = ahora; }
    void Avanzar(std::int64_t segundos) { ahora_ = ahora_.MasSegundos(segundos); }

private:
    Fecha ahora_;
};

} // namespace vorimesk
