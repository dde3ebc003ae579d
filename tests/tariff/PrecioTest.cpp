#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Archivo.h"

#include <tuple>

using namespace vorimesk;
using namespace prueba;

namespace {

// 2 Mar 2026 is a Monday; 7 Mar a Saturday, 8 Mar a Sunday.
Fecha Lunes(int h, int m, int s = 0) {
    return Fecha::Crear(2026, 3, 2, h, m, s);
}

class Precio : public CarpetaTemporal {
protected:
    void SetUp() override {
        // Each day type has its own prices so the test can tell which was used.
        PonerTarifa(libro, "Local", "10", "00:00:00", Laborable("3", "1.5"),
                    {{"5", "08:00:00", "13:59:59"}, {"2", "14:00:00", "07:59:59"}},
                    TodoReducido("0.75"));
        PonerTarifa(libro, "Noche", "1", "00:00:00", Laborable("1", "1"), TodoReducido("1"),
                    TodoReducido("1"));
    }
    cLlamada libro{dir};
};

} // namespace

TEST_F(Precio, LosExtremosDeLaFranjaNormalSonInclusivos) {
    ASSERT_TRUE(libro.Datos(Lunes(17, 59, 0), Lunes(18, 1, 0), nullptr, "Local"));
    EXPECT_FLOAT_EQ(libro.importe(), 14.5f); // 10 + 3 + 1.5
    EXPECT_EQ(std::tuple(libro.TipoActual(), libro.Tipo()), std::tuple(0, 1));
    EXPECT_EQ(libro.Duracion(), "00:02:00");

    libro.Datos(Lunes(17, 59, 59), Lunes(18, 0, 0), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.05f);
    EXPECT_EQ(libro.Tipo(), 1); // 18:00:00 ya es reducida

    libro.Datos(Lunes(7, 59, 59), Lunes(8, 0, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.075f);
    EXPECT_EQ(std::tuple(libro.TipoActual(), libro.Tipo()), std::tuple(1, 0));
}

TEST_F(Precio, LaReducidaCruzaLaMedianoche) {
    // 23:00 -> 09:00 del martes: nueve horas de reducida y una de normal.
    libro.Datos(Lunes(23, 0), Fecha::Crear(2026, 3, 3, 9, 0, 0), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 1000.0f); // 10 + 540 min a 1.5 + 60 a 3
    EXPECT_EQ(libro.Duracion(), "10:00:00");
    // Una franja que acaba a las 23:59:59 llega hasta la medianoche: domingo
    // 23:00 -> lunes 01:00 es una hora de festivo y otra de laborable.
    libro.Datos(Fecha::Crear(2026, 3, 8, 23, 0, 0), Fecha::Crear(2026, 3, 9, 1, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 145.0f); // 10 + 45 + 90
}

TEST_F(Precio, ElTipoDeDiaSeTomaAlEmpezarCadaTramo) {
    // Viernes 20:00 -> sabado 10:00: la reducida del viernes llega hasta las
    // 08:00 del sabado al precio del viernes; luego normal de sabado.
    libro.Datos(Fecha::Crear(2026, 3, 6, 20, 0, 0), Fecha::Crear(2026, 3, 7, 10, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 1690.0f); // 10 + 1080 + 600
    // Sabado 20:00 -> domingo 09:00: la reducida del sabado hasta las 08:00
    // y despues la de festivo.
    libro.Datos(Fecha::Crear(2026, 3, 7, 20, 0, 0), Fecha::Crear(2026, 3, 8, 9, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 1495.0f); // 10 + 1440 + 45
}

TEST_F(Precio, DomingosYFestivosDeSuAñoUsanLasFranjasDeFestivo) {
    EXPECT_EQ(libro.TipoDia(Fecha::Crear(2026, 3, 8, 12, 0, 0)), 2);
    libro.Festivos({Fecha::Crear(2026, 3, 2)});
    EXPECT_EQ(libro.TipoDia(Lunes(12, 0)), 2);
    EXPECT_EQ(libro.TipoDia(Fecha::Crear(2027, 3, 2, 12, 0, 0)), 0); // no se repite cada año
    libro.Datos(Lunes(10, 0), Lunes(10, 10), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 17.5f);
    EXPECT_EQ(libro.TipoActual(), 1);
}

TEST_F(Precio, ElTiempoIncluidoSeLeeComoMinutosYSegundos) {
    libro.Valor(0, "Conexion.Tiempo", "00:03:30"); // 00:03 se lee 3 segundos
    libro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 12.85f); // 57 s a 3

    libro.Valor(0, "Conexion.Tiempo", "03:30"); // 3 minutos 30 segundos
    libro.Datos(Lunes(10, 0), Lunes(10, 5), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 14.5f); // 90 s a 3
    // Llamada mas corta que el tiempo incluido: solo el establecimiento.
    libro.Datos(Lunes(10, 0), Lunes(10, 2), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f);
    EXPECT_EQ(libro.Duracion(), "00:02:00");
    // Un fin anterior al inicio tampoco tiene tramos.
    libro.Datos(Lunes(10, 0), Lunes(9, 0), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f);
}

TEST_F(Precio, FranjasVacias) {
    // Normal vacia (inicio = fin): todo es reducida. Reducida vacia: -1.
    libro.Valor(0, "Semana.Normal.Fin", "08:00:00");
    libro.Valor(0, "Semana.Reducida.Fin", "18:00:00");
    libro.Datos(Lunes(12, 0), Lunes(12, 1), nullptr, "Local");
    EXPECT_EQ(libro.TipoActual(), -1);
    EXPECT_FLOAT_EQ(libro.importe(), 11.5f);
    libro.Valor(0, "Semana.Reducida.Fin", "07:59:59");
    libro.Datos(Lunes(12, 0), Lunes(12, 1), nullptr, "Local");
    EXPECT_EQ(libro.TipoActual(), 1);
}

TEST_F(Precio, UnaTarifaDesconocidaNoCambiaNada) {
    libro.NombreTarifa("Local");
    ASSERT_TRUE(libro.Datos(Lunes(17, 59), Lunes(18, 1)));
    const float antes = libro.importe();
    EXPECT_FALSE(libro.Datos(Lunes(1, 0), Lunes(3, 0), nullptr, "Ninguna"));
    libro.NombreTarifa("");
    EXPECT_FALSE(libro.Datos(Lunes(1, 0), Lunes(3, 0)));
    EXPECT_EQ(libro.importe(), antes);
    EXPECT_EQ(libro.Duracion(), "00:02:00");
    EXPECT_EQ(std::tuple(libro.TipoActual(), libro.Tipo()), std::tuple(0, 1));
}

TEST_F(Precio, ElArchivoSeReleeEnCadaCalculo) {
    libro.Save();
    cLlamada otro(dir);
    otro.Valor(0, "Nombre", "Local"); // el hueco de reserva, sin archivo cargado
    otro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(otro.importe(), 13.0f);
    libro.Valor(0, "Conexion.Importe", "20");
    libro.Save();
    otro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(otro.importe(), 23.0f);
}

TEST_F(Precio, SeSumaEnPrecisionSimple) {
    // 72 horas en siete tramos: 11.72 + 719.975 + 3 x 1800 + 2 x 1260 +
    // 540.025 = 9191.72 a mano. Sumados uno a uno en float sobre el
    // establecimiento dan 9191.7207; sumarlos al final daria 9191.7197.
    libro.Valor(0, "Conexion.Importe", "11.72");
    const Fecha inicio = Lunes(0, 0, 1);
    libro.Datos(inicio, inicio.MasSegundos(72 * 3600), nullptr, "Local");
    EXPECT_EQ(libro.importe(), 9191.7207f);
    EXPECT_EQ(libro.Duracion(), "72:00:00");
}

TEST_F(Precio, LaNocheBonoNetSeMiraEnLaTarifaDelIndiceUno) {
    // "Noche" (indice 1) llama normal al dia laborable: a las 12:00 es dia
    // aunque la tarifa calculada sea otra.
    cBono bono;
    bono.DarAlta(0, Fecha::Crear(2026, 1, 1));
    libro.Datos(Lunes(12, 0), Lunes(19, 0), &bono, "Local");
    EXPECT_TRUE(libro.BonoNetActual());
    EXPECT_FALSE(libro.BonoNet()); // a las 19:00 es noche y no hay bono de noche
    // Con una sola tarifa se mira el hueco vacio: siempre es noche.
    libro.Delete(1);
    libro.Datos(Lunes(12, 0), Lunes(12, 1), &bono, "Local");
    EXPECT_FALSE(libro.BonoNetActual());
    // Con dos tarifas no hay indice 3; con tres es el hueco; con cuatro, una
    // tarifa: la segunda prueba nunca cambia el resultado ni falla.
    for (const char* nombre : {"Noche", "Otra", "Mas"}) {
        PonerTarifa(libro, nombre, "1", "00:00:00", Laborable("1", "1"), TodoReducido("1"),
                    TodoReducido("1"));
        EXPECT_TRUE(libro.Datos(Lunes(12, 0), Lunes(12, 1), &bono, "Local"));
        EXPECT_TRUE(libro.BonoNetActual()) << libro.Count();
    }
}
