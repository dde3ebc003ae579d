#include "IconosBarra.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace vorimesk {
namespace {

const QColor kTinta(40, 60, 90);
const QColor kPapel(250, 250, 245);
const QColor kAcento(30, 110, 200);

// Every picture is drawn on a 32 x 32 grid and scaled.
void Dibujar(QPainter& p, IconoBarra cual) {
    p.setPen(QPen(kTinta, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (cual) {
    case IconoBarra::Salir:
        p.setBrush(kPapel);
        p.drawRect(6, 4, 14, 24);
        p.setPen(QPen(QColor(200, 40, 40), 3, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(14, 16, 28, 16);
        p.drawLine(23, 11, 28, 16);
        p.drawLine(23, 21, 28, 16);
        break;
    case IconoBarra::Fijar:
        p.setBrush(QColor(210, 40, 40));
        p.drawEllipse(QRectF(9, 3, 14, 12));
        p.drawRect(13, 14, 6, 5);
        p.setPen(QPen(kTinta, 2));
        p.drawLine(16, 19, 16, 29);
        break;
    case IconoBarra::MiniVentana:
        p.setBrush(kPapel);
        p.drawRect(3, 5, 26, 20);
        p.setBrush(kAcento);
        p.drawRect(3, 5, 26, 5);
        p.setBrush(QColor(90, 200, 90));
        p.drawRect(15, 15, 12, 8);
        break;
    case IconoBarra::Configurar: {
        p.setBrush(QColor(160, 200, 240));
        p.drawEllipse(QRectF(4, 4, 24, 24));
        p.drawLine(4, 16, 28, 16);
        p.drawEllipse(QRectF(11, 4, 10, 24));
        break;
    }
    case IconoBarra::Imprimir:
        p.setBrush(kPapel);
        p.drawRect(9, 3, 14, 10);
        p.setBrush(QColor(170, 170, 180));
        p.drawRoundedRect(3, 12, 26, 12, 2, 2);
        p.setBrush(kPapel);
        p.drawRect(9, 20, 14, 9);
        break;
    case IconoBarra::Archivar:
        p.setBrush(QColor(220, 180, 110));
        p.drawRect(4, 11, 24, 17);
        p.drawRect(3, 5, 26, 6);
        p.drawLine(12, 17, 20, 17);
        break;
    case IconoBarra::Grafico:
        p.drawLine(4, 28, 28, 28);
        p.drawLine(4, 28, 4, 4);
        p.setBrush(kAcento);
        p.drawRect(8, 16, 5, 12);
        p.setBrush(QColor(90, 180, 90));
        p.drawRect(15, 8, 5, 20);
        p.setBrush(QColor(230, 150, 40));
        p.drawRect(22, 20, 5, 8);
        break;
    case IconoBarra::Calculadora:
        p.setBrush(QColor(200, 205, 215));
        p.drawRoundedRect(6, 2, 20, 28, 2, 2);
        p.setBrush(QColor(180, 220, 170));
        p.drawRect(9, 5, 14, 6);
        p.setBrush(kTinta);
        for (int fila = 0; fila < 3; ++fila) {
            for (int col = 0; col < 3; ++col) {
                p.drawRect(9 + col * 5, 14 + fila * 5, 3, 3);
            }
        }
        break;
    case IconoBarra::Calendario:
        p.setBrush(kPapel);
        p.drawRect(4, 6, 24, 22);
        p.setBrush(QColor(210, 50, 50));
        p.drawRect(4, 6, 24, 6);
        p.setPen(QPen(kTinta, 1));
        for (int x = 8; x < 28; x += 5) {
            for (int y = 15; y < 28; y += 4) {
                p.drawPoint(x, y);
            }
        }
        break;
    case IconoBarra::Informacion:
        p.setBrush(kAcento);
        p.setPen(Qt::NoPen);
        p.drawEllipse(QRectF(3, 3, 26, 26));
        p.setPen(QPen(Qt::white, 4, Qt::SolidLine, Qt::RoundCap));
        p.drawPoint(16, 9);
        p.drawLine(16, 15, 16, 23);
        break;
    case IconoBarra::Ayuda: {
        p.setBrush(QColor(40, 150, 90));
        p.setPen(Qt::NoPen);
        p.drawEllipse(QRectF(3, 3, 26, 26));
        p.setPen(Qt::white);
        QFont letra = p.font();
        letra.setPixelSize(20);
        letra.setBold(true);
        p.setFont(letra);
        p.drawText(QRectF(3, 3, 26, 26), Qt::AlignCenter, "?");
        break;
    }
    }
}

const char* NombreTema(IconoBarra cual) {
    switch (cual) {
    case IconoBarra::Salir:
        return "application-exit";
    case IconoBarra::Imprimir:
        return "document-print";
    case IconoBarra::Archivar:
        return "document-save";
    case IconoBarra::Calculadora:
        return "accessories-calculator";
    case IconoBarra::Informacion:
        return "help-about";
    case IconoBarra::Ayuda:
        return "help-contents";
    default:
        // No freedesktop name says "pin", "mini window", "regional
        // settings", "chart" or "calendar" on every theme: ours always.
        return nullptr;
    }
}

QIcon Dibujado(IconoBarra cual) {
    QIcon icono;
    for (int lado : {16, 22, 32, 48}) {
        QPixmap mapa(lado, lado);
        mapa.fill(Qt::transparent);
        QPainter p(&mapa);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(lado / 32.0, lado / 32.0);
        Dibujar(p, cual);
        p.end();
        icono.addPixmap(mapa);
    }
    return icono;
}

} // namespace

QIcon IconoDeBarra(IconoBarra cual) {
    const QIcon propio = Dibujado(cual);
    const char* tema = NombreTema(cual);
    return tema != nullptr ? QIcon::fromTheme(tema, propio) : propio;
}

} // namespace vorimesk
