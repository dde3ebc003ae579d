#include "DibujoGrafico.h"

#include "CarasBarras.h"

#include <QAreaSeries>
#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QLineSeries>
#include <QLinearGradient>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

namespace vorimesk {
namespace {

const QColor kColor(38, 110, 186);

QBarCategoryAxis* EjeEtiquetas(const std::vector<PuntoGrafico>& puntos) {
    auto* eje = new QBarCategoryAxis;
    QStringList etiquetas;
    for (const PuntoGrafico& p : puntos) {
        etiquetas << QString::fromStdString(p.etiqueta);
    }
    eje->append(etiquetas);
    eje->setGridLineVisible(false);
    eje->setTruncateLabels(false);
    if (puntos.size() > 12) {
        // The fifteen years or the days of a month: small enough for "2026"
        // or "31" to fit under its bar.
        QFont letra = eje->labelsFont();
        letra.setPointSizeF(7.0);
        eje->setLabelsFont(letra);
    }
    return eje;
}

QValueAxis* EjeValores(const std::vector<PuntoGrafico>& puntos, const QString& unidad) {
    auto* eje = new QValueAxis;
    float maximo = 0.0F;
    for (const PuntoGrafico& p : puntos) {
        maximo = std::max(maximo, p.valor);
    }
    eje->setRange(0.0, maximo > 0.0F ? maximo * 1.1 : 1.0);
    eje->applyNiceNumbers();
    eje->setTitleText(unidad);
    // As many decimals as the step between the marks needs.
    const double paso = (eje->max() - eje->min()) / std::max(1, eje->tickCount() - 1);
    eje->setLabelFormat(paso == std::floor(paso)             ? "%.0f"
                        : paso * 10 == std::floor(paso * 10) ? "%.1f"
                                                             : "%.2f");
    return eje;
}

QBarSeries* Barras(const std::vector<PuntoGrafico>& puntos, bool profundidad) {
    auto* conjunto = new QBarSet("");
    for (const PuntoGrafico& p : puntos) {
        *conjunto << p.valor;
    }
    conjunto->setColor(kColor);
    conjunto->setBorderColor(kColor.darker(200));
    if (profundidad) {
        // Light from the left: the front face darkens towards the side face.
        QLinearGradient luz(0, 0, 1, 0);
        luz.setCoordinateMode(QGradient::ObjectMode);
        luz.setColorAt(0.0, kColor.lighter(125));
        luz.setColorAt(1.0, kColor.darker(115));
        conjunto->setBrush(luz);
    }
    auto* serie = new QBarSeries;
    serie->append(conjunto);
    serie->setBarWidth(profundidad ? 0.55 : 0.7);
    return serie;
}

QLineSeries* Linea(const std::vector<PuntoGrafico>& puntos) {
    auto* serie = new QLineSeries;
    for (std::size_t i = 0; i < puntos.size(); ++i) {
        serie->append(static_cast<double>(i), puntos[i].valor);
    }
    QPen lapiz(kColor);
    lapiz.setWidthF(2.0);
    serie->setPen(lapiz);
    serie->setPointsVisible(true);
    return serie;
}

} // namespace

QChart* CrearGrafico(const std::vector<PuntoGrafico>& puntos, TipoGrafico tipo,
                     const QString& titulo, const QString& unidad) {
    auto* grafico = new QChart;
    grafico->setTitle(titulo);
    grafico->legend()->hide();
    grafico->setAnimationOptions(QChart::NoAnimation);
    QAbstractSeries* serie = nullptr;
    switch (tipo) {
    case TipoGrafico::Barras2D:
    case TipoGrafico::Barras3D:
        serie = Barras(puntos, tipo == TipoGrafico::Barras3D);
        break;
    case TipoGrafico::Lineas:
        serie = Linea(puntos);
        break;
    case TipoGrafico::Area: {
        QLineSeries* borde = Linea(puntos);
        auto* area = new QAreaSeries(borde);
        borde->setParent(area); // the area does not own its edge line
        QColor relleno = kColor;
        relleno.setAlpha(150);
        area->setBrush(relleno);
        area->setPen(QPen(kColor.darker(130), 2.0));
        serie = area;
        break;
    }
    }
    grafico->addSeries(serie);
    QBarCategoryAxis* x = EjeEtiquetas(puntos);
    QValueAxis* y = EjeValores(puntos, unidad);
    grafico->addAxis(x, Qt::AlignBottom);
    grafico->addAxis(y, Qt::AlignLeft);
    serie->attachAxis(x);
    serie->attachAxis(y);
    if (tipo == TipoGrafico::Barras3D) {
        new CarasBarras(grafico, static_cast<QBarSeries*>(serie), kColor);
    }
    return grafico;
}

} // namespace vorimesk
