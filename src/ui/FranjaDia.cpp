#include "FranjaDia.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>

namespace vorimesk {
namespace {

constexpr std::int32_t kDia = 86400;

QString Hora(std::int32_t s) {
    return QString("%1:%2:%3")
        .arg(s / 3600, 2, 10, QChar('0'))
        .arg(s / 60 % 60, 2, 10, QChar('0'))
        .arg(s % 60, 2, 10, QChar('0'));
}

} // namespace

FranjaDia::FranjaDia(QWidget* padre) : QWidget(padre) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName("Franjas del dia");
}

void FranjaDia::Mostrar(const std::optional<FranjasDia>& franjas) {
    valida_ = franjas.has_value();
    tramos_ = valida_ ? MapaDia(*franjas) : std::vector<TramoDia>{};
    update();
}

QColor FranjaDia::Color(Cobertura c) {
    switch (c) {
    case Cobertura::Normal:
        return QColor(232, 131, 33);
    case Cobertura::Reducida:
        return QColor(58, 134, 200);
    case Cobertura::Solape:
        return QColor(200, 40, 40);
    case Cobertura::SinFranja:
        break;
    }
    return QColor(250, 250, 250);
}

QString FranjaDia::Nombre(Cobertura c) {
    switch (c) {
    case Cobertura::Normal:
        return "Normal";
    case Cobertura::Reducida:
        return "Reducida";
    case Cobertura::Solape:
        return "Solape";
    case Cobertura::SinFranja:
        break;
    }
    return "Sin franja";
}

// Overlaps and uncovered hours are hatched as well as coloured, so they
// stand out without relying on colour alone.
void FranjaDia::PintarMuestra(QPainter& p, const QRect& r, Cobertura c) {
    p.fillRect(r, Color(c));
    if (c == Cobertura::Solape) {
        p.fillRect(r, QBrush(QColor(255, 255, 255, 150), Qt::BDiagPattern));
    } else if (c == Cobertura::SinFranja) {
        p.fillRect(r, QBrush(QColor(150, 150, 150), Qt::BDiagPattern));
    }
}

QFont FranjaDia::FuenteMarcas() const {
    QFont f = font();
    f.setPointSizeF(f.pointSizeF() * 0.85);
    return f;
}

QRect FranjaDia::Barra() const {
    const QFontMetrics fm(FuenteMarcas());
    const int margen = fm.horizontalAdvance("24") / 2 + 2;
    const int alto = fm.height() + 6;
    return QRect(margen, 1, std::max(1, width() - 2 * margen), alto);
}

int FranjaDia::X(std::int32_t segundo) const {
    const QRect b = Barra();
    return b.left() + static_cast<int>(std::lround(double(segundo) * b.width() / kDia));
}

QSize FranjaDia::sizeHint() const {
    return QSize(24 * QFontMetrics(FuenteMarcas()).horizontalAdvance("00"),
                 minimumSizeHint().height());
}

QSize FranjaDia::minimumSizeHint() const {
    const QFontMetrics fm(FuenteMarcas());
    return QSize(9 * fm.horizontalAdvance("24 "), Barra().height() + fm.height() + 10);
}

void FranjaDia::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect barra = Barra();
    for (const TramoDia& t : tramos_) {
        const QRect r(QPoint(X(t.desde), barra.top()), QPoint(X(t.hasta) - 1, barra.bottom()));
        PintarMuestra(p, r, t.cobertura);
    }
    if (!valida_) {
        p.fillRect(barra, palette().window());
        p.drawText(barra, Qt::AlignCenter, "Horas no validas");
    }
    p.setPen(palette().color(QPalette::WindowText));
    p.drawRect(barra.adjusted(0, 0, -1, -1));
    PintarMarcas(p, barra);
}

// A tick every hour, longer every six; numbers every three hours, or every
// six when the strip is too narrow for them.
void FranjaDia::PintarMarcas(QPainter& p, const QRect& barra) const {
    p.setFont(FuenteMarcas());
    const QFontMetrics fm(p.font());
    const int paso = barra.width() / 8 >= fm.horizontalAdvance("24") + 6 ? 3 : 6;
    const int arriba = barra.bottom() + 1;
    for (int h = 0; h <= 24; ++h) {
        const int x = std::min(X(h * 3600), barra.right());
        p.drawLine(x, arriba, x, arriba + (h % 6 == 0 ? 5 : 2));
        if (h % paso == 0) {
            const QString n = QString::number(h);
            const int ancho = fm.horizontalAdvance(n);
            p.drawText(x - ancho / 2, arriba + 6 + fm.ascent(), n);
        }
    }
}

bool FranjaDia::event(QEvent* e) {
    if (e->type() != QEvent::ToolTip) {
        return QWidget::event(e);
    }
    const auto* ayuda = static_cast<QHelpEvent*>(e);
    for (const TramoDia& t : tramos_) {
        if (ayuda->pos().x() >= X(t.desde) && ayuda->pos().x() < X(t.hasta)) {
            QToolTip::showText(ayuda->globalPos(), Nombre(t.cobertura) + ": de " + Hora(t.desde) +
                                                       " a " + Hora(t.hasta - 1));
            return true;
        }
    }
    QToolTip::hideText();
    e->ignore();
    return true;
}

} // namespace vorimesk
