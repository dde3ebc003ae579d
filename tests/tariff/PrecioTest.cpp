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
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(3, 60) + Tramo(1.5, 60));
    EXPECT_EQ(std::tuple(libro.TipoActual(), libro.Tipo()), std::tuple(0, 1));
    EXPECT_EQ(libro.Duracion(), "00:02:00");

    libro.Datos(Lunes(17, 59, 59), Lunes(18, 0, 0), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(3, 1));
    EXPECT_EQ(libro.Tipo(), 1); // 18:00:00 ya es reducida

    libro.Datos(Lunes(7, 59, 59), Lunes(8, 0, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(1.5, 1) + Tramo(3, 1));
    EXPECT_EQ(std::tuple(libro.TipoActual(), libro.Tipo()), std::tuple(1, 0));
}

TEST_F(Precio, LaReducidaCruzaLaMedianoche) {
    // 23:00 -> 09:00 del martes: nueve horas de reducida y una de normal.
    libro.Datos(Lunes(23, 0), Fecha::Crear(2026, 3, 3, 9, 0, 0), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(1.5, 9 * 3600) + Tramo(3, 3600));
    EXPECT_EQ(libro.Duracion(), "10:00:00");
    // Una franja que acaba a las 23:59:59 llega hasta la medianoche: domingo
    // 23:00 -> lunes 01:00 es una hora de festivo y otra de laborable.
    libro.Datos(Fecha::Crear(2026, 3, 8, 23, 0, 0), Fecha::Crear(2026, 3, 9, 1, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(0.75, 3600) + Tramo(1.5, 3600));
}

TEST_F(Precio, ElTipoDeDiaSeTomaAlEmpezarCadaTramo) {
    // Viernes 20:00 -> sabado 10:00: la reducida del viernes llega hasta las
    // 08:00 del sabado al precio del viernes; luego normal de sabado.
    libro.Datos(Fecha::Crear(2026, 3, 6, 20, 0, 0), Fecha::Crear(2026, 3, 7, 10, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(1.5, 12 * 3600) + Tramo(5, 2 * 3600));
    // Sabado 20:00 -> domingo 09:00: la reducida del sabado hasta las 08:00
    // y despues la de festivo.
    libro.Datos(Fecha::Crear(2026, 3, 7, 20, 0, 0), Fecha::Crear(2026, 3, 8, 9, 0, 0), nullptr,
                "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(2, 12 * 3600) + Tramo(0.75, 3600));
}

TEST_F(Precio, DomingosYFestivosDeSuAñoUsanLasFranjasDeFestivo) {
    EXPECT_EQ(libro.TipoDia(Fecha::Crear(2026, 3, 8, 12, 0, 0)), 2);
    libro.Festivos({Fecha::Crear(2026, 3, 2)});
    EXPECT_EQ(libro.TipoDia(Lunes(12, 0)), 2);
    EXPECT_EQ(libro.TipoDia(Fecha::Crear(2027, 3, 2, 12, 0, 0)), 0); // no se repite cada año
    libro.Datos(Lunes(10, 0), Lunes(10, 10), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(0.75, 600));
    EXPECT_EQ(libro.TipoActual(), 1);
}

TEST_F(Precio, ElTiempoIncluidoSeLeeComoMinutosYSegundos) {
    libro.Valor(0, "Conexion.Tiempo", "00:03:30"); // 00:03 se lee 3 segundos
    libro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(3, 57));

    libro.Valor(0, "Conexion.Tiempo", "03:30"); // 3 minutos 30 segundos
    libro.Datos(Lunes(10, 0), Lunes(10, 5), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(3, 90));
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
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f + Tramo(1.5, 60));
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
    EXPECT_FLOAT_EQ(otro.importe(), 10.0f + Tramo(3, 60));
    libro.Valor(0, "Conexion.Importe", "20");
    libro.Save();
    otro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(otro.importe(), 20.0f + Tramo(3, 60));
}

TEST_F(Precio, SeSumaEnPrecisionSimple) {
    // 72 horas en siete tramos, sumados uno a uno en float sobre el
    // establecimiento: sumarlo al final daria otro ultimo decimal.
    libro.Valor(0, "Conexion.Importe", "11.72");
    const Fecha inicio = Lunes(0, 0, 1);
    const Fecha fin = inicio.MasSegundos(72 * 3600);
    libro.Datos(inicio, fin, nullptr, "Local");
    float esperado = 11.72f + Tramo(1.5, 8 * 3600 - 1);
    for (int dia = 0; dia < 2; ++dia) {
        esperado += Tramo(3, 10 * 3600);
        esperado += Tramo(1.5, 14 * 3600);
    }
    esperado += Tramo(3, 10 * 3600);
    esperado += Tramo(1.5, 6 * 3600 + 1);
    EXPECT_EQ(libro.importe(), esperado);
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
