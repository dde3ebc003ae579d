// The billing period's forecast and the budget alert.

#include "register/PrevisionPeriodo.h"

#include "CarpetaTemporal.h"
#include "register/AvisoPresupuesto.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class Prevision : public CarpetaTemporal {
protected:
    void Llamada(Fecha dia, const char* importe) {
        registro.AñadirItem(dia, Fecha::DesdeSegundos(20 * 3600), "00:10:00", importe, 1,
                            "Metropolitana", "Casa", "", 0, 0, 0);
    }
    // Monthly, billed on the 15th. Monthly periods run from the day after
    // the register's first call, so with a first call on a 15th the period
    // from 16 April to 15 May has 30 days, and 30 April is its 15th.
    DatosPrevision Mensual(std::optional<double> presupuesto = std::nullopt) const {
        DatosPrevision d;
        d.DiaFactura = 15;
        d.perFactura = 0;
        d.Presupuesto = presupuesto;
        return d;
    }
    Log registro{dir};
};

} // namespace

TEST_F(Prevision, APeriodoMedioPasadoLaProyeccionEsElDobleDelGasto) {
    Llamada(Fecha::Crear(2026, 3, 15), "500"); // an earlier period: not counted
    Llamada(Fecha::Crear(2026, 4, 15), "400"); // the last day of the period before
    Llamada(Fecha::Crear(2026, 4, 16), "100");
    Llamada(Fecha::Crear(2026, 4, 22), "37.4");
    Llamada(Fecha::Crear(2026, 4, 30), "20.5");
    Llamada(Fecha::Crear(2026, 5, 2), "900");   // after today
    const PrevisionPeriodo p = Prever(registro, Mensual(), Fecha::Crear(2026, 4, 30, 13, 5));
    EXPECT_EQ(p.Inicio, Fecha::Crear(2026, 4, 16));
    EXPECT_EQ(p.Fin, Fecha::Crear(2026, 5, 15));
    EXPECT_EQ(p.DiasPeriodo, 30);
    EXPECT_EQ(p.DiasTranscurridos, 15);
    EXPECT_EQ(p.DiasQuedan, 15);
    EXPECT_EQ(p.Llamadas, 3);
    EXPECT_DOUBLE_EQ(p.Gastado, 157.9);
    EXPECT_DOUBLE_EQ(p.Proyeccion, 315.8);
    EXPECT_FALSE(p.Presupuesto);
    EXPECT_FALSE(p.PorDiaRestante);
    EXPECT_FALSE(p.SuperaPresupuesto);
}

TEST_F(Prevision, ElPresupuestoDiceCuantoSePuedeGastarCadaDia) {
    Llamada(Fecha::Crear(2026, 3, 15), "10");
    Llamada(Fecha::Crear(2026, 4, 20), "100");
    const Fecha hoy = Fecha::Crear(2026, 4, 30);
    // 100 spent in 15 days heads for 200: 350 leaves 250 for 15 days.
    PrevisionPeriodo p = Prever(registro, Mensual(350.0), hoy);
    EXPECT_EQ(p.Proyeccion, 200.0);
    EXPECT_FALSE(p.SuperaPresupuesto);
    EXPECT_DOUBLE_EQ(*p.PorDiaRestante, 250.0 / 15);
    p = Prever(registro, Mensual(150.0), hoy);
    EXPECT_TRUE(p.SuperaPresupuesto);
    EXPECT_DOUBLE_EQ(*p.PorDiaRestante, 50.0 / 15);
    // Already spent: nothing more may be spent.
    p = Prever(registro, Mensual(80.0), hoy);
    EXPECT_EQ(*p.PorDiaRestante, 0.0);
    // On the period's last day there is no day left to share it among.
    p = Prever(registro, Mensual(150.0), Fecha::Crear(2026, 5, 15));
    EXPECT_EQ(p.DiasQuedan, 0);
    EXPECT_FALSE(p.PorDiaRestante);
    EXPECT_EQ(p.Proyeccion, p.Gastado);
}

TEST_F(Prevision, ConImpuestosGastaLoQueMuestraElRegistro) {
    Llamada(Fecha::Crear(2026, 3, 15), "1");
    Llamada(Fecha::Crear(2026, 4, 20), "100");
    Llamada(Fecha::Crear(2026, 4, 21), "10.3"); // 11.948 shown as 11,95
    DatosPrevision d = Mensual();
    d.Coste = {true, 16.0F};
    EXPECT_DOUBLE_EQ(Prever(registro, d, Fecha::Crear(2026, 4, 30)).Gastado, 127.95);
}

