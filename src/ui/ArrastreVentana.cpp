#include "ArrastreVentana.h"

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

namespace vorimesk {

ArrastreVentana::ArrastreVentana(QWidget* ventana) : QObject(ventana), ventana_(ventana) {}

void ArrastreVentana::Agarrar(QWidget* asa) {
    asa->installEventFilter(this);
}

bool ArrastreVentana::eventFilter(QObject* objeto, QEvent* evento) {
    switch (evento->type()) {
    case QEvent::MouseButtonPress: {
        auto* raton = static_cast<QMouseEvent*>(evento);
        if (raton->button() != Qt::LeftButton) {
            break;
        }
        QWindow* ventana = ventana_->window()->windowHandle();
        if (ventana != nullptr && ventana->startSystemMove()) {
            return true;
        }
        arrastrando_ = true;
        desfase_ = raton->globalPosition().toPoint() - ventana_->window()->pos();
        return true;
    }
    case QEvent::MouseMove:
        if (arrastrando_) {
            const auto* raton = static_cast<QMouseEvent*>(evento);
            ventana_->window()->move(raton->globalPosition().toPoint() - desfase_);
            return true;
        }
        break;
    case QEvent::MouseButtonRelease:
        if (arrastrando_) {
            arrastrando_ = false;
            return true;
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(objeto, evento);
}

} // namespace vorimesk
