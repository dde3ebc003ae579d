#include "register/ListadoRegistro.h"

#include "CarpetaTemporal.h"
#include "core/FormatoNumero.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

class ListadoRegistroTest : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        registro = std::make_unique<Log>(dir);
        // lunes 2 de marzo de 2026 ... domingo 8 de marzo
        Llamada(Fecha::Crear(2026, 3, 2), "09:00:00", "00:05:00", "100", 0, 0);
        Llamada(Fecha::Crear(2026, 3, 2), "23:30:00", "00:05:01", "7.5", 1, -1);
        Llamada(Fecha::Crear(2026, 3, 7), "06:00:00", "00:04:59", "2.5", 255, 0);
        Llamada(Fecha::Crear(2026, 3, 8), "22:00:00", "01:00:00", "0,5", 1, -1);
    }
    void Llamada(Fecha dia, const char* hora, const char* dur, const char* importe,
                 std::uint8_t tipo, std::int16_t bono) {
        const Fecha h = Fecha::LeerIso(std::string("1899-12-30 ") + hora).value();
        registro->AñadirItem(dia, h, dur, importe, tipo, "Metropolitana", "Casa", "", bono, 10, 20);
    }
    std::vector<int> Indices(const CriteriosFiltro& c) {
        return ListarRegistro(*registro, c, tipoDia, {}, Fecha::Crear(2026, 3, 20)).indices;
    }
    static Fecha Hora(int h, int m = 0) { return Fecha::DesdeSegundos(h * 3600 + m * 60); }

    std::unique_ptr<Log> registro;
    std::vector<Fecha> festivos;
    TipoDiaDe tipoDia = [this](Fecha f) -> std::int16_t {
        for (const Fecha& d : festivos) {
            if (d == f.SoloFecha()) {
                return 2;
            }
        }
        const int dia = f.DiaSemana();
        return dia == 1 ? 2 : dia == 7 ? 1 : 0;
    };
};

using V = std::vector<int>;

} // namespace

TEST_F(ListadoRegistroTest, FechasYHorasInclusivasSinDarLaVuelta) {
    EXPECT_EQ(Indices(CriteriosFiltro::Periodo(Fecha::Crear(2026, 3, 2), Fecha::Crear(2026, 3, 2))),
              (V{0, 1}));
    CriteriosFiltro c;
    c.horaDesde = Hora(22);
    c.horaHasta = Hora(6);
    EXPECT_EQ(Indices(c), V{}); // 22:00 a 06:00 no deja pasar nada
    c.horaDesde = Hora(6);
    c.horaHasta = Hora(22);
    EXPECT_EQ(Indices(c), (V{0, 2, 3}));
    c.horaDesde = kFechaApagada; // -1 apaga el criterio
    c.horaHasta = kFechaApagada;
    EXPECT_EQ(Indices(c), (V{0, 1, 2, 3}));
}

TEST_F(ListadoRegistroTest, DuracionEstrictaEIgualAlSegundo) {
    CriteriosFiltro c;
    c.duracion = "00:05:00";
    for (auto [comparacion, pasan] :
         {std::pair(2, V{0}), {0, V{1, 3}}, {1, V{2}}, {-1, V{0, 1, 2, 3}}}) {
        c.comparacion = comparacion;
        EXPECT_EQ(Indices(c), pasan) << comparacion;
    }
}

TEST_F(ListadoRegistroTest, FranjaBonoYTipoDeDia) {
    CriteriosFiltro c;
    c.tipo = 1;
    EXPECT_EQ(Indices(c), (V{1, 3}));
    c.tipo = 0; // la franja -1 (byte 255) no es "Normal"
    EXPECT_EQ(Indices(c), V{0});
    c = {};
    c.bono = 1;
    EXPECT_EQ(Indices(c), (V{1, 3}));
    c.bono = 0;
    EXPECT_EQ(Indices(c), (V{0, 2}));
    c = {};
    c.tipoDia = 2; // domingo
    EXPECT_EQ(Indices(c), V{3});
    festivos.push_back(Fecha::Crear(2026, 3, 2)); // festivo anadido despues
    EXPECT_EQ(Indices(c), (V{0, 1, 3}));
    c.tipoDia = 1;
    EXPECT_EQ(Indices(c), V{2});
}

