#include "fMini.h"

#include "ArrastreVentana.h"
#include "Iconos.h"
#include "PaletaColores.h"
#include "monitor/PantallaMonitor.h"

#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

namespace vorimesk {
namespace {

constexpr int kMargen = 24;

QLabel* Etiqueta(const QString& texto, const char* nombre, QWidget* padre) {
    auto* l = new QLabel(texto, padre);
    l->setObjectName(nombre);
    return l;
}

} // namespace

fMini::fMini(QWidget* padre)
    : QWidget(padre, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
    setObjectName("fMini");
    setWindowTitle("Vorimesk");
    setAttribute(Qt::WA_DeleteOnClose);
    lTiempo = Etiqueta("00:00:00", "lTiempo", this);
    QFont grande = lTiempo->font();
    grande.setPointSize(grande.pointSize() + 5);
    grande.setBold(true);
    lTiempo->setFont(grande);
    lGasto = Etiqueta("0.00", "lGasto", this);
    QFont gasto = lGasto->font();
    gasto.setBold(true);
    lGasto->setFont(gasto);
    lTarifa = Etiqueta({}, "lTarifa", this);
    lBono = Etiqueta({}, "lBono", this);
    shEstado = Etiqueta({}, "shEstado", this);
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

    auto* arrastre = new ArrastreVentana(this);
    arrastre->Agarrar(this);
    for (QLabel* l : {lTiempo, lGasto, lTarifa, lBono, shEstado}) {
        arrastre->Agarrar(l);
    }
    setToolTip("Arrastre para mover; la ventana normal vuelve desde la bandeja");
}

void fMini::Mostrar(const PantallaMonitor& p) {
    shEstado->setPixmap(PintarLampara(ColorPaleta(p.ColorIndicador), 14));
    lTiempo->setText(QString::fromStdString(p.Tiempo));
    QPalette paleta = lTiempo->palette();
    paleta.setColor(QPalette::WindowText, ColorPaleta(p.ColorTiempo));
    lTiempo->setPalette(paleta);
    lGasto->setText(QString::fromStdString(p.Gasto.empty() ? "0.00" : p.Gasto));
    lTarifa->setText(QString::fromStdString(p.Tarifa));
    lBono->setText(QString::fromStdString(p.Bono));
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
