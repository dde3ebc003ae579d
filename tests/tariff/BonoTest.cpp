#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Errores.h"
#include "tariff/cBono.h"

using namespace vorimesk;
using namespace prueba;

TEST(Bono, UnLibroNuevo) {
    const RelojFijo reloj(Fecha::Crear(2026, 4, 15, 10, 30, 0));
    cBono bono(reloj);
    EXPECT_EQ(bono.DiaFactura(), 1);
    EXPECT_EQ(bono.DarAlta(3), 0);
    EXPECT_EQ(bono.Nombre(0) + " " + bono.tiempo(0), "50NOCHE 50:00:00");
    EXPECT_EQ(bono.Alta(0), Fecha::Crear(2026, 4, 15)); // hoy, sin la hora
    EXPECT_EQ(bono.Baja(0), FechaVariante::Vacia());
    EXPECT_EQ(bono.Grupo(0), 1);
    EXPECT_EQ(bono.DarAlta(0, Fecha::Crear(2026, 1, 1)), 1);
    EXPECT_THROW(bono.DarAlta(4), ErrorIndice);
    EXPECT_THROW(bono.Nombre(3), ErrorIndice);
    EXPECT_EQ(bono.Nombre(2), ""); // el hueco de reserva
    EXPECT_EQ(bono.Count(), 2);
}

TEST(Bono, TotalesPorTipoYGrupo) {
    cBono bono;
    bono.DarAlta(2);
    bono.DarAlta(3);
    bono.DarAlta(3);
    EXPECT_TRUE(bono.EstaVacioGrupo(cBono::kGrupoDia));
    EXPECT_TRUE(bono.EstaVacioTipo(0));
    EXPECT_EQ(std::tuple(bono.CountGrupo(1), bono.CountTipo(3)), std::tuple(3, 2));
    EXPECT_EQ(bono.TotalTiempoGrupo(1), "110:00:00");
    EXPECT_EQ(bono.TotalTiempoTipo(3), "100:00:00");
    bono.tiempo(1, "0:90:00"); // como lo escribio el usuario
    EXPECT_EQ(bono.tiempo(1), "00:90:00");
    EXPECT_EQ(bono.TotalTiempoGrupo(1), "61:30:00");
    EXPECT_EQ(bono.TiempoGastadoGrupo(1), "48:30:00");
}

TEST(Bono, SeGastaPrimeroElMasAntiguo) {
    cBono bono;
    bono.DarAlta(1, Fecha::Crear(2026, 3, 1));
    bono.DarAlta(0, Fecha::Crear(2026, 2, 1));
    bono.DarAlta(2, Fecha::Crear(2026, 1, 1)); // de noche: no cuenta para el dia
    EXPECT_EQ(bono.Cual(0), 1);
    EXPECT_EQ(bono.Restar(0, 0) + bono.Restar(0, -5), 0);
    EXPECT_EQ(bono.tiempo(1), "10:00:00");
    EXPECT_EQ(bono.Restar(0, 9 * 3600), 9 * 3600);
    EXPECT_EQ(bono.tiempo(1), "01:00:00");
    EXPECT_EQ(bono.Restar(0, 2 * 3600), 2 * 3600); // se acaba y sigue el siguiente
    EXPECT_EQ(bono.tiempo(1), "00:00:00");
    EXPECT_EQ(bono.tiempo(0), "49:00:00");
    EXPECT_EQ(bono.Cual(0), 0);
    EXPECT_EQ(bono.Restar(0, 50 * 3600), 49 * 3600); // solo lo que queda
    EXPECT_EQ(bono.Cual(0), -1);
    EXPECT_EQ(bono.tiempo(2), "10:00:00");
    // Con la misma fecha de alta manda el orden del libro.
    bono.DarAlta(2, Fecha::Crear(2026, 1, 1));
    EXPECT_EQ(bono.Restar(1, 60), 60);
    EXPECT_EQ(bono.tiempo(2), "09:59:00");
    EXPECT_EQ(bono.tiempo(3), "10:00:00");
}