TEST_F(Prevision, ElPeriodoEmpiezaDondeElResumenYAcabaEnSuFrontera) {
    // A first call after the billing day: the summary's first monthly period
    // runs to the 1st of the next month, the next ones from the 2nd.
    Llamada(Fecha::Crear(2026, 4, 20), "30");
    PrevisionPeriodo p = Prever(registro, Mensual(), Fecha::Crear(2026, 4, 25));
    EXPECT_EQ(p.Inicio, Fecha::Crear(2026, 4, 20));
    EXPECT_EQ(p.Fin, Fecha::Crear(2026, 5, 1));
    EXPECT_EQ(std::pair(p.Llamadas, p.Gastado), std::pair(1, 30.0)); // the first call counts too
    p = Prever(registro, Mensual(), Fecha::Crear(2026, 5, 5));
    EXPECT_EQ(p.Inicio, Fecha::Crear(2026, 5, 2));
    EXPECT_EQ(p.Fin, Fecha::Crear(2026, 6, 1));
    EXPECT_EQ(p.Llamadas, 0);
    // Odd-month bimonthly, billed on the 10th: 11 May to 10 July.
    DatosPrevision d = Mensual();
    d.DiaFactura = 10;
    d.perFactura = 2;
    p = Prever(registro, d, Fecha::Crear(2026, 6, 1));
    EXPECT_EQ(p.Inicio, Fecha::Crear(2026, 5, 11));
    EXPECT_EQ(p.Fin, Fecha::Crear(2026, 7, 10));
    EXPECT_EQ(p.DiasTranscurridos, 22);
    EXPECT_EQ(p.DiasPeriodo, 61);
    // An empty register: the period starts today, nothing spent.
    Log vacio(dir);
    p = Prever(vacio, Mensual(100.0), Fecha::Crear(2026, 4, 25));
    EXPECT_EQ(p.Inicio, Fecha::Crear(2026, 4, 25));
    EXPECT_EQ(p.Gastado, 0.0);
    EXPECT_EQ(p.Proyeccion, 0.0);
    EXPECT_FALSE(p.SuperaPresupuesto);
}

TEST_F(Prevision, ElAvisoDePresupuestoSuenaUnaVezHastaOtroPeriodoUOtroPresupuesto) {
    Llamada(Fecha::Crear(2026, 3, 15), "10");
    Llamada(Fecha::Crear(2026, 4, 20), "60");
    AvisoPresupuesto aviso;
    // 60 heads for 120 on the 30th: under a budget of 150.
    EXPECT_FALSE(aviso.Comprobar(Prever(registro, Mensual(150.0), Fecha::Crear(2026, 4, 30))));
    Llamada(Fecha::Crear(2026, 4, 30), "30");
    EXPECT_TRUE(aviso.Comprobar(Prever(registro, Mensual(150.0), Fecha::Crear(2026, 4, 30))));
    // However often it is worked out, and even when the pace slows for a
    // while, it does not sound again.
    EXPECT_FALSE(aviso.Comprobar(Prever(registro, Mensual(150.0), Fecha::Crear(2026, 4, 30))));
    EXPECT_FALSE(aviso.Comprobar(Prever(registro, Mensual(150.0), Fecha::Crear(2026, 5, 10))));
    Llamada(Fecha::Crear(2026, 5, 11), "40");
    EXPECT_FALSE(aviso.Comprobar(Prever(registro, Mensual(150.0), Fecha::Crear(2026, 5, 11))));
    // A new budget the projection still passes.
    EXPECT_TRUE(aviso.Comprobar(Prever(registro, Mensual(140.0), Fecha::Crear(2026, 5, 11))));
    // A new period: 16 May heads for 0, then a dear call passes it again.
    EXPECT_FALSE(aviso.Comprobar(Prever(registro, Mensual(140.0), Fecha::Crear(2026, 5, 16))));
    Llamada(Fecha::Crear(2026, 5, 16), "20");
    EXPECT_TRUE(aviso.Comprobar(Prever(registro, Mensual(140.0), Fecha::Crear(2026, 5, 16))));
    // With no budget there is nothing to pass.
    AvisoPresupuesto sinPresupuesto;
    EXPECT_FALSE(sinPresupuesto.Comprobar(Prever(registro, Mensual(), Fecha::Crear(2026, 5, 16))));
}
