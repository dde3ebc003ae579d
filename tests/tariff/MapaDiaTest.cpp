#include "tariff/MapaDia.h"

#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Fecha.h"

#include <random>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

constexpr std::int32_t H = 3600;
using C = Cobertura;

} // namespace

TEST(MapaDia, TramosDeDiasTipicosYDefectuosos) {
    // Dia laborable limpio: la reducida es justo lo que deja la normal.
    EXPECT_EQ(MapaDia({8 * H, 18 * H - 1, 18 * H, 8 * H - 1}),
              (std::vector<TramoDia>{{0, 8 * H, C::Reducida},
                                     {8 * H, 18 * H, C::Normal},
                                     {18 * H, 86400, C::Reducida}}));
    // Normal vacia y reducida de todo el dia (los festivos del libro de serie).
    EXPECT_EQ(MapaDia({0, 0, 0, 86399}), (std::vector<TramoDia>{{0, 86400, C::Reducida}}));
    // Reducida que empieza tarde y acaba tarde: hueco por la tarde, solape por la manana.
    EXPECT_EQ(MapaDia({8 * H, 18 * H - 1, 19 * H, 8 * H + 1800}),
              (std::vector<TramoDia>{{0, 8 * H, C::Reducida},
                                     {8 * H, 8 * H + 1801, C::Solape},
                                     {8 * H + 1801, 18 * H, C::Normal},
                                     {18 * H, 19 * H, C::SinFranja},
                                     {19 * H, 86400, C::Reducida}}));
    // Normal hasta el ultimo segundo y reducida vacia.
    EXPECT_EQ(MapaDia({20 * H, 86399, 5, 5}),
              (std::vector<TramoDia>{{0, 20 * H, C::SinFranja}, {20 * H, 86400, C::Normal}}));
    // Normal al reves: no vale nada; con la reducida vacia no queda ninguna franja.
    EXPECT_EQ(MapaDia({18 * H, 8 * H, 0, 0}), (std::vector<TramoDia>{{0, 86400, C::SinFranja}}));
    // Un solo segundo de franja normal.
    EXPECT_EQ(MapaDia({0, 1, 2, 86399}),
              (std::vector<TramoDia>{{0, 2, C::Normal}, {2, 86400, C::Reducida}}));
}

// The strip and the warnings must say what pricing does: a moment is in the
// normal band for the map exactly when a call starting then starts normal.
class MapaYPrecio : public prueba::CarpetaTemporal {};

TEST_F(MapaYPrecio, LaFranjaNormalDelMapaEsLaDelCalculo) {
    std::mt19937 azar(7);
    std::uniform_int_distribution<std::int32_t> hora(0, 86399);
    const auto texto = [](std::int32_t s) {
        char t[16];
        std::snprintf(t, sizeof t, "%02d:%02d:%02d", s / 3600, s / 60 % 60, s % 60);
        return std::string(t);
    };
    for (int caso = 0; caso < 40; ++caso) {
        FranjasDia f{hora(azar), hora(azar), hora(azar), hora(azar)};
        if (caso % 4 == 0) {
            f.normalFin = f.normalInicio; // normal vacia
        }
        if (caso % 5 == 0) {
            f.reducidaFin = f.reducidaInicio; // reducida vacia
        }
        cLlamada libro(dir);
        const prueba::Dia d{{"2", texto(f.normalInicio), texto(f.normalFin)},
                            {"1", texto(f.reducidaInicio), texto(f.reducidaFin)}};
        prueba::PonerTarifa(libro, "T", "0", "00:00:00", d, d, d);
        libro.Save();
        const auto mapa = MapaDia(f);
        for (const TramoDia& t : mapa) {
            for (std::int32_t s : {t.desde, t.hasta - 1, (t.desde + t.hasta) / 2}) {
                const Fecha lunes = Fecha::Crear(2026, 3, 2).MasSegundos(s);
                ASSERT_TRUE(libro.Datos(lunes, lunes, nullptr, "T"));
                const bool normal = t.cobertura == C::Normal || t.cobertura == C::Solape;
                EXPECT_EQ(libro.TipoActual() == 0, normal) << "caso " << caso << " s " << s;
                if (!normal) {
                    EXPECT_EQ(libro.TipoActual() == -1, ReducidaVacia(f));
                }
            }
        }
    }
}
