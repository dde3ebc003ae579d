// Data plans: the plan file's contract, the cycles and what a session's
// volume costs. Every expected value is worked out by hand.

#include "TarifaAMano.h"
#include "tariff/CicloPlan.h"
#include "tariff/PlanesJson.h"
#include "tariff/PrecioVolumen.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

Fecha D(const char* iso) {
    return *Fecha::LeerIso(iso);
}

// 1 MB included, 1.024 per MB past it (0.001 per KB), 10 KB steps, at least
// 0.1 a session.
PlanDatos Plan() {
    PlanDatos p;
    p.Tarifa = "Movil";
    p.IncluidoMB = 1;
    p.PrecioMB = 1.024;
    p.PasoKB = 10;
    p.MinimoSesion = 0.1;
    return p;
}

TEST(Planes, VolumenConPasoMinimoYFranqueo) {
    struct Caso {
        std::int64_t kb, usado, contado;
        double importe;
    } casos[] = {
        {0, 0, 0, 0.0},            // nothing moved: no minimum either
        {1001, 0, 1010, 0.0},      // stepped up, still inside the 1024 KB
        {1021, 0, 1030, 0.1},      // 6 KB past: 0.006, the minimum instead
        {1536, 512, 1540, 1.028},  // allowance crossed mid-call: 1028 KB past
        {5, 2000, 10, 0.1},        // allowance long gone: 10 KB, minimum
        {3000, 1020, 3000, 2.996}, // 4 KB left of it, 2996 KB past
    };
    for (const Caso& c : casos) {
        const std::int64_t contado = VolumenContado(Plan(), c.kb, 60, 0);
        EXPECT_EQ(contado, c.contado) << c.kb;
        EXPECT_NEAR(ImporteVolumen(Plan(), contado, c.usado), c.importe, 1e-9) << c.kb;
    }
}

TEST(Planes, FranjaReducidaGratis) {
    cLlamada libro("/nonexistent");
    const auto t = PonerTarifa(libro, "Movil", "0", "00:00:00", Laborable("1", "1"),
                               Laborable("1", "1"), TodoReducido("1"));
    // Wednesday 17:30 to 18:30: the half hour from 18:00 is reduced.
    EXPECT_EQ(SegundosReducida(libro, t, D("2026-03-04 17:30:00"), D("2026-03-04 18:30:00")), 1800);
    // Monday 23:00 to Tuesday 09:00: only 08:00-09:00 is normal.
    EXPECT_EQ(SegundosReducida(libro, t, D("2026-03-02 23:00:00"), D("2026-03-03 09:00:00")),
              32400);
    // A Sunday is reduced all day.
    EXPECT_EQ(SegundosReducida(libro, t, D("2026-03-08 10:00:00"), D("2026-03-08 11:00:00")), 3600);

    PlanDatos p = Plan();
    p.ReducidaGratis = true;
    // 1001 KB over an hour, a quarter of it reduced: 750.75 KB counted,
    // stepped to 760.
    EXPECT_EQ(VolumenContado(p, 1001, 3600, 900), 760);
    EXPECT_EQ(VolumenContado(p, 1001, 3600, 3600), 0);
    p.ReducidaGratis = false;
    EXPECT_EQ(VolumenContado(p, 1001, 3600, 3600), 1010);
}

TEST(Planes, Ciclos) {
    const auto mensual = [](int dia) {
        CicloConexion c;
        c.Dia = dia;
        return c;
    };
    CicloConexion cada28;
    cada28.Tipo = CicloConexion::Forma::CadaDias;
    cada28.CadaDias = 28;
    cada28.Desde = D("2026-01-05");
    CicloConexion bolsa;
    bolsa.Tipo = CicloConexion::Forma::Bolsa;
    bolsa.Desde = D("2026-01-10");
    struct Caso {
        CicloConexion ciclo;
        const char* dia;
        const char* desde;
        const char* hasta;
    } casos[] = {
        {mensual(15), "2026-03-10 23:59:59", "2026-02-15", "2026-03-14"},
        {mensual(15), "2026-03-15", "2026-03-15", "2026-04-14"},
        // Day 31: February starts its cycle on its last day.
        {mensual(31), "2026-02-27", "2026-01-31", "2026-02-27"},
        {mensual(31), "2026-03-15", "2026-02-28", "2026-03-30"},
        {mensual(31), "2028-02-29", "2028-02-29", "2028-03-30"},
        {mensual(31), "2026-04-29", "2026-03-31", "2026-04-29"},
        {mensual(31), "2026-04-30", "2026-04-30", "2026-05-30"},
        {mensual(1), "2026-12-31", "2026-12-01", "2026-12-31"},
        {cada28, "2026-03-01", "2026-02-02", "2026-03-01"},
        {cada28, "2026-03-02", "2026-03-02", "2026-03-29"},
        {cada28, "2026-01-01", "2025-12-08", "2026-01-04"},
        {bolsa, "2027-06-01", "2026-01-10", "9999-12-31"},
    };
    for (const Caso& c : casos) {
        const auto p = CicloEn(c.ciclo, D(c.dia));
        ASSERT_TRUE(p) << c.dia;
        EXPECT_EQ(p->inicio.TextoIsoFecha(), c.desde) << c.dia;
        EXPECT_EQ(p->fin.TextoIsoFecha(), c.hasta) << c.dia;
    }
    // Before the bucket there is no cycle.
    EXPECT_FALSE(CicloEn(bolsa, D("2026-01-09")));
}

