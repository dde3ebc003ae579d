#pragma once
// Prices stored calls again, one after another in register order, as the
// re-pricing of the whole register does: with a copy of the tariff book
// taken once (the file is not read again), the holidays and a working copy of the ledger that
// starts full and is refilled at the first call before the billing day of each new month. Both the
// register's own re-pricing and the tariff comparison go through here, so a call costs the same in
// both.

#include "RegistroLlamada.h"
#include "core/Fecha.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <string_view>
#include <vector>

namespace vorimesk {

class PrecioRegistro {
public:
    PrecioRegistro(const cLlamada& libro, const std::vector<Fecha>& festivos, const cBono& bono);

    // Prices `r` with `tarifa` (its own tariff when empty) and stores the new
    // importe, Tipo and Bono in it. A tariff the book does not hold leaves
    // the call as it was and draws nothing from the ledger: false.
    // `volumen` is the call's volume cost under a data plan, added to its
    // time cost.
    bool Preciar(RegistroLlamada& r, std::string_view tarifa = {}, float volumen = 0.0f);

    // The tariff a call that names none is priced with.
    const std::string& TarifaPorDefecto() const { return libro_.NombreTarifa(); }

    // The working ledger as the calls priced so far left it.
    const cBono& Bono() const { return trabajo_; }

    // When the call starts and ends.
    static Fecha Inicio(const RegistroLlamada& r);
    static Fecha Fin(const RegistroLlamada& r);

private:
    cLlamada libro_;
    cBono trabajo_;
    int mesFactura_ = 0;
};

} // namespace vorimesk
