#include "PanelConexion.h"

#include "monitor/EntradasConexion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

QPixmap Lampara(const QColor& color, int lado) {
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

} // namespace

PanelConexion::PanelConexion(QWidget* padre) : QWidget(padre) {
    shEstado = new QLabel(this);
    shEstado->setObjectName("shEstado");
    lMsgEstado = new QLabel(this);
    lMsgEstado->setObjectName("lMsgEstado");
    listaConexiones = new QListWidget(this);
    listaConexiones->setObjectName("listaConexiones");
    listaConexiones->setToolTip("Doble clic para marcar");
    listaConexiones->setMaximumHeight(listaConexiones->fontMetrics().height() * 4 + 8);
    connect(listaConexiones, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        if (hayEntradas_ && item != nullptr) {
            emit Marcar(item->text());
        }
    });

    auto* estado = new QHBoxLayout;
    estado->addWidget(shEstado);
    estado->addWidget(lMsgEstado);
    estado->addStretch();
    auto* izquierda = new QVBoxLayout;
    izquierda->addLayout(estado);
    izquierda->addStretch();
    auto* todo = new QHBoxLayout(this);
    todo->setContentsMargins(0, 0, 0, 0);
    todo->addLayout(izquierda, 1);
    auto* lista = new QVBoxLayout;
    lista->addWidget(new QLabel("Conexiones:", this));
    lista->addWidget(listaConexiones);
    todo->addLayout(lista, 1);
    Estado(QColor(255, 85, 85), "Desconectado.");
}

void PanelConexion::MostrarEntradas(const std::vector<std::string>& entradas) {
    listaConexiones->clear();
    hayEntradas_ = !entradas.empty();
    if (!hayEntradas_) {
        listaConexiones->addItem(kSinConexiones);
    }
    for (const std::string& e : entradas) {
        listaConexiones->addItem(QString::fromStdString(e));
    }
    if (hayEntradas_) {
        listaConexiones->setCurrentRow(0);
    }
}

void PanelConexion::Estado(const QColor& color, const QString& texto) {
    const int lado = lMsgEstado->fontMetrics().height() + 4;
    shEstado->setPixmap(Lampara(color, lado));
    lMsgEstado->setText(texto);
}

} // namespace vorimesk
