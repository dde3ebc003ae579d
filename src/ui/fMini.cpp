#include "fMini.h"

#include "ArrastreVentana.h"
#include "EtiquetasMedidor.h"
#include "Iconos.h"
#include "PaletaColores.h"
#include "monitor/PantallaMonitor.h"

#include <QAction>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

namespace vorimesk {
namespace {

constexpr int kMargen = 24;

} // namespace

fMini::fMini(QWidget* padre)
    : QWidget(padre, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setObjectName("fMini");
    setWindowTitle("Vorimesk");
    setAttribute(Qt::WA_DeleteOnClose);
    medidor_ = EtiquetasMedidor::Crear(this, 5, 0);
    lTiempo = medidor_.lTiempo;
    lGasto = medidor_.lGasto;
    lTarifa = medidor_.lTarifa;
    lBono = medidor_.lBono;
    shEstado = EtiquetaConNombre({}, "shEstado", this);
    cmdCerrar = new QPushButton(this);
    cmdCerrar->setObjectName("cmdCerrar");
    cmdCerrar->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    cmdCerrar->setFlat(true);
    cmdCerrar->setFixedSize(18, 18);
    cmdCerrar->setToolTip("Cerrar la mini ventana");
    connect(cmdCerrar, &QPushButton::clicked, this, [this] {
        emit Cerrada();
        close();
    });

    auto* rejilla = new QGridLayout(this);
    rejilla->setContentsMargins(8, 4, 4, 8);
    rejilla->setHorizontalSpacing(8);
    rejilla->setVerticalSpacing(2);
    rejilla->addWidget(shEstado, 0, 0);
    rejilla->addWidget(lTiempo, 0, 1, Qt::AlignCenter);
    rejilla->addWidget(cmdCerrar, 0, 2, Qt::AlignRight | Qt::AlignTop);
    rejilla->addWidget(lGasto, 1, 1, Qt::AlignCenter);
    auto* pie = new QHBoxLayout;
    pie->addWidget(lTarifa);
    pie->addStretch();
    pie->addWidget(lBono);
    rejilla->addLayout(pie, 2, 0, 1, 3);
    rejilla->setColumnStretch(1, 1);
    setMinimumWidth(lTiempo->fontMetrics().horizontalAdvance("00:00:00") * 2);

    // Presses on the labels reach the window too: its body drags it.
    (new ArrastreVentana(this))->Agarrar(this);
    setToolTip("Arrastre para mover; doble clic o boton derecho para volver a la ventana "
               "normal");

    auto* normal = new QAction("&Ventana normal", this);
    connect(normal, &QAction::triggered, this, &fMini::VentanaNormal);
    auto* cerrar = new QAction("&Cerrar la mini ventana", this);
    connect(cerrar, &QAction::triggered, cmdCerrar, &QPushButton::click);
    addAction(normal);
    addAction(cerrar);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void fMini::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (evento->button() == Qt::LeftButton) {
        emit VentanaNormal();
        return;
    }
    QWidget::mouseDoubleClickEvent(evento);
}

void fMini::Mostrar(const PantallaMonitor& p) {
    shEstado->setPixmap(PintarLampara(ColorPaleta(p.ColorIndicador), 14));
    medidor_.Mostrar(p);
}

void fMini::Colocar() {
    adjustSize();
    const QScreen* pantalla = screen() != nullptr ? screen() : QGuiApplication::primaryScreen();
    if (pantalla == nullptr) {
        return;
    }
    const QRect r = pantalla->availableGeometry();
    move(r.right() - width() - kMargen, r.top() + kMargen);
}

void fMini::paintEvent(QPaintEvent*) {
    QPainter p(this);
    QLinearGradient fondo(0, 0, 0, height());
    fondo.setColorAt(0, palette().color(QPalette::Window).lighter(110));
    fondo.setColorAt(1, palette().color(QPalette::Window).darker(105));
    p.fillRect(rect(), fondo);
    p.setPen(palette().color(QPalette::Mid));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace vorimesk