TEST_F(ListadoRegistroTest, TotalesImpuestosYPeriodo) {
    OpcionesCoste impuestos{true, 16.0F};
    EXPECT_EQ(CosteMostrado(*registro, 0, impuestos), 116);
    EXPECT_EQ(CosteMostrado(*registro, 1, {}), 8); // 7.5 redondea hacia arriba
    EXPECT_EQ(CosteMostrado(*registro, 2, {}), 3); // 2.5 tambien
    EXPECT_EQ(CosteMostrado(*registro, 3, {}), 1); // "0,5" se lee con coma

    const Listado l = ListarRegistro(*registro, {}, tipoDia, impuestos, Fecha::Crear(2026, 3, 20));
    EXPECT_EQ(l.NumeroLlamadas, 4);
    EXPECT_EQ(l.TotalTiempo.Valor(), "01:15:00");
    EXPECT_EQ(l.TotalCoste, 116 + 9 + 3 + 1);
    // The cost column in cents, as the window shows it: 116 + 8,70 + 2,90 + 0,58.
    EXPECT_EQ(l.TotalCentimos, 11600 + 870 + 290 + 58);
    EXPECT_EQ(CeldasLlamada(*registro, 3, impuestos)[3], "0,58");
    EXPECT_EQ(l.Periodo, "02/03/2026 - 20/03/2026");

    CriteriosFiltro apagado;
    apagado.desde = kFechaApagada;
    EXPECT_EQ(ListarRegistro(*registro, apagado, tipoDia, {}, Fecha()).Periodo, "");

    const auto celdas = CeldasLlamada(*registro, 2, {});
    EXPECT_EQ(celdas[0] + " " + celdas[1] + " " + celdas[5] + " " + celdas[6],
              "07/03/2026 06:00:00 Normal No");
    EXPECT_EQ(CeldasLlamada(*registro, 1, {})[6], "Si");
}

TEST_F(ListadoRegistroTest, RegistroVacioDaTotalesVacios) {
    Log vacio(dir);
    const Listado l = ListarRegistro(vacio, {}, tipoDia, {}, Fecha::Crear(2026, 3, 20));
    EXPECT_EQ(l.NumeroLlamadas, 0);
    EXPECT_EQ(FormatoMiles(l.TotalCoste), "");
    EXPECT_EQ(l.Periodo, "20/03/2026 - 20/03/2026");
}

TEST(FormatoNumero, MilesYDecimales) {
    EXPECT_EQ(FormatoMiles(0), "");
    EXPECT_EQ(FormatoMiles(999), "999");
    EXPECT_EQ(FormatoMiles(1234), "1.234");
    EXPECT_EQ(FormatoMiles(-1234567), "-1.234.567");
    EXPECT_EQ(FormatoDosDecimales(116), "116.00");
    EXPECT_EQ(FormatoDosDecimales(15.256), "15.26");
}

TEST(DiasHastaFacturacion, MesSiguienteYDiasQueNoExisten) {
    EXPECT_EQ(DiasHastaFacturacion(Fecha::Crear(2026, 3, 10), 15), 5);
    EXPECT_EQ(DiasHastaFacturacion(Fecha::Crear(2026, 3, 15, 18), 15), 0);
    EXPECT_EQ(DiasHastaFacturacion(Fecha::Crear(2026, 3, 16), 15), 30);
    EXPECT_EQ(DiasHastaFacturacion(Fecha::Crear(2026, 12, 20), 1), 12);
    // 31 de febrero pasa al 3 de marzo
    EXPECT_EQ(DiasHastaFacturacion(Fecha::Crear(2026, 2, 10), 31), 21);
}
