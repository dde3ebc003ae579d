#pragma once
// The depth of the "Barras 3D" chart: for each bar of a bar series, a top
// and a side face drawn behind and above it, so the flat bars read as
// blocks. Drawn over the chart with plain painting; no 3D engine is needed.

#include <QColor>
#include <QGraphicsObject>

class QBarSeries;
class QChart;

namespace vorimesk {

class CarasBarras : public QGraphicsObject {
    Q_OBJECT
public:
    // `color` is the bars' own colour; the faces are shades of it.
    CarasBarras(QChart* grafico, QBarSeries* serie, const QColor& color);

    QRectF boundingRect() const override;
    void paint(QPainter* pintor, const QStyleOptionGraphicsItem* opcion, QWidget* widget) override;

    // How far the faces reach right and up, in pixels, for the bar width
    // the chart has now.
    QPointF Profundidad() const;

private:
    QChart* grafico_;
    QBarSeries* serie_;
    QColor color_;
};

} // namespace vorimesk