TEST(Planes, ArchivoSeLeeYSeEscribeSinPerderNada) {
    const std::string texto = R"({"formato": "vorimesk-planes", "version": 1, "otro": [1],
        "planes": [{"Tarifa": "Movil", "IncluidoMB": 10240, "PrecioMB": 0.02, "PasoKB": 10,
                    "MinimoSesion": 0.05, "ReducidaGratis": false, "CuotaPeriodo": 9.95,
                    "Nota": "x"}],
        "conexiones": [{"Conexion": "LTE Casa", "Ciclo": {"Dia": 15},
                        "Limites": [{"Porcentaje": 80, "De": "volumen", "Accion": "avisar"},
                                    {"Porcentaje": 100, "De": "presupuesto", "Accion": "colgar"}]},
                       {"Conexion": "Bolsa", "Ciclo": {"Desde": "2026-01-10"}},
                       {"Conexion": "Roaming", "Ciclo": {"CadaDias": 7, "Desde": "2026-01-05"}}]})";
    const Planes p = LeerPlanes(texto);
    ASSERT_EQ(p.planes.size(), 1u);
    EXPECT_EQ(p.planes[0].PasoKB, 10);
    EXPECT_EQ(p.planes[0].CuotaPeriodo, 9.95);
    ASSERT_EQ(p.conexiones.size(), 3u);
    EXPECT_EQ(p.conexiones[0].Limites[1].Accion, "colgar");
    EXPECT_EQ(p.conexiones[1].Ciclo->Tipo, CicloConexion::Forma::Bolsa);
    const std::string escrito = EscribirPlanes(p);
    EXPECT_NE(escrito.find("\"IncluidoMB\": 10240,"), std::string::npos) << escrito;
    EXPECT_NE(escrito.find("\"Nota\": \"x\""), std::string::npos);
    EXPECT_EQ(LeerPlanes(escrito), p);

    // A missing field takes its default: 1 KB steps, nothing free.
    const Planes minimo =
        LeerPlanes(R"({"formato":"vorimesk-planes","version":1,"planes":[{"Tarifa":"T"}]})");
    EXPECT_EQ(minimo.planes[0].PasoKB, 1);
    EXPECT_FALSE(minimo.planes[0].ReducidaGratis);
}

TEST(Planes, ArchivoMalHechoDiceQueCampoFalla) {
    const std::string cabecera = R"({"formato":"vorimesk-planes","version":1,)";
    struct Caso {
        std::string texto, campo;
    } casos[] = {
        {R"({"formato":"otro","version":1})", "\"formato\""},
        {R"({"formato":"vorimesk-planes","version":2})", "\"version\""},
        {cabecera + R"("planes":[{"Tarifa":"T","PasoKB":0}]})", "\"planes[0].PasoKB\""},
        {cabecera + R"("planes":[{"Tarifa":"T","PrecioMB":"1"}]})", "\"planes[0].PrecioMB\""},
        {cabecera + R"("planes":[{"Tarifa":"T"},{"Tarifa":"T"}]})", "\"planes[1].Tarifa\""},
        {cabecera + R"("conexiones":[{"Conexion":"C","Ciclo":{}}]})", "\"conexiones[0].Ciclo\""},
        {cabecera + R"("conexiones":[{"Conexion":"C","Ciclo":{"Dia":32}}]})",
         "\"conexiones[0].Ciclo.Dia\""},
        {cabecera + R"("conexiones":[{"Conexion":"C","Ciclo":{"CadaDias":7}}]})",
         "\"conexiones[0].Ciclo.Desde\""},
        {cabecera + R"("conexiones":[{"Conexion":"C","Ciclo":{"Desde":"2026-02-30"}}]})",
         "\"conexiones[0].Ciclo.Desde\""},
        {cabecera + R"("conexiones":[{"Conexion":"C","Limites":[{"Porcentaje":80,"De":"x",)"
                    R"("Accion":"avisar"}]}]})",
         "\"conexiones[0].Limites[0].De\""},
        {cabecera + R"("conexiones":{}})", "\"conexiones\""},
    };
    for (const Caso& c : casos) {
        try {
            LeerPlanes(c.texto);
            ADD_FAILURE() << c.texto;
        } catch (const ErrorPlanes& e) {
            EXPECT_NE(std::string(e.what()).find(c.campo), std::string::npos) << e.what();
        }
    }
    EXPECT_THROW(LeerPlanes("{"), ErrorPlanes);
}

} // namespace
