// Re-pricing a register under data plans: each call pays its time cost as
// before plus its volume cost, the allowance of its connection's cycle drawn
// down in order of start whatever the register's order. Worked out by hand.

#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "register/Log.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/PlanesJson.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class PlanesRegistro : public CarpetaTemporal {
public:
    void SetUp() override {
        // "Movil": 1 a call, time free; "Fijo" has no plan.
        cLlamada libro(dir);
        const Dia gratis = Laborable("0", "0");
        PonerTarifa(libro, "Movil", "1", "00:00:00", gratis, gratis, gratis);
        PonerTarifa(libro, "Fijo", "2", "00:00:00", gratis, gratis, gratis);
        libro.Save();
        // 1 MB included, 0.001 per KB past it, 10 KB steps, at least 0.1;
        // connection A renews on the 10th, B on the 20th.
        planes = R"({"formato":"vorimesk-planes","version":1,
            "planes":[{"Tarifa":"Movil","IncluidoMB":1,"PrecioMB":1.024,"PasoKB":10,
                       "MinimoSesion":0.1,"CuotaPeriodo":5}],
            "conexiones":[{"Conexion":"A","Ciclo":{"Dia":10}},{"Conexion":"B","Ciclo":{"Dia":20}}]})";
    }

    struct Llamada {
        const char* inicio;
        const char* conexion;
        const char* tarifa;
        int recibidos, enviados;
        const char* importe; // expected after re-pricing
    };

    // The register in the given order, re-priced.
    Log Recalcular(const std::vector<Llamada>& llamadas) const {
        Log log(dir);
        for (const Llamada& l : llamadas) {
            const Fecha f = *Fecha::LeerIso(l.inicio);
            log.AñadirItem(f.SoloFecha(), f.SoloHora(), "00:05:00", "99", 0, l.tarifa, l.conexion,
                           "", 0, l.recibidos, l.enviados);
        }
        cBono bono;
        log.ModificarLog(bono, {});
        return log;
    }

    std::string planes;
};

// Start order: A 03-05 (cycle from 10 Feb), A 03-12 and A 03-15 (cycle from
// 10 Mar), B 03-15 (from 20 Feb), B 03-21 (from 20 Mar).
const std::vector<PlanesRegistro::Llamada> kFueraDeOrden = {
    {"2026-03-15 10:00:00", "A", "Movil", 400, 100, "1.176"}, // 700 KB used before: 176 past
    {"2026-03-12 10:00:00", "A", "Movil", 600, 100, "1"},     // 700 KB, inside
    {"2026-03-15 09:00:00", "B", "Movil", 900, 200, "1.1"},   // 76 KB past: the minimum
    {"2026-03-21 09:00:00", "B", "Movil", 10, 0, "1"},        // a new cycle for B
    {"2026-03-05 10:00:00", "A", "Movil", 1000, 100, "1.1"},  // 1100 KB: 76 past
    {"2026-03-16 10:00:00", "A", "Fijo", 5000, 0, "2"},       // no plan: time only
    {"2026-03-17 10:00:00", "A", "Movil", 5, 0, "1.1"},       // 10 KB, all past
};

TEST_F(PlanesRegistro, CadaLlamadaPagaSuTiempoMasSuVolumenEnOrdenDeInicio) {
    Escribir(RutaPlanes(dir), planes);
    std::vector<Llamada> enOrden = kFueraDeOrden;
    std::stable_sort(enOrden.begin(), enOrden.end(), [](const Llamada& a, const Llamada& b) {
        return std::string(a.inicio) < b.inicio;
    });
    for (const std::vector<Llamada>& llamadas : {kFueraDeOrden, enOrden}) {
        const Log log = Recalcular(llamadas);
        for (int i = 0; i < log.Count(); ++i) {
            const Llamada& l = llamadas[static_cast<std::size_t>(i)];
            EXPECT_EQ(log.importe(i), l.importe) << l.inicio;
        }
    }
}

TEST_F(PlanesRegistro, SinArchivoDePlanesSoloElTiempo) {
    const Log log = Recalcular(kFueraDeOrden);
    for (int i = 0; i < log.Count(); ++i) {
        EXPECT_EQ(log.importe(i), i == 5 ? "2" : "1");
    }
    // A damaged plan file stops the re-pricing and changes nothing.
    Escribir(RutaPlanes(dir), R"({"formato":"vorimesk-planes","version":1,"planes":[{}]})");
    Log otro(dir);
    otro.AñadirItem(Fecha::Crear(2026, 3, 1), Fecha(), "00:01:00", "99", 0, "Movil", "A", "", 0, 1,
                    1);
    cBono bono;
    EXPECT_THROW(otro.ModificarLog(bono, {}), ErrorPlanes);
    EXPECT_EQ(otro.importe(0), "99");
}

} // namespace
