#pragma once
// What a set of calls of the register would have cost under every tariff of
// the book, with the user's BonoNet bundles and without any, next to what
// the register charged for them. The calls are priced exactly as re-pricing
// the register prices them (PrecioRegistro), on copies: the register itself
// is not touched.

#include "Log.h"
#include "core/Fecha.h"
#include "tariff/cBono.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vorimesk {

struct TotalTarifa {
    std::string Tarifa;
    // Each total is the sum of the calls' amounts as the register would keep
    // them; each difference is that total minus what was charged (below zero
    // it would have saved money).
    double ConBono = 0.0;
    double SinBono = 0.0;
    double DiferenciaConBono = 0.0;
    double DiferenciaSinBono = 0.0;
};

struct ComparacionTarifas {
    int Llamadas = 0;
    double Cobrado = 0.0;             // the amounts the register holds for these calls
    std::vector<TotalTarifa> Tarifas; // in book order
    // The cheapest total of all: its tariff (index into Tarifas, -1 for an
    // empty book) and whether it is the total with bundles. A tie goes to the
    // earlier tariff and, within one tariff, to the total without bundles,
    // which needs no bundle bought.
    int MasBarata = -1;
    bool MasBarataConBono = false;
};

// `indices` are calls of `registro` (in any order, repeats count once;
// ErrorIndice for one the register lacks); the tariff book is the register's (Log::Libro), taken
// once, and `carpeta` holds the data plans. With
// bundles, each tariff prices the whole register up to the last chosen call, since the bundle time
// earlier calls used is not there for later ones, exactly as the register's re-pricing draws it;
// only the chosen calls are added up.
ComparacionTarifas CompararTarifas(const Log& registro, std::vector<int> indices,
                                   const std::filesystem::path& carpeta, const cBono& bono,
                                   const std::vector<Fecha>& festivos);

} // namespace vorimesk
