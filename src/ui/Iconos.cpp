#include "Iconos.h"

#include <QPainter>
#include <QPainterPath>

namespace vorimesk {

QPixmap PintarIconoPrograma(int lado) {
    QPixmap mapa(lado, lado);
    mapa.fill(Qt::transparent);
    QPainter p(&mapa);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(lado / 64.0, lado / 64.0);
    // Dial
    QLinearGradient fondo(0, 0, 0, 64);
    fondo.setColorAt(0, QColor(30, 90, 170));
    fondo.setColorAt(1, QColor(10, 40, 100));
    p.setBrush(fondo);
    p.setPen(QPen(QColor(240, 240, 240), 3));
    p.drawEllipse(QRectF(4, 4, 56, 56));
    // Scale marks
    p.setPen(QPen(QColor(250, 250, 250), 2));
    for (int i = 0; i <= 6; ++i) {
        p.save();
        p.translate(32, 32);
        p.rotate(-135 + i * 45);
        p.drawLine(QPointF(0, -24), QPointF(0, -19));
        p.restore();
    }
    // Needle
    p.save();
    p.translate(32, 32);
    p.rotate(40);
    p.setPen(QPen(QColor(250, 200, 40), 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(0, 0), QPointF(0, -20));
    p.restore();
    // Handset
    QPainterPath auricular;
    auricular.moveTo(18, 44);
    auricular.cubicTo(22, 52, 42, 52, 46, 44);
    p.setPen(QPen(QColor(250, 250, 250), 5, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(auricular);
    p.setBrush(QColor(250, 250, 250));
    p.drawEllipse(QPointF(32, 32), 3, 3);
    return mapa;
}

QIcon IconoPrograma() {
    QIcon icono;
    for (int lado : {16, 22, 32, 48, 64, 128}) {
        icono.addPixmap(PintarIconoPrograma(lado));
    }
    return icono;
}

QPixmap PintarLampara(const QColor& color, int lado) {
    QPixmap mapa(lado, lado);
    mapa.fill(Qt::transparent);
    QPainter p(&mapa);
    p.setRenderHint(QPainter::Antialiasing);
    QRadialGradient brillo(lado * 0.35, lado * 0.35, lado * 0.6);
    brillo.setColorAt(0, color.lighter(160));
    brillo.setColorAt(1, color);
    p.setBrush(brillo);
    p.setPen(QPen(color.darker(160), 1));
    p.drawEllipse(QRectF(1, 1, lado - 2, lado - 2));
    return mapa;
}

} // namespace vorimesk
