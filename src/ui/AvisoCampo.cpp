#include "AvisoCampo.h"

#include <QPainter>
#include <QTextLayout>

namespace vorimesk {

AvisoCampo::AvisoCampo(int lineasVisibles, QWidget* padre)
    : QWidget(padre), visibles_(lineasVisibles) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void AvisoCampo::Mostrar(const QStringList& lineas, bool error) {
    lineas_ = lineas;
    error_ = error;
    setToolTip(lineas.join('\n'));
    setAccessibleDescription(toolTip());
    update();
}

QString AvisoCampo::Resumen() const {
    if (lineas_.isEmpty()) {
        return {};
    }
    return lineas_.size() == 1 ? lineas_.first()
                               : QString("(1 de %1) ").arg(lineas_.size()) + lineas_.first();
}

QSize AvisoCampo::sizeHint() const {
    return QSize(fontMetrics().horizontalAdvance('x') * 40, minimumSizeHint().height());
}

QSize AvisoCampo::minimumSizeHint() const {
    return QSize(0, fontMetrics().lineSpacing() * visibles_ + 2);
}

void AvisoCampo::paintEvent(QPaintEvent*) {
    if (lineas_.isEmpty()) {
        return;
    }
    QPainter p(this);
    p.setPen(error_ ? QColor(170, 0, 0) : QColor(130, 80, 0));
    // Word-wrapped into the visible lines; the last one takes the rest, cut
    // with an ellipsis.
    const QString texto = Resumen();
    QTextLayout maqueta(texto, font());
    maqueta.beginLayout();
    const QFontMetrics fm = fontMetrics();
    int y = 1;
    for (int n = 0; n < visibles_; ++n) {
        QTextLine linea = maqueta.createLine();
        if (!linea.isValid()) {
            break;
        }
        linea.setLineWidth(width());
        QString trozo = texto.mid(linea.textStart(), linea.textLength());
        if (n == visibles_ - 1) {
            trozo = fm.elidedText(texto.mid(linea.textStart()), Qt::ElideRight, width());
        }
        p.drawText(0, y + fm.ascent(), trozo);
        y += fm.lineSpacing();
    }
    maqueta.endLayout();
}

} // namespace vorimesk
