#include "LeyendaFranjas.h"

#include "FranjaDia.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace vorimesk {
namespace {

// A swatch painted at the screen's own resolution, crisp at any scale.
class Muestra : public QWidget {
public:
    Muestra(Cobertura c, QWidget* padre) : QWidget(padre), c_(c) {
        const int lado = fontMetrics().height() * 2 / 3;
        setFixedSize(lado * 2, lado);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const QRect r = rect().adjusted(0, 0, -1, -1);
        FranjaDia::PintarMuestra(p, r, c_);
        p.setPen(palette().color(QPalette::WindowText));
        p.drawRect(r);
    }

private:
    Cobertura c_;
};

} // namespace

LeyendaFranjas::LeyendaFranjas(QWidget* padre) : QWidget(padre) {
    auto* fila = new QHBoxLayout(this);
    fila->setContentsMargins(0, 0, 0, 0);
    const struct {
        Cobertura c;
        const char* texto;
    } claves[] = {{Cobertura::Normal, "Franja normal"},
                  {Cobertura::Reducida, "Franja reducida"},
                  {Cobertura::Solape, "Solape: revise las horas"},
                  {Cobertura::SinFranja, "Sin franja: se cobra como reducida"}};
    for (const auto& k : claves) {
        fila->addWidget(new Muestra(k.c, this));
        fila->addWidget(new QLabel(k.texto, this));
        fila->addSpacing(fontMetrics().height());
    }
    fila->addStretch();
}

} // namespace vorimesk
