#include "PanelLogo.h"

#include <QPainter>

namespace vorimesk {

PanelLogo::PanelLogo(QWidget* padre) : QWidget(padre) {
    QFont f = font();
    f.setPointSize(f.pointSize() + 6);
    f.setBold(true);
    setFont(f);
    setMinimumWidth(48);
}

void PanelLogo::Caption(const QString& texto) {
    logo_.Caption(texto);
    update();
}

void PanelLogo::paintEvent(QPaintEvent*) {
    QPainter pintor(this);
    logo_.Draw(pintor, rect(), font());
}

} // namespace vorimesk
