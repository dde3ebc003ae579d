#include "CarasBarras.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QPainter>
#include <QPolygonF>
#include <algorithm>

namespace vorimesk {

CarasBarras::CarasBarras(QChart* grafico, QBarSeries* serie, const QColor& color)
    : QGraphicsObject(grafico), grafico_(grafico), serie_(serie), color_(color) {
    setZValue(10);
    connect(grafico, &QChart::plotAreaChanged, this, [this] {
        prepareGeometryChange();
        update();
    });
}

QPointF CarasBarras::Profundidad() const {
    const QPointF a = grafico_->mapToPosition(QPointF(0, 0), serie_);
    const QPointF b = grafico_->mapToPosition(QPointF(1, 0), serie_);
    // Within the gap between bars, so a block never covers its neighbour.
    const double hueco = (b.x() - a.x()) * (1.0 - serie_->barWidth());
    const double dx = std::min(14.0, hueco * 0.6);
    return {dx, -dx * 0.7};
}

QRectF CarasBarras::boundingRect() const {
    const QPointF d = Profundidad();
    return grafico_->plotArea().adjusted(0, d.y() - 2, d.x() + 2, 0);
}

void CarasBarras::paint(QPainter* pintor, const QStyleOptionGraphicsItem*, QWidget*) {
    if (serie_->count() == 0) {
        return;
    }
    QBarSet* conjunto = serie_->barSets().front();
    const QColor& color = color_;
    const QPointF d = Profundidad();
    const double mitad = serie_->barWidth() / 2.0;
    pintor->setRenderHint(QPainter::Antialiasing);
    pintor->setPen(QPen(color.darker(200), 0.8));
    for (int i = 0; i < conjunto->count(); ++i) {
        const double valor = conjunto->at(i);
        if (valor <= 0.0) {
            continue;
        }
        const QPointF arribaIzq = grafico_->mapToPosition(QPointF(i - mitad, valor), serie_);
        const QPointF abajoDer = grafico_->mapToPosition(QPointF(i + mitad, 0.0), serie_);
        const QPointF arribaDer(abajoDer.x(), arribaIzq.y());
        const QPolygonF lado({arribaDer, arribaDer + d, abajoDer + d, abajoDer});
        const QPolygonF techo({arribaIzq, arribaIzq + d, arribaDer + d, arribaDer});
        pintor->setBrush(color.darker(150));
        pintor->drawPolygon(lado);
        pintor->setBrush(color.lighter(130));
        pintor->drawPolygon(techo);
    }
}

} // namespace vorimesk