TEST(Bono, ReponerLimpiarYCopiar) {
    cBono bono;
    bono.DiaFactura(20);
    bono.DarAlta(0, Fecha::Crear(2026, 1, 10)); // sigue
    bono.DarAlta(0, Fecha::Crear(2026, 1, 10)); // se dio de baja antes del periodo
    bono.DarAlta(0, Fecha::Crear(2026, 3, 5));  // aun no estaba de alta
    bono.Baja(1, FechaVariante::De(Fecha::Crear(2026, 2, 10)));
    bono.Restar(0, 30 * 3600);
    EXPECT_TRUE(bono.BajaPer(1, Fecha::Crear(2026, 2, 21)));
    EXPECT_FALSE(bono.BajaPer(1, Fecha::Crear(2026, 2, 10)));
    EXPECT_FALSE(bono.BajaPer(0, Fecha::Crear(2026, 2, 21)));

    cBono copia;
    copia.Copiar(bono);
    copia.Reset(Fecha::Crear(2026, 2, 21));
    EXPECT_EQ(std::tuple(copia.tiempo(0), copia.tiempo(1), copia.tiempo(2)),
              std::tuple("10:00:00", "00:00:00", "00:00:00"));
    EXPECT_EQ(copia.DiaFactura(), 20);
    EXPECT_EQ(bono.TotalTiempoGrupo(0), "00:00:00"); // el original no cambia

    bono.Reset();
    EXPECT_EQ(bono.TotalTiempoGrupo(0), "30:00:00");
    bono.Limpiar();
    EXPECT_EQ(bono.Count(), 0);
    EXPECT_EQ(bono.DiaFactura(), 20);
}

namespace {

class BonoNet : public CarpetaTemporal {
protected:
    void SetUp() override {
        PonerTarifa(libro, "Local", "10", "00:00:00", Laborable("3", "1.5"), TodoReducido("1.5"),
                    TodoReducido("1.5"));
        PonerTarifa(libro, "BonoNet", "10", "00:00:00", Laborable("3", "1.5"), TodoReducido("1.5"),
                    TodoReducido("1.5"));
    }
    cLlamada libro{dir};
};

Fecha Lunes(int h, int m, int s = 0) {
    return Fecha::Crear(2026, 3, 2, h, m, s);
}

} // namespace

TEST_F(BonoNet, UnaLlamadaQueCabeEnElBonoSoloPagaElEstablecimiento) {
    cBono programa;
    programa.DarAlta(0, Fecha::Crear(2026, 3, 1));
    ASSERT_TRUE(libro.Datos(Lunes(10, 0), Lunes(11, 0), &programa, "Local"));
    EXPECT_FLOAT_EQ(libro.importe(), 10.0f);
    EXPECT_TRUE(libro.BonoNetActual());
    EXPECT_TRUE(libro.BonoNet());
    EXPECT_EQ(libro.SegundosBono(), 3600);
    EXPECT_EQ(programa.tiempo(0), "10:00:00"); // se calcula sobre una copia
    libro.TraspasarBono(programa);
    EXPECT_EQ(programa.tiempo(0), "09:00:00");

    // Without the ledger nothing is discounted, nor handed over after.
    libro.Datos(Lunes(10, 0), Lunes(10, 1), nullptr, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 13.0f);
    EXPECT_EQ(libro.SegundosBono(), 0);
    libro.TraspasarBono(programa);
    EXPECT_EQ(programa.tiempo(0), "09:00:00");
}

TEST_F(BonoNet, ElBonoSeAcabaEnMitadDeUnTramo) {
    cBono programa;
    programa.DarAlta(0, Fecha::Crear(2026, 3, 1));
    programa.tiempo(0, "00:00:30");
    libro.Datos(Lunes(10, 0), Lunes(10, 2), &programa, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 14.5f); // 90 s a 3
    EXPECT_TRUE(libro.BonoNetActual());
    EXPECT_FALSE(libro.BonoNet());
    EXPECT_EQ(libro.SegundosBono(), 30);
    // El bono de dia no cubre la noche: de 17:59 a 18:01 solo el primer minuto.
    libro.Datos(Lunes(17, 59), Lunes(18, 1), &programa, "Local");
    EXPECT_FLOAT_EQ(libro.importe(), 13.0f); // 10 + 1.5 + 1.5
}

TEST_F(BonoNet, UnaLlamadaEntreDosPeriodosEstrenaBonos) {
    // Dia de factura 1: el periodo impar acaba el 1 de mayo a las 23:59:59.
    // Sabado 2 de mayo a medianoche: todo es noche.
    cBono programa;
    programa.DarAlta(2, Fecha::Crear(2026, 3, 1));
    programa.tiempo(0, "00:10:00");
    libro.Datos(Fecha::Crear(2026, 5, 1, 23, 30, 0), Fecha::Crear(2026, 5, 2, 0, 30, 0), &programa,
                "Local");
    // 1799 s en el primer periodo (600 de bono); el segundo 23:59:59-00:00:00
    // no se cobra; media hora en el siguiente, cubierta por el bono renovado.
    EXPECT_FLOAT_EQ(libro.importe(), 39.975f);
    EXPECT_EQ(libro.SegundosBono(), 600 + 1800);
    libro.TraspasarBono(programa);
    EXPECT_EQ(programa.tiempo(0), "09:30:00");
}
