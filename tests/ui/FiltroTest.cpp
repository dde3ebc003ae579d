// The filter and the period picker driven as the user drives them, against
// a register window that lists a real register with the real record test.

#include "AnfitrionFalso.h"
#include "CarpetaTemporal.h"
#include "Controles.h"
#include "ui/PilaPrograma.h"
#include "ui/fFiltro.h"
#include "ui/fPer.h"

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

using V = std::vector<int>;

class FiltroTest : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        PilaPrograma().Vaciar();
        registro = std::make_unique<Log>(dir);
        libro = std::make_unique<cLlamada>(dir);
        Llamada(2026, 3, 2, 9, "00:05:00", 0, 0);   // lunes
        Llamada(2026, 3, 2, 23, "00:05:01", 1, -1); // lunes, con bono
        Llamada(2026, 3, 3, 12, "00:10:00", 0, 0);  // martes
        Llamada(2026, 3, 7, 6, "00:04:59", 1, 0);   // sabado
        Llamada(2026, 3, 8, 22, "01:00:00", 1, -1); // domingo
        anfitrion = std::make_unique<prueba::AnfitrionFalso>(*registro, *libro, reloj.Hoy());
        anfitrion->inicio = Fecha::Crear(2026, 3, 3);
        anfitrion->fin = Fecha::Crear(2026, 3, 20);
    }
    void TearDown() override { PilaPrograma().Vaciar(); }
    void Llamada(int a, int m, int d, int hora, const char* dur, std::uint8_t tipo,
                 std::int16_t bono) {
        registro->AñadirItem(Fecha::Crear(a, m, d), Fecha::DesdeSegundos(hora * 3600), dur, "10",
                             tipo, "Metropolitana", "Casa", "", bono, 1, 1);
    }
    // The opener leaves billing day, interval and first date for the picker.
    static void DejarValores() {
        PilaPrograma().Meter(std::int64_t{15});
        PilaPrograma().Meter(std::int64_t{1});
        PilaPrograma().Meter(Fecha::Crear(2025, 11, 3));
    }
    V Aplicar(fFiltro& f) {
        Control<QPushButton>(&f, "cmdAplicar")->click();
        return anfitrion->Listadas();
    }

    RelojFijo reloj{Fecha::Crear(2026, 3, 20, 10, 0, 0)};
    std::unique_ptr<Log> registro;
    std::unique_ptr<cLlamada> libro;
    std::unique_ptr<prueba::AnfitrionFalso> anfitrion;
};

} // namespace

TEST_F(FiltroTest, AlAbrirTomaLosValoresYTodoQuedaApagado) {
    DejarValores();
    fFiltro f(*anfitrion, reloj);
    EXPECT_EQ(PilaPrograma().Count(), 0);
    EXPECT_FALSE(Control<QDateEdit>(&f, "fecDesde")->isEnabled());
    EXPECT_EQ(Control<QDateEdit>(&f, "fecDesde")->date(), QDate(2026, 3, 20));
    Control<QPushButton>(&f, "bTiempo")->click();
    EXPECT_TRUE(Control<QTimeEdit>(&f, "HoraTiempo")->isEnabled());
    Control<QPushButton>(&f, "bTiempo")->click();
    // The hour range starts as the whole day: ticked alone, it keeps every call.
    Control<QPushButton>(&f, "bHora")->click();
    EXPECT_EQ(Aplicar(f), (V{0, 1, 2, 3, 4}));
    Control<QPushButton>(&f, "bHora")->click();

    // Con todo apagado, "&Aplicar" lista todo pero con el periodo vacio.
    EXPECT_EQ(Aplicar(f), (V{0, 1, 2, 3, 4}));
    EXPECT_EQ(anfitrion->listado.Periodo, "");
    const CriteriosFiltro& c = anfitrion->rellenos.back();
    EXPECT_EQ(std::tuple(c.desde, c.horaHasta, c.duracion),
              std::tuple(kFechaApagada, kFechaApagada, "-1"));
    EXPECT_EQ(std::tuple(c.tipo, c.comparacion), std::tuple(-1, -1));
}

