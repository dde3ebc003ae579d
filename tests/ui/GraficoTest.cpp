// The graph window: its lists follow the view, and each chart type draws
// the points the register gives.

#include "CarpetaTemporal.h"
#include "Controles.h"
#include "ui/CarasBarras.h"
#include "ui/fGrafico.h"

#include <QAreaSeries>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QImage>
#include <QLineSeries>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class GraficoTest : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        registro = std::make_unique<Log>(dir);
        Llamada(2025, 12, 30, "00:30:00", "40");
        for (int i = 0; i < 3; ++i) {
            Llamada(2026, 2, 3, "00:20:00", "10");
        }
        Llamada(2026, 3, 1, "02:00:00", "100");
    }
    void Llamada(int a, int m, int d, const char* dur, const char* importe) {
        registro->AñadirItem(Fecha::Crear(a, m, d), Fecha::DesdeSegundos(72000), dur, importe, 1,
                             "Metropolitana", "Casa", "", 0, 1, 1);
    }
    // The depth faces hang from the chart as a graphics item.
    static std::vector<CarasBarras*> Caras(QChart* grafico) {
        std::vector<CarasBarras*> caras;
        for (QGraphicsItem* i : grafico->childItems()) {
            if (auto* c = dynamic_cast<CarasBarras*>(i)) {
                caras.push_back(c);
            }
        }
        return caras;
    }
    static QStringList Elementos(const QComboBox* c) {
        QStringList l;
        for (int i = 0; i < c->count(); ++i) {
            l << c->itemText(i);
        }
        return l;
    }

    RelojFijo reloj{Fecha::Crear(2026, 3, 20, 10, 0, 0)};
    std::unique_ptr<Log> registro;
};

} // namespace

// The points themselves are the register's test; here, the lists and the
// choices reach them.
TEST_F(GraficoTest, ListasYPuntosSegunLaVista) {
    fGrafico g(*registro, reloj);
    g.resize(900, 500);
    EXPECT_TRUE(Control<QComboBox>(&g, "Combo1")->isHidden());
    ASSERT_EQ(g.Puntos().size(), 2u); // 2025 y 2026, los años con llamadas
    EXPECT_EQ(g.Puntos()[1].valor, 4.0F);

    Control<QRadioButton>(&g, "Option1_1")->click();
    EXPECT_FALSE(Control<QComboBox>(&g, "Combo1")->isHidden());
    EXPECT_EQ(Elementos(Control<QComboBox>(&g, "Combo1")), (QStringList{"2025", "2026"}));
    EXPECT_EQ(g.Puntos().size(), 12u);
    // Each month adds up both years, and the title says so.
    EXPECT_EQ(Control<QChartView>(&g, "Graph1")->chart()->title(),
              "Llamadas por mes (todos los años)");

    Control<QRadioButton>(&g, "Option1_2")->click();
    EXPECT_EQ(Control<QComboBox>(&g, "Combo1")->currentText(), "Marzo 2026");
    Control<QSpinBox>(&g, "UpDown1")->stepDown();
    EXPECT_EQ(Control<QComboBox>(&g, "Combo1")->currentText(), "Febrero 2026");
    ASSERT_EQ(g.Puntos().size(), 28u);
    Control<QComboBox>(&g, "cmbTipoDato")->setCurrentIndex(1);
    EXPECT_EQ(g.Puntos()[2].valor, 30.0F);
    Control<QComboBox>(&g, "Combo1")->setCurrentIndex(0);
    EXPECT_EQ(Control<QSpinBox>(&g, "UpDown1")->value(), 0);
}

TEST_F(GraficoTest, LaVentanaNoCambiaDeTamañoAlCambiarDeVista) {
    fGrafico g(*registro, reloj);
    g.show();
    QApplication::processEvents();
    const QSize tamaño = g.size();
    for (int vista : {1, 2, 0, 2}) {
        Control<QRadioButton>(&g, QString("Option1_%1").arg(vista))->click();
        QApplication::processEvents();
        EXPECT_EQ(g.size(), tamaño) << vista;
    }
}

TEST_F(GraficoTest, CadaTipoDeGraficoConSusValores) {
    fGrafico g(*registro, reloj);
    g.resize(900, 500);
    Control<QRadioButton>(&g, "Option1_2")->click();
    Control<QComboBox>(&g, "Combo1")->setCurrentIndex(2); // febrero de 2026

    Control<QComboBox>(&g, "cmbTipoGraf")->setCurrentIndex(0);
    auto* barras =
        qobject_cast<QBarSeries*>(Control<QChartView>(&g, "Graph1")->chart()->series().value(0));
    ASSERT_NE(barras, nullptr);
    EXPECT_EQ(barras->barSets()[0]->at(2), 3.0);
    EXPECT_TRUE(Caras(Control<QChartView>(&g, "Graph1")->chart()).empty());

    Control<QComboBox>(&g, "cmbTipoGraf")->setCurrentIndex(2);
    auto* linea =
        qobject_cast<QLineSeries*>(Control<QChartView>(&g, "Graph1")->chart()->series().value(0));
    ASSERT_NE(linea, nullptr);
    EXPECT_EQ(linea->at(2), QPointF(2, 3));

    Control<QComboBox>(&g, "cmbTipoGraf")->setCurrentIndex(3);
    auto* area =
        qobject_cast<QAreaSeries*>(Control<QChartView>(&g, "Graph1")->chart()->series().value(0));
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->upperSeries()->at(2), QPointF(2, 3));
}

TEST_F(GraficoTest, Barras3DPintanCarasConProfundidad) {
    fGrafico g(*registro, reloj);
    g.resize(900, 500);
    g.show();
    Control<QRadioButton>(&g, "Option1_2")->click();
    Control<QComboBox>(&g, "Combo1")->setCurrentIndex(2); // febrero de 2026
    Control<QComboBox>(&g, "cmbTipoGraf")->setCurrentIndex(1);
    const auto caras = Caras(Control<QChartView>(&g, "Graph1")->chart());
    ASSERT_EQ(caras.size(), 1u);
    EXPECT_GT(caras.front()->Profundidad().x(), 2.0);
    // The side faces are drawn in the bars' darker shade.
    QApplication::processEvents();
    const QImage imagen = Control<QChartView>(&g, "Graph1")->grab().toImage();
    const QRgb lado = QColor(38, 110, 186).darker(150).rgb();
    int pixeles = 0;
    for (int y = 0; y < imagen.height(); ++y) {
        for (int x = 0; x < imagen.width(); ++x) {
            pixeles += imagen.pixel(x, y) == lado;
        }
    }
    EXPECT_GT(pixeles, 20);

    const QString png = QString::fromStdString((dir / "g.png").string());
    EXPECT_TRUE(g.GuardarPng(png));
    EXPECT_EQ(QImage(png).size(), Control<QChartView>(&g, "Graph1")->size() *
                                      Control<QChartView>(&g, "Graph1")->devicePixelRatioF());
}
