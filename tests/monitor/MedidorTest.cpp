// El medidor en vivo: precio desde el inicio hasta ahora, impuestos, bandas,
// BonoNet y los tres avisos de umbral.

#include "Banco.h"
#include "monitor/FormatoCoste.h"

#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

constexpr int kConectado = LecturaConexion::kConectado;
constexpr int kDesconectado = LecturaConexion::kDesconectado;

class Medidor : public BancoMonitor {
protected:
    const PantallaMonitor& P() { return Monitor().Pantalla(); }
    // Abre una llamada a "Casa" en el momento del reloj.
    void Empezar() { Tick(kConectado); }
};

TEST_F(Medidor, TasaDesdeElInicioHastaAhora) {
    bono.DarAlta(0, Fecha::Crear(2024, 3, 1)); // sin descuento BonoNet no se toca
    Empezar();
    EXPECT_EQ(P().Tiempo + " " + P().Gasto, "00:00:00 0.00");
    Ticks(60, kConectado);
    // 6 el minuto en banda normal.
    EXPECT_EQ(P().PuntaBandeja, "Vorimesk  Conectado a Casa\n00:01:00  6.00  Normal");
    EXPECT_EQ(P().Bono + P().BonoGastado + P().BonoQueda, "");
    EXPECT_FLOAT_EQ(Monitor().Medida().importe, 6.0f);
    // Cada tick vuelve a tasar desde el principio: la tarifa cambiada a mitad
    // de la llamada cuenta desde su inicio.
    ajustes.EntradasConexion = {{"Casa", "Cara", "Ninguno"}};
    Ticks(1, kConectado);
    EXPECT_EQ(P().Tiempo + " " + P().Gasto, "00:01:01 100.00");
}

// The tariff editor saves the book while a call runs: the next tick prices
// the call with the saved book.
TEST_F(Medidor, ElLibroQueGuardaElEditorCuentaDesdeElTickSiguiente) {
    Empezar();
    Ticks(59, kConectado);
    cLlamada editor(dir);
    editor.Load();
    editor.Valor(editor.Find("Metropolitana"), "Semana.Normal.Importe", "12");
    editor.Save();
    Ticks(1, kConectado);
    EXPECT_EQ(P().Tiempo + " " + P().Gasto, "00:01:00 12.00");
}

TEST_F(Medidor, LosImpuestosSeSumanAlCosteMostrado) {
    ajustes.EntradasConexion = {{"Casa", "Cara", "Ninguno"}};
    ajustes.Impuestos = 16.0f;
    Empezar();
    EXPECT_EQ(P().Gasto, "100.00"); // sin la casilla marcada no se suman
    ajustes.AnadirImpuestos = true;
    Ticks(1, kConectado);
    EXPECT_EQ(P().Gasto, "116.00");
    EXPECT_FLOAT_EQ(Monitor().Medida().importe, 100.0f);
}

TEST(FormatoCoste, DosDecimalesConLasMitadesHaciaArriba) {
    EXPECT_EQ(TextoCoste(116.0f), "116.00");
    EXPECT_EQ(TextoCoste(0.125f), "0.13");
    EXPECT_EQ(TextoCoste(2.675f), "2.67"); // el float esta justo por debajo
    EXPECT_EQ(TextoCoste(-0.001f), "0.00");
    EXPECT_EQ(TextoCoste(1234567.0f), "1234567.00");
    Settings a;
    a.Impuestos = 16.0f;
    EXPECT_FLOAT_EQ(CosteMostrado(100.0f, a), 100.0f);
    a.AnadirImpuestos = true;
    EXPECT_EQ(TextoCoste(CosteMostrado(100.0f, a)), "116.00");
    a.Impuestos = 7.5f;
    EXPECT_EQ(TextoCoste(CosteMostrado(10.0f, a)), "10.75");
}

TEST_F(Medidor, ColorYTextoDeLaBanda) {
    ajustes.ColorSegunTarifa = true;
    reloj.Poner(Miercoles(17, 59, 0));
    Empezar();
    Ticks(2, kConectado);
    EXPECT_EQ(std::tuple(P().Tarifa, P().ColorTiempo), std::tuple("Normal", kColorBandaNormal));
    Ticks(1, kDesconectado);
    reloj.Poner(Miercoles(18, 0, 0));
    Empezar();
    Ticks(2, kConectado);
    EXPECT_EQ(std::tuple(P().Tarifa, P().ColorTiempo), std::tuple("Reducida", kColorBandaReducida));
    EXPECT_NE(kColorBandaNormal, kColorBandaReducida);
    ajustes.ColorSegunTarifa = false;
    Ticks(1, kConectado);
    EXPECT_EQ(P().ColorTiempo, kColorNegro);
}

// La banda y el BonoNet que se ven son los del momento tasado (ahora), no
// los del inicio: a las 18:00:00 la llamada de las 17:59 pasa a "Reducida" y
// el bono de dia deja de valer.
TEST_F(Medidor, LaBandaYElBonoSonLosDeAhoraNoLosDelInicio) {
    ajustes.ColorSegunTarifa = true;
    ajustes.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"}};
    bono.DarAlta(0, Fecha::Crear(2024, 3, 1)); // solo bono de dia
    reloj.Poner(Miercoles(17, 59, 58));
    Empezar();
    Ticks(1, kConectado);
    EXPECT_EQ(std::tuple(P().Tarifa, P().ColorTiempo, P().Bono),
              std::tuple("Normal", kColorBandaNormal, "BonoNet"));
    Ticks(1, kConectado);
    EXPECT_EQ(P().HoraAhora, "18:00:00");
    EXPECT_EQ(std::tuple(P().Tarifa, P().ColorTiempo, P().Bono),
              std::tuple("Reducida", kColorBandaReducida, ""));
    EXPECT_EQ(P().PuntaBandeja.find("BonoNet"), std::string::npos);
    EXPECT_NE(P().PuntaBandeja.find("Reducida"), std::string::npos);
}