// Which calls pass is the register's own test; here, each control reaches
// its criterion.
TEST_F(FiltroTest, CadaBotonPasaSuCriterio) {
    fFiltro f(*anfitrion, reloj);
    Control<QPushButton>(&f, "bFec")->click();
    Control<QDateEdit>(&f, "fecDesde")->setDate(QDate(2026, 3, 2));
    Control<QDateEdit>(&f, "fecHasta")->setDate(QDate(2026, 3, 2));
    EXPECT_EQ(Aplicar(f), (V{0, 1})); // el mismo dia en los dos extremos
    EXPECT_EQ(anfitrion->listado.Periodo, "02/03/2026 - 02/03/2026");
    Control<QPushButton>(&f, "bFec")->click();

    Control<QPushButton>(&f, "bHora")->click();
    Control<QTimeEdit>(&f, "HoraSpin1")->setTime(QTime(6, 0));
    Control<QTimeEdit>(&f, "HoraSpin2")->setTime(QTime(22, 0));
    Control<QPushButton>(&f, "bTiempo")->click();
    Control<QComboBox>(&f, "Combo1")->setCurrentIndex(2);
    Control<QTimeEdit>(&f, "HoraTiempo")->setTime(QTime(0, 5, 0));
    Control<QPushButton>(&f, "bTipo")->click();
    Control<QComboBox>(&f, "Combo2")->setCurrentIndex(1);
    Control<QPushButton>(&f, "bBono")->click();
    Control<QComboBox>(&f, "Combo3")->setCurrentIndex(1);
    Control<QPushButton>(&f, "bDia")->click();
    Control<QComboBox>(&f, "Combo4")->setCurrentIndex(2);
    Aplicar(f);
    const CriteriosFiltro& c = anfitrion->rellenos.back();
    EXPECT_EQ(std::tuple(c.desde, c.horaDesde, c.horaHasta, c.duracion),
              std::tuple(kFechaApagada, Fecha::DesdeSegundos(6 * 3600),
                         Fecha::DesdeSegundos(22 * 3600), "00:05:00"));
    // "=", Reducida, Con Bono, Festivo
    EXPECT_EQ(std::tuple(c.comparacion, c.tipo, c.bono, c.tipoDia), std::tuple(2, 1, 1, 2));
}

TEST_F(FiltroTest, SuprimirVuelveAlPeriodoYVerTodosLoQuitaTodo) {
    fFiltro f(*anfitrion, reloj);
    Control<QPushButton>(&f, "bTipo")->click();
    Control<QPushButton>(&f, "bDia")->click();
    Aplicar(f);
    EXPECT_EQ(Control<QPushButton>(&f, "cmdSuprimir")->toolTip(), "Quitar el filtro");
    Control<QPushButton>(&f, "cmdSuprimir")->click();
    // The toggles go with the filter.
    EXPECT_FALSE(Control<QPushButton>(&f, "bTipo")->isChecked());
    EXPECT_FALSE(Control<QPushButton>(&f, "bDia")->isChecked());
    EXPECT_FALSE(Control<QComboBox>(&f, "Combo4")->isEnabled());
    const CriteriosFiltro& c = anfitrion->rellenos.back();
    EXPECT_EQ(std::tuple(c.desde, c.hasta),
              std::tuple(Fecha::Crear(2026, 3, 3), Fecha::Crear(2026, 3, 20)));
    EXPECT_FALSE(c.horaDesde || c.tipo || c.bono || c.tipoDia || c.comparacion || c.duracion);
    EXPECT_EQ(anfitrion->Listadas(), (V{2, 3, 4}));
    Control<QPushButton>(&f, "cmdTodos")->click();
    const CriteriosFiltro& t = anfitrion->rellenos.back();
    EXPECT_FALSE(t.desde || t.hasta || t.tipo || t.duracion);
    EXPECT_EQ(anfitrion->listado.Periodo, "02/03/2026 - 20/03/2026");
}

