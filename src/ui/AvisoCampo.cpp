#include "AvisoCampo.h"

#include <QPainter>
#include <algorithm>

namespace vorimesk {
namespace {

constexpr int kMargen = 2;
constexpr int kBanderas = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;

} // namespace

AvisoCampo::AvisoCampo(int lineasVisibles, QWidget* padre)
    : QWidget(padre), visibles_(lineasVisibles) {
    QSizePolicy politica(QSizePolicy::Ignored, QSizePolicy::Minimum);
    politica.setHeightForWidth(true);
    setSizePolicy(politica);
}

void AvisoCampo::Mostrar(const QStringList& lineas, bool error) {
    // Errors before warnings, each group in the order the checks gave.
    QStringList ordenadas;
    for (const QString& l : lineas) {
        if (l.startsWith("Error")) {
            ordenadas << l;
        }
    }
    for (const QString& l : lineas) {
        if (!l.startsWith("Error")) {
            ordenadas << l;
        }
    }
    lineas_ = ordenadas;
    error_ = error;
    setToolTip(lineas_.join('\n'));
    setAccessibleDescription(toolTip());
    updateGeometry();
    update();
}

QString AvisoCampo::Resumen() const {
    return lineas_.join('\n');
}

int AvisoCampo::heightForWidth(int ancho) const {
    const int minimo = fontMetrics().lineSpacing() * visibles_ + kMargen;
    if (lineas_.isEmpty() || ancho <= 0) {
        return minimo;
    }
    const QRect caja =
        fontMetrics().boundingRect(QRect(0, 0, ancho, 1 << 20), kBanderas, Resumen());
    return std::max(minimo, caja.height() + kMargen);
}

QSize AvisoCampo::sizeHint() const {
    const int ancho = fontMetrics().horizontalAdvance('x') * 40;
    return QSize(ancho, heightForWidth(width() > 0 ? width() : ancho));
}

QSize AvisoCampo::minimumSizeHint() const {
    return QSize(0, fontMetrics().lineSpacing() * visibles_ + kMargen);
}

void AvisoCampo::paintEvent(QPaintEvent*) {
    if (lineas_.isEmpty()) {
        return;
    }
    QPainter p(this);
    p.setPen(error_ ? QColor(170, 0, 0) : QColor(130, 80, 0));
    p.drawText(rect().adjusted(0, 1, 0, 0), kBanderas, Resumen());
}

} // namespace vorimesk
