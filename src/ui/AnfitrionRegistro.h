#pragma once
// What the register tools (filter, period picker, archive wizard, graphs,
// printing) need from the window that shows the register grid. The main
// window implements it; tests implement it with a small fake.

#include "register/ListadoRegistro.h"

#include <array>
#include <string>
#include <vector>

namespace vorimesk {

class AnfitrionRegistro {
public:
    virtual ~AnfitrionRegistro() = default;

    // Lists the calls that pass the criteria in the grid and keeps the totals.
    virtual void RellenaGrid(const CriteriosFiltro& criterios) = 0;
    // The current billing period shown at load (InicioPeriodo, FinPeriodo).
    virtual Fecha InicioPeriodo() const = 0;
    virtual Fecha FinPeriodo() const = 0;
    // The grid as the user sees it, titles excluded, filter included.
    virtual std::vector<std::array<std::string, 10>> FilasVisibles() const = 0;
    // The last fill's totals, and the range they sum in words (TextoRango).
    virtual const Listado& ListadoActual() const = 0;
    virtual std::string RangoListado() const = 0;
    // What a tool did, told to the user once it closes.
    virtual void Informar(const std::string& texto) = 0;
    // The register changed on disk and in memory (archive, restore): save it
    // at once and show it afresh.
    virtual void RegistroCambiado() = 0;
};

} // namespace vorimesk