TEST_F(Medidor, UnaTarifaQueElLibroNoTieneLoDiceYSigueContandoElTiempo) {
    ajustes.EntradasConexion = {{"Casa", "Cara", "Ninguno"}};
    Empezar();
    Ticks(10, kConectado);
    ASSERT_EQ(P().Gasto, "100.00");
    ajustes.EntradasConexion[0].Tarifa = "Desaparecida";
    Ticks(5, kConectado);
    EXPECT_FALSE(Monitor().Medida().Tasada);
    EXPECT_EQ(P().Tiempo + " " + P().Gasto, "00:00:15 tarifa desconocida");
    EXPECT_EQ(P().Tarifa, "");
    EXPECT_NE(P().PuntaBandeja.find("tarifa desconocida (\"Desaparecida\")"), std::string::npos)
        << P().PuntaBandeja;
}

TEST_F(Medidor, ConBonoNetGastaUnaCopiaDelLibroDeBonos) {
    ajustes.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"}};
    bono.DarAlta(0, Fecha::Crear(2024, 3, 1)); // 10DIA
    Empezar();
    Ticks(60, kConectado);
    // El bono cubre los segundos; el del programa no se toca.
    EXPECT_EQ(std::tuple(P().Gasto, P().Bono, P().BonoGastado, P().BonoQueda),
              std::tuple("0.00", "BonoNet", "00:01:00", "09:59:00"));
    EXPECT_EQ(bono.tiempo(0), "10:00:00");
    EXPECT_NE(P().PuntaBandeja.find("BonoNet"), std::string::npos);

    // El grupo elegido en la pestaña de bonos.
    Monitor().GrupoBono(cBono::kGrupoNoche);
    Ticks(1, kConectado);
    EXPECT_EQ(P().BonoQueda, "00:00:00");
}

TEST_F(Medidor, ElAvisoDeTiempoSuenaUnaVezPorArmado) {
    ajustes.AvisoTiempo = true;
    ajustes.TiempoAviso = cTiempo("00:00:30");
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(30, kConectado)).empty()); // 30 s no supera 30 s
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Tiempo});
    EXPECT_TRUE(Sonidos(Ticks(300, kConectado)).empty());
    EXPECT_FALSE(Monitor().Avisos().Armado(AvisosLlamada::Umbral::Tiempo));
    // Marcar la casilla lo arma otra vez.
    Monitor().ArmarAviso(AvisosLlamada::Umbral::Tiempo);
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Tiempo});
    // Y el final de la llamada tambien.
    Ticks(1, kDesconectado);
    EXPECT_TRUE(Monitor().Avisos().Armado(AvisosLlamada::Umbral::Tiempo));
    Empezar();
    EXPECT_EQ(Sonidos(Ticks(31, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Tiempo});
}

TEST_F(Medidor, ElAvisoDeImporteCompruebaElCosteConImpuestos) {
    ajustes.AvisoImporte = true;
    ajustes.ImporteAviso = "1";
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(10, kConectado)).empty()); // 1.00 no pasa de 1
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Importe});
    EXPECT_TRUE(Sonidos(Ticks(20, kConectado)).empty());
    Ticks(1, kDesconectado);

    ajustes.AnadirImpuestos = true;
    ajustes.Impuestos = 16.0f;
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(8, kConectado)).empty()); // 0.93
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Importe});
    Ticks(1, kDesconectado);

    // Un importe que no es un numero vale 0: suena en cuanto hay coste.
    ajustes.ImporteAviso = "mucho";
    EXPECT_TRUE(Sonidos(Tick(kConectado)).empty());
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Importe});
}

TEST_F(Medidor, ElAvisoDeBonoSuenaAlLlegarAlLimite) {
    ajustes.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"}};
    ajustes.AvisoBono = true;
    ajustes.BonoAviso = cTiempo("09:59:00");
    bono.DarAlta(0, Fecha::Crear(2024, 3, 1));
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(59, kConectado)).empty());
    EXPECT_EQ(Sonidos(Ticks(1, kConectado)), std::vector<MotivoAviso>{MotivoAviso::Bono});
    EXPECT_TRUE(Sonidos(Ticks(10, kConectado)).empty());
    // Un grupo sin bonos no tiene de donde bajar.
    Ticks(1, kDesconectado);
    Monitor().GrupoBono(cBono::kGrupoNoche);
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(5, kConectado)).empty());
}

TEST_F(Medidor, SinLaOpcionNingunAvisoSuena) {
    ajustes.TiempoAviso = cTiempo("00:00:01");
    ajustes.ImporteAviso = "0";
    ajustes.EntradasConexion = {{"Casa", "Metropolitana", "BonoNet"}};
    bono.DarAlta(0, Fecha::Crear(2024, 3, 1));
    ajustes.BonoAviso = cTiempo("10:00:00");
    Empezar();
    EXPECT_TRUE(Sonidos(Ticks(20, kConectado)).empty());
    // Siguen armados: suenan en cuanto se marca la opcion.
    ajustes.AvisoTiempo = ajustes.AvisoImporte = ajustes.AvisoBono = true;
    ajustes.EntradasConexion[0].Descuento = "Ninguno"; // para que haya coste
    const auto s = Sonidos(Ticks(1, kConectado));
    EXPECT_EQ(s, (std::vector<MotivoAviso>{MotivoAviso::Tiempo, MotivoAviso::Importe}));
}

} // namespace
