// El temporizador del reloj: la fecha y la hora, el aviso "A la hora" y la
// renovacion mensual de los bonos.

#include "Banco.h"

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

Fecha Dia(int mes, int dia, int hora = 0, int minuto = 0, int segundo = 0) {
    return Fecha::Crear(2024, mes, dia, hora, minuto, segundo);
}

class AvisoHora : public ::testing::Test {
protected:
    AvisoHora() {
        ajustes.AvisoHora = true;
        ajustes.HoraAviso = Fecha::Crear(1899, 12, 30, 14, 30, 0);
        ajustes.MesReinicio = 3; // que no renueve nada aqui
    }
    bool Suena(Fecha ahora) { return hora.Tick(ahora, ajustes, bono).Sonar; }

    Settings ajustes;
    cBono bono;
    ControlHora hora;
};

TEST_F(AvisoHora, SuenaUnaVezAlPasarLaHoraCadaDia) {
    EXPECT_FALSE(Suena(Dia(3, 6, 14, 29, 58)));
    EXPECT_FALSE(Suena(Dia(3, 6, 14, 29, 59)));
    EXPECT_TRUE(Suena(Dia(3, 6, 14, 30, 0)));
    EXPECT_FALSE(Suena(Dia(3, 6, 14, 30, 1)));
    EXPECT_FALSE(Suena(Dia(3, 6, 23, 59, 59)));
    EXPECT_FALSE(Suena(Dia(3, 7, 0, 0, 0)));
    EXPECT_TRUE(Suena(Dia(3, 7, 14, 30, 5))); // el reloj salto por encima
    EXPECT_FALSE(Suena(Dia(3, 7, 18, 0, 0)));
}

TEST_F(AvisoHora, NoSuenaAlArrancarDespuesDeLaHoraNiConLaOpcionQuitada) {
    EXPECT_FALSE(Suena(Dia(3, 6, 15, 0, 0))); // el primer tick solo toma nota
    EXPECT_FALSE(Suena(Dia(3, 6, 15, 0, 1)));
    ajustes.AvisoHora = false;
    EXPECT_FALSE(Suena(Dia(3, 7, 14, 29, 59)));
    EXPECT_FALSE(Suena(Dia(3, 7, 14, 30, 0)));
    ajustes.AvisoHora = true; // marcada despues de la hora: hasta mañana nada
    EXPECT_FALSE(Suena(Dia(3, 7, 14, 30, 1)));
    EXPECT_TRUE(Suena(Dia(3, 8, 14, 30, 0)));
}

TEST(ControlHora, TextosDeFechaYHora) {
    EXPECT_EQ(ControlHora::TextoFecha(Dia(3, 6, 9, 5, 7)), "06-mar-2024");
    EXPECT_EQ(ControlHora::TextoFecha(Dia(12, 31)), "31-dic-2024");
    EXPECT_EQ(ControlHora::TextoHora(Dia(3, 6, 9, 5, 7)), "09:05:07");
}

TEST(ControlHora, InicioDelPeriodoEnCurso) {
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(3, 15, 10), 15), Dia(3, 15));
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(3, 14, 23), 15), Dia(2, 15));
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(1, 5), 10), Fecha::Crear(2023, 12, 10));
    // Un dia que el mes no tiene es su ultimo dia.
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(2, 29, 8), 31), Dia(2, 29));
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(2, 28), 31), Dia(1, 31));
    EXPECT_EQ(ControlHora::InicioPeriodo(Dia(4, 30), 31), Dia(4, 30));
}

class Renovacion : public ::testing::Test {
protected:
    Renovacion() {
        bono.DiaFactura(15);
        bono.DarAlta(0, Dia(1, 1));
        bono.tiempo(0, "02:00:00");
    }
    bool Renueva(Fecha ahora) { return hora.Tick(ahora, ajustes, bono).Renovado; }

    Settings ajustes;
    cBono bono;
    ControlHora hora;
};

TEST_F(Renovacion, UnaVezAlMesEnElDiaDeFactura) {
    ajustes.MesReinicio = 2;
    EXPECT_FALSE(Renueva(Dia(3, 14, 23, 59, 59)));
    EXPECT_EQ(bono.tiempo(0), "02:00:00");
    EXPECT_TRUE(Renueva(Dia(3, 15, 0, 0, 1)));
    EXPECT_EQ(bono.tiempo(0), "10:00:00");
    EXPECT_EQ(ajustes.MesReinicio, 3);
    bono.tiempo(0, "04:00:00"); // se gasta durante el mes
    EXPECT_FALSE(Renueva(Dia(3, 20)));
    EXPECT_FALSE(Renueva(Dia(4, 14)));
    EXPECT_EQ(bono.tiempo(0), "04:00:00");
    EXPECT_TRUE(Renueva(Dia(4, 15)));
    EXPECT_EQ(ajustes.MesReinicio, 4);
}

TEST_F(Renovacion, SeRecuperaLaQueNoSeHizoConElProgramaCerrado) {
    ajustes.MesReinicio = 1;
    EXPECT_TRUE(Renueva(Dia(3, 10))); // el periodo empezo el 15 de febrero
    EXPECT_EQ(ajustes.MesReinicio, 2);
    EXPECT_EQ(bono.tiempo(0), "10:00:00");
    EXPECT_FALSE(Renueva(Dia(3, 11)));
}

TEST_F(Renovacion, ElMonitorLaAnunciaYMuestraLaFecha) {
    RelojFijo reloj(Dia(3, 20, 12));
    colConexion pendientes;
    RegistroFalso registro;
    MarcadorFalso marcador;
    ajustes.MesReinicio = 2;
    MonitorConexion monitor(reloj, ajustes, bono, pendientes, registro, marcador, "/nada");
    const auto s = monitor.TickHora();
    ASSERT_EQ(s.size(), 1u);
    EXPECT_EQ(s[0].tipo, SucesoMonitor::Tipo::BonoRenovado);
    EXPECT_EQ(monitor.Pantalla().FechaHoy, "20-mar-2024");
    EXPECT_EQ(monitor.Pantalla().HoraAhora, "12:00:00");
    EXPECT_TRUE(monitor.TickHora().empty());

    ajustes.AvisoHora = true;
    ajustes.HoraAviso = Fecha::Crear(1899, 12, 30, 12, 0, 30);
    ajustes.SonidoAviso = "campana.wav";
    reloj.Avanzar(40);
    const auto h = monitor.TickHora();
    ASSERT_EQ(h.size(), 1u);
    EXPECT_EQ(h[0], (SucesoMonitor{SucesoMonitor::Tipo::Sonar, "campana.wav", MotivoAviso::Hora}));
}

} // namespace
