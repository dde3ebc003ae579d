#pragma once
// A register window for the tools' tests and screenshots: it lists the calls
// of a real register with the real record test, remembers every fill it was
// asked for and counts the times it was told the register changed.

#include "register/ListadoRegistro.h"
#include "tariff/cLlamada.h"
#include "ui/AnfitrionRegistro.h"

#include <vector>

namespace vorimesk::prueba {

class AnfitrionFalso : public AnfitrionRegistro {
public:
    AnfitrionFalso(const Log& registro, const cLlamada& libro, Fecha hoy)
        : inicio(hoy), fin(hoy), registro_(registro), libro_(libro), hoy_(hoy) {}

    void RellenaGrid(const CriteriosFiltro& c) override {
        rellenos.push_back(c);
        listado = ListarRegistro(
            registro_, c, [this](Fecha f) { return libro_.TipoDia(f); }, {}, hoy_);
    }
    Fecha InicioPeriodo() const override { return inicio; }
    Fecha FinPeriodo() const override { return fin; }
    std::vector<std::array<std::string, 10>> FilasVisibles() const override {
        std::vector<std::array<std::string, 10>> filas;
        for (int i : listado.indices) {
            filas.push_back(CeldasLlamada(registro_, i, {}));
        }
        return filas;
    }
    const Listado& ListadoActual() const override { return listado; }
    std::string RangoListado() const override {
        return rellenos.empty() ? std::string() : TextoRango(rellenos.back(), listado, inicio, fin);
    }
    void Informar(const std::string& texto) override { informes.push_back(texto); }
    void RegistroCambiado() override { ++cambios; }

    // The calls listed by the last fill.
    const std::vector<int>& Listadas() const { return listado.indices; }

    std::vector<CriteriosFiltro> rellenos;
    std::vector<std::string> informes;
    Listado listado;
    int cambios = 0;
    Fecha inicio;
    Fecha fin;

private:
    const Log& registro_;
    const cLlamada& libro_;
    Fecha hoy_;
};

} // namespace vorimesk::prueba
