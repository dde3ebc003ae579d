#include "cLogo.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>

namespace vorimesk {
namespace {
int Interpolar(int a, int b, int paso) {
    return a + (b - a) * paso / (cLogo::kBandas - 1);
}
} // namespace

QColor cLogo::ColorBanda(int banda) const {
    return QColor(Interpolar(inicio_.red(), fin_.red(), banda),
                  Interpolar(inicio_.green(), fin_.green(), banda),
                  Interpolar(inicio_.blue(), fin_.blue(), banda));
}

void cLogo::Draw(QPainter& pintor, const QRect& area, const QFont& fuente) const {
    const int alto = area.height();
    // Rows are mapped onto the 255 bands so the first row always has the start
    // colour and the last the end colour, also in areas under 255 pixels.
    int y = 0;
    while (y < alto) {
        const int banda = alto > 1 ? y * (kBandas - 1) / (alto - 1) : 0;
        int hasta = y + 1;
        while (hasta < alto && hasta * (kBandas - 1) / (alto - 1) == banda) {
            ++hasta;
        }
        pintor.fillRect(QRect(area.left(), area.top() + y, area.width(), hasta - y),
                        ColorBanda(banda));
        y = hasta;
    }
    if (caption_.isEmpty()) {
        return;
    }
    pintor.save();
    pintor.setFont(fuente);
    pintor.setPen(Qt::white);
    const QFontMetrics medidas(fuente);
    const int ancho = medidas.horizontalAdvance(caption_);
    // Turned a quarter to the left the text runs upwards, centred on the area.
    pintor.translate(area.center().x() + medidas.ascent() / 2 - medidas.descent() / 2,
                     area.center().y() + ancho / 2);
    pintor.rotate(-90);
    pintor.drawText(0, 0, caption_);
    pintor.restore();
}

} // namespace vorimesk