TEST_F(FiltroTest, PeriodoElegidoEnElSelectorLlenaLasFechas) {
    DejarValores();
    fFiltro f(*anfitrion, reloj);
    QStringList años;
    QTimer::singleShot(0, [&] {
        auto* selector = qobject_cast<fPer*>(QApplication::activeModalWidget());
        ASSERT_NE(selector, nullptr);
        for (int i = 0; i < Control<QComboBox>(selector, "cmbAño")->count(); ++i) {
            años << Control<QComboBox>(selector, "cmbAño")->itemText(i);
        }
        Control<QListWidget>(selector, "lvPer")->setCurrentRow(0);
        Control<QPushButton>(selector, "cmdAceptar")->click();
    });
    Control<QPushButton>(&f, "cmdPeriodos")->click();
    // El selector recibio lo que el filtro guardaba: periodos desde 2025.
    EXPECT_EQ(años, (QStringList{"2025", "2026"}));
    EXPECT_EQ(Control<QDateEdit>(&f, "fecDesde")->date(), QDate(2025, 12, 16));
    EXPECT_EQ(Control<QDateEdit>(&f, "fecHasta")->date(), QDate(2026, 2, 15));
    EXPECT_TRUE(Control<QPushButton>(&f, "bFec")->isChecked());
    EXPECT_EQ(PilaPrograma().Count(), 0);
    EXPECT_TRUE(anfitrion->rellenos.empty()); // falta "&Aplicar"

    // Otra vez, cancelando: nada cambia y la pila queda vacia.
    Control<QPushButton>(&f, "bFec")->click();
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    Control<QPushButton>(&f, "cmdPeriodos")->click();
    EXPECT_FALSE(Control<QPushButton>(&f, "bFec")->isChecked());
    EXPECT_EQ(PilaPrograma().Count(), 0);
}

// The periods themselves are cPeriodo's test; here, the year list and what
// the picker leaves on the stack.
TEST_F(FiltroTest, ElSelectorEsTanAnchoComoSuTitulo) {
    DejarValores();
    fPer p(reloj);
    p.show();
    EXPECT_GE(p.width(), prueba::AnchoTitulo(p)) << p.windowTitle().toStdString();
}

TEST_F(FiltroTest, SelectorListaLosPeriodosDelAñoYDevuelveInicioYFin) {
    DejarValores();
    fPer p(reloj);
    EXPECT_EQ(Control<QComboBox>(&p, "cmbAño")->currentText(), "2026"); // el año en curso al abrir
    EXPECT_EQ(Control<QListWidget>(&p, "lvPer")->item(1)->text(), "16/02/2026 - 20/03/2026");
    Control<QComboBox>(&p, "cmbAño")->setCurrentIndex(0);
    p.Elegir(Control<QListWidget>(&p, "lvPer")->item(0));
    EXPECT_EQ(ResultadoPeriodos(), kPeriodoElegido);
    ASSERT_EQ(PilaPrograma().Count(), 2);
    EXPECT_EQ(std::get<Fecha>(PilaPrograma().Sacar()), Fecha::Crear(2025, 12, 15, 23, 59, 59));
    EXPECT_EQ(std::get<Fecha>(PilaPrograma().Sacar()), Fecha::Crear(2025, 11, 3));
}

TEST_F(FiltroTest, SelectorCanceladoDejaLaPilaVaciaYUnSoloAño) {
    PilaPrograma().Meter(std::int64_t{1});
    PilaPrograma().Meter(std::int64_t{0});
    PilaPrograma().Meter(Fecha::Crear(2026, 1, 5));
    fPer p(reloj);
    EXPECT_EQ(Control<QComboBox>(&p, "cmbAño")->count(), 1);
    PilaPrograma().Meter(std::string("resto"));
    QTimer::singleShot(0, [&] { p.reject(); });
    EXPECT_EQ(p.exec(), QDialog::Rejected);
    EXPECT_EQ(PilaPrograma().Count(), 0);
    EXPECT_EQ(ResultadoPeriodos(), kPeriodoCancelado);
}
