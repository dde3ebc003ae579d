#pragma once
// Paints a picture area with a vertical colour gradient in 255 bands and
// writes a caption across it turned 90 degrees, running upwards. The archive
// wizard's step banner and the start-up banner are drawn with it.

#include <QColor>
#include <QFont>
#include <QString>

class QPainter;
class QRect;

namespace vorimesk {

class cLogo {
public:
    static constexpr int kBandas = 255;

    QString Caption() const { return caption_; }
    void Caption(const QString& texto) { caption_ = texto; }
    QColor StartColor() const { return inicio_; }
    void StartColor(const QColor& c) { inicio_ = c; }
    QColor EndColor() const { return fin_; }
    void EndColor(const QColor& c) { fin_ = c; }

    // Paints `area` with the gradient and the caption in `fuente` turned on
    // its side. The bands fill the whole area whatever its height.
    void Draw(QPainter& pintor, const QRect& area, const QFont& fuente) const;

    // Colour of band i (0..254): the first band is the start colour, the last
    // one the end colour, moving linearly per component in between.
    QColor ColorBanda(int banda) const;

private:
    QString caption_;
    QColor inicio_ = QColor(0, 0, 128);
    QColor fin_ = QColor(0, 0, 0);
};

} // namespace vorimesk
