// The tariff comparison window opened from the register tab, and the
// forecast with its budget alert on the summary tab: the window only shows
// what the layers below work out.

#include "CarpetaVentana.h"
#include "core/FormatoNumero.h"
#include "ui/MarcoPresupuesto.h"
#include "ui/PanelPrevision.h"
#include "ui/VigiaPresupuesto.h"
#include "ui/fComparar.h"

#include <QChartView>
#include <QGraphicsTextItem>
#include <QImage>
#include <QStatusBar>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class Comparar : public CarpetaVentana {
protected:
    // Monthly billing on the 15th, and calls from 15 February (so the
    // periods run from the 16th) to the 20 March of the clock.
    void SetUp() override {
        CarpetaVentana::SetUp();
        std::string registro;
        for (int d = 0; d <= 33; d += 3) {
            registro += Llamada(Fecha::Crear(2026, 2, 15).MasDias(d), 19, "00:30:00", "50");
        }
        EscribirRegistro(registro);
        Settings s = ValoresPorDefecto();
        s.DiaFactura = 15;
        s.SonidoAviso = (dir / "aviso.wav").string();
        s.Bonos.push_back({0, Fecha::Crear(2026, 1, 1), FechaVariante::Vacia(), "10:00:00"});
        EscribirAjustes(s);
    }
};

} // namespace

TEST_F(Comparar, ElBotonDelRegistroAbreLaComparacionDeLasLlamadasListadas) {
    auto v = Abrir();
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabRegistro>(v.get(), "TabRegistro"));
    const int listadas = v->UltimoListado().NumeroLlamadas;
    ASSERT_GT(listadas, 0);
    Control<QPushButton>(v.get(), "cmdComparar")->click();
    auto* c = v->findChild<fComparar*>();
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->windowTitle(), "Comparar tarifas");
    EXPECT_EQ(c->Resultado().Llamadas, listadas);
    ASSERT_EQ(c->tbTarifas->rowCount(), 5);
    EXPECT_EQ(c->tbTarifas->item(0, 0)->text(), "Metropolitana");
    const TotalTarifa& primera = c->Resultado().Tarifas.at(0);
    EXPECT_EQ(c->tbTarifas->item(0, 1)->text(),
              QString::fromStdString(TextoDinero(primera.ConBono)));
    // Charged 100 for the two calls; a saving shows with its minus sign.
    ASSERT_LT(primera.DiferenciaSinBono, 0.0);
    EXPECT_EQ(c->tbTarifas->item(0, 4)->text(),
              QString::fromStdString(TextoDinero(primera.DiferenciaSinBono)));
    EXPECT_TRUE(c->lResumen->text().contains("La mas barata: "));
    EXPECT_NE(c->grComparacion->chart(), nullptr);

    // The calls of some chosen days instead: the whole register.
    c->optFechas->setChecked(true);
    c->dtDesde->setDate(QDate(2026, 2, 1));
    c->dtHasta->setDate(QDate(2026, 3, 31));
    c->cmdComparar->click();
    EXPECT_EQ(c->Resultado().Llamadas, 12);

    // Narrow, every tariff's name still shows whole beside its bars.
    c->resize(480, 560);
    c->show();
    QApplication::processEvents();
    QStringList rotulos;
    for (QGraphicsItem* item : c->grComparacion->scene()->items()) {
        if (auto* texto = dynamic_cast<QGraphicsTextItem*>(item)) {
            rotulos << texto->toPlainText();
        }
    }
    for (const char* tarifa : {"Metropolitana", "Interprovincial", "Provincial", "Infovia"}) {
        EXPECT_TRUE(rotulos.contains(tarifa)) << tarifa << " " << rotulos.join("|").toStdString();
    }
    const QImage imagen = c->grab().toImage();
    EXPECT_FALSE(imagen.isNull());
    if (const QByteArray destino = qgetenv("VORIMESK_CAPTURAS"); !destino.isEmpty()) {
        imagen.save(QString::fromLocal8Bit(destino) + "/comparar-tarifas.png");
    }
}

TEST_F(Comparar, ElResumenMuestraLaPrevisionYElAvisoDePresupuestoSuenaUnaVez) {
    auto v = Abrir();
    auto* vigia = v->findChild<VigiaPresupuesto*>();
    ASSERT_NE(vigia, nullptr);
    QSignalSpy avisos(vigia, &VigiaPresupuesto::AvisoPresupuesto);
    PanelPrevision* p = Control<PanelPrevision>(v.get(), "PanelPrevision");
    // The period runs from 16 March to 15 April: 20 March is day 5 of 31,
    // with the calls of the 17th and the 20th.
    EXPECT_EQ(p->lGastadoPrev->text(), "100,00 (dia 5 de 31)");
    EXPECT_EQ(p->lProyeccion->text(), "620,00");
    EXPECT_EQ(p->lPresupuesto->text(), "sin presupuesto");
    EXPECT_FALSE(p->lRegla->text().isEmpty());

    auto* presupuesto =
        Control<TabOpciones>(v.get(), "TabOpciones")->findChild<MarcoPresupuesto*>();
    ASSERT_NE(presupuesto, nullptr);
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabOpciones>(v.get(), "TabOpciones"));
    presupuesto->txtPresupuesto->setText("300");
    ASSERT_TRUE(presupuesto->Guardar());
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabResumen>(v.get(), "TabResumen"));
    EXPECT_EQ(avisos.count(), 1);
    EXPECT_TRUE(avisos[0][0].toString().contains("620,00"));
    // Without a tray (as here) the window's status bar tells it too.
    EXPECT_EQ(v->statusBar()->currentMessage(), avisos[0][0].toString());
    EXPECT_FALSE(p->lAvisoPresupuesto->text().isEmpty());
    EXPECT_EQ(p->lPorDia->text(), "7,69 en cada uno de los 26 dias que quedan");
    // Coming back to the summary, or a new listing, does not sound it again.
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabRegistro>(v.get(), "TabRegistro"));
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabResumen>(v.get(), "TabResumen"));
    v->RellenaGrid(CriteriosFiltro::Periodo(v->InicioPeriodo(), v->FinPeriodo()));
    EXPECT_EQ(avisos.count(), 1);

    // A budget the pace keeps within: no alert, and a word that does not
    // read is refused and changes nothing.
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabOpciones>(v.get(), "TabOpciones"));
    presupuesto->txtPresupuesto->setText("1000");
    ASSERT_TRUE(presupuesto->Guardar());
    presupuesto->txtPresupuesto->setText("mucho");
    EXPECT_FALSE(presupuesto->Guardar());
    EXPECT_EQ(presupuesto->txtPresupuesto->text(), "1.000,00");
    EXPECT_FALSE(presupuesto->lEstadoPresupuesto->text().isEmpty());
    Control<QTabWidget>(v.get(), "SSTab1")
        ->setCurrentWidget(Control<TabResumen>(v.get(), "TabResumen"));
    EXPECT_EQ(avisos.count(), 1);
    EXPECT_TRUE(p->lAvisoPresupuesto->text().isEmpty());
    EXPECT_EQ(p->lPresupuesto->text(), "1.000,00");

    if (const QByteArray destino = qgetenv("VORIMESK_CAPTURAS"); !destino.isEmpty()) {
        v->resize(760, 640);
        v->show();
        v->grab().save(QString::fromLocal8Bit(destino) + "/resumen-prevision.png");
    }
}
