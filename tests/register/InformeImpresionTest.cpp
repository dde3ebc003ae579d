#include "register/InformeImpresion.h"

#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "register/ListadoRegistro.h"
#include "tariff/cLlamada.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

// Where column n (counted from 1) starts in a line.
std::string Desde(const std::string& linea, int columna) {
    return linea.substr(static_cast<std::size_t>(columna - 1));
}

FilaRegistro Fila(std::string tarifa, std::string conexion) {
    return {"02/03/2026", "21:05:09", "00:12:00", "1234",         tarifa,
            "Reducida",   "No",       conexion,   "123456789012", "8"};
}

} // namespace

TEST(InformeRegistro, TitulosCortadosYCeldasEnColumnasDeDoce) {
    Listado totales;
    totales.NumeroLlamadas = 1;
    totales.TotalTiempo = cTiempo("00:12:00");
    totales.TotalCoste = 1234;
    const auto l = InformeRegistro({Fila("Metro", "Casa")},
                                   "Todo el registro (16/02/2026 - 15/03/2026)", totales);
    ASSERT_EQ(l.size(), 6u);
    EXPECT_EQ(l[0], "Registro de llamadas");
    EXPECT_EQ(l[1], "Todo el registro (16/02/2026 - 15/03/2026)");
    EXPECT_EQ(l[5], "Total  Llamadas: 1  Duracion: 00:12:00  Gasto: 1.234");
    EXPECT_EQ(l[2], "Dia        Hora        Duracion    Coste       Tarifa      Tipo        "
                    "Bono        Conexion    Kbs Recibi  Kbs Enviad");
    // La columna c empieza en c * 12; la primera, en la 1.
    const std::string& fila = l[3];
    EXPECT_EQ(fila.substr(0, 10), "02/03/2026");
    EXPECT_EQ(Desde(fila, 12).substr(0, 8), "21:05:09");
    EXPECT_EQ(Desde(fila, 36).substr(0, 4), "1234"); // el coste no se corta aqui
    EXPECT_EQ(Desde(fila, 48).substr(0, 5), "Metro");
    // Un texto de 12 caracteres llena su columna: el siguiente se separa con
    // un blanco en vez de pegarse.
    EXPECT_EQ(Desde(fila, 96), "123456789012 8");
}

TEST(InformeRegistro, CeldaLargaEmpujaSoloALaSiguiente) {
    const auto l = InformeRegistro({Fila("Interprovincial", "Casa")}, "", Listado{});
    const std::string& fila = l[3];
    EXPECT_EQ(Desde(fila, 48).substr(0, 28), "Interprovincial Reducida No ");
    EXPECT_EQ(Desde(fila, 84).substr(0, 4), "Casa"); // de vuelta en su columna
}

TEST(InformeRegistro, SinFilasSoloCabecera) {
    EXPECT_EQ(InformeRegistro({}, "", Listado{}).back(),
              "Total  Llamadas: 0  Duracion: 00:00:00  Gasto: 0");
    EXPECT_EQ(TextoInforme({"a", "", "b"}), "a\r\n\r\nb\r\n");
}

using InformeTarifasTest = CarpetaTemporal;

TEST_F(InformeTarifasTest, CortesDeTresYCincoYColumnaCuarenta) {
    cLlamada libro(dir);
    const Dia dia = Laborable("1234.5", "1.04");
    PonerTarifa(libro, "Larga", "11.72", "00:03:00", dia, dia, dia);
    const auto l = InformeTarifas(libro);
    ASSERT_EQ(l.size(), 3u + 3u + 6u);
    EXPECT_EQ(l[0], "");
    EXPECT_EQ(l[1], "");
    EXPECT_EQ(l[2], "Tarifas");
    EXPECT_EQ(l[3], "Larga");
    EXPECT_EQ(l[4], "Importe conexion: 11.72");
    EXPECT_EQ(l[5], "Tiempo incluido 00:03 (mm:ss)");
    EXPECT_EQ(l[6], "Semana tarifa normal                   Semana tarifa reducida");
    EXPECT_EQ(l[7], "Coste: 123 Inicio: 08:00 Final: 17:59  "
                    "Coste: 1.0 Inicio: 18:00 Final: 07:59");
    EXPECT_EQ(l[8].substr(0, 20), "Sabado tarifa normal");
    EXPECT_EQ(Desde(l[10], 40), "Festivo tarifa reducida");
}

TEST_F(InformeTarifasTest, LibroVacioSoloTitulo) {
    EXPECT_EQ(InformeTarifas(cLlamada(dir)), (std::vector<std::string>{"", "", "Tarifas"}));
}
