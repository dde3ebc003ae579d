// The tariff comparison against the register's own re-pricing: a year of
// calls, every tariff of the shipped book, with the user's bundles and
// without, over the whole register and over a month of it.

#include "register/ComparacionTarifas.h"

#include "CarpetaTemporal.h"
#include "LlamadasSimuladas.h"
#include "core/Errores.h"
#include "register/Importe.h"

#include <charconv>
#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class Comparacion : public CarpetaTemporal {
protected:
    void SetUp() override {
        LlenarConLlamadas(registro, dir, Fecha::Crear(2026, 1, 1), 365);
        bono.DiaFactura(15);
        bono.DarAlta(0, Fecha::Crear(2026, 1, 1)); // 10DIA
        bono.DarAlta(2, Fecha::Crear(2026, 1, 1)); // 10NOCHE
        // The register as the program keeps it: priced by its own re-pricing.
        cBono programa(bono);
        registro.ModificarLog(programa, festivos);
    }

    // A copy of the register whose calls all use `tarifa`, re-priced with
    // the register's own re-pricing and `ledger`.
    Log Copia(const std::string& tarifa, const cBono& ledger) const {
        Log copia(dir);
        for (int i = 0; i < registro.Count(); ++i) {
            RegistroLlamada r = registro.Registro(i);
            r.Tarifa.Poner(tarifa);
            copia.AñadirItem(r);
        }
        cBono programa(ledger);
        copia.ModificarLog(programa, festivos);
        return copia;
    }

    // The amounts the register lists, added up in register order.
    static double Suma(const Log& log, const std::vector<int>& indices) {
        double total = 0.0;
        for (const int i : indices) {
            const std::string t = log.importe(i);
            double v = 0.0;
            std::from_chars(t.data(), t.data() + t.size(), v);
            total += v;
        }
        return total;
    }

    std::vector<int> Todas() const {
        std::vector<int> v;
        for (int i = 0; i < registro.Count(); ++i) {
            v.push_back(i);
        }
        return v;
    }
    // From 20 June to 10 July: the calls of June before the 20th have drawn
    // on the bundles these find, which are refilled in July.
    std::vector<int> Junio() const {
        std::vector<int> v;
        for (int i = 0; i < registro.Count(); ++i) {
            const Fecha dia = registro.Dia(i);
            if (Fecha::Crear(2026, 6, 20) <= dia && dia <= Fecha::Crear(2026, 7, 10)) {
                v.push_back(i);
            }
        }
        return v;
    }

    Log registro{dir};
    cBono bono;
    std::vector<Fecha> festivos = {Fecha::Crear(2026, 1, 6), Fecha::Crear(2026, 8, 15)};
};

} // namespace

TEST_F(Comparacion, CadaTarifaCuestaLoQueElRegistroCobrariaConElla) {
    ASSERT_GT(registro.Count(), 300);
    cBono sinBonos(bono);
    sinBonos.Limpiar();
    for (const std::vector<int>& elegidas : {Todas(), Junio()}) {
        const ComparacionTarifas c = CompararTarifas(registro, elegidas, dir, bono, festivos);
        EXPECT_EQ(c.Llamadas, static_cast<int>(elegidas.size()));
        EXPECT_EQ(c.Cobrado, Suma(registro, elegidas));
        ASSERT_EQ(c.Tarifas.size(), 5u);
        for (const TotalTarifa& t : c.Tarifas) {
            SCOPED_TRACE(t.Tarifa);
            EXPECT_EQ(t.ConBono, Suma(Copia(t.Tarifa, bono), elegidas));
            EXPECT_EQ(t.SinBono, Suma(Copia(t.Tarifa, sinBonos), elegidas));
            EXPECT_EQ(t.DiferenciaConBono, t.ConBono - c.Cobrado);
            EXPECT_EQ(t.DiferenciaSinBono, t.SinBono - c.Cobrado);
            // The bundles make some calls free and no call dearer.
            EXPECT_LT(t.ConBono, t.SinBono);
        }
    }
}

TEST_F(Comparacion, LaTarifaUsadaDaExactamenteElTotalDelRegistro) {
    // A register whose calls all used "Metropolitana", as most users' do.
    registro = Copia("Metropolitana", bono);
    const ComparacionTarifas c = CompararTarifas(registro, Todas(), dir, bono, festivos);
    ASSERT_EQ(c.Tarifas.at(0).Tarifa, "Metropolitana");
    EXPECT_EQ(c.Tarifas[0].ConBono, c.Cobrado);
    EXPECT_EQ(c.Tarifas[0].DiferenciaConBono, 0.0);
    // The dearer long-distance tariffs are never the cheapest.
    EXPECT_TRUE(c.Tarifas[static_cast<std::size_t>(c.MasBarata)].Tarifa == "Metropolitana" ||
                c.Tarifas[static_cast<std::size_t>(c.MasBarata)].Tarifa == "BonoNet");
    EXPECT_TRUE(c.MasBarataConBono);
}

TEST_F(Comparacion, ElRegistroYElBonoQuedanComoEstaban) {
    std::vector<RegistroLlamada> antes;
    for (int i = 0; i < registro.Count(); ++i) {
        antes.push_back(registro.Registro(i));
    }
    const std::string bonoAntes = bono.TotalTiempoGrupo(0) + bono.TotalTiempoGrupo(1);
    CompararTarifas(registro, Junio(), dir, bono, festivos);
    for (int i = 0; i < registro.Count(); ++i) {
        ASSERT_EQ(registro.Registro(i), antes[static_cast<std::size_t>(i)]) << i;
    }
    EXPECT_EQ(bono.TotalTiempoGrupo(0) + bono.TotalTiempoGrupo(1), bonoAntes);
}

TEST_F(Comparacion, SinBonosAmbosTotalesCoincidenYGanaElDeSinBonos) {
    cBono vacio;
    vacio.DiaFactura(15);
    const ComparacionTarifas c = CompararTarifas(registro, Junio(), dir, vacio, festivos);
    for (const TotalTarifa& t : c.Tarifas) {
        EXPECT_EQ(t.ConBono, t.SinBono) << t.Tarifa;
    }
    EXPECT_FALSE(c.MasBarataConBono);
}

TEST_F(Comparacion, SinLlamadasOLlamadaInexistente) {
    const ComparacionTarifas c = CompararTarifas(registro, {}, dir, bono, festivos);
    EXPECT_EQ(c.Llamadas, 0);
    EXPECT_EQ(c.Cobrado, 0.0);
    for (const TotalTarifa& t : c.Tarifas) {
        EXPECT_EQ(t.ConBono, 0.0);
        EXPECT_EQ(t.SinBono, 0.0);
    }
    EXPECT_THROW(CompararTarifas(registro, {registro.Count()}, dir, bono, festivos), ErrorIndice);
    EXPECT_THROW(CompararTarifas(registro, {-1}, dir, bono, festivos), ErrorIndice);
}
