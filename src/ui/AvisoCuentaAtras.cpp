#include "AvisoCuentaAtras.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace vorimesk {

AvisoCuentaAtras::AvisoCuentaAtras(const QString& texto, int segundos, QWidget* padre)
    : QDialog(padre), quedan_(segundos) {
    setObjectName("AvisoCuentaAtras");
    setWindowTitle("Vorimesk: limite alcanzado");
    setAttribute(Qt::WA_DeleteOnClose);
    auto* texto1 = new QLabel(texto, this);
    texto1->setWordWrap(true);
    lCuenta = new QLabel(this);
    lCuenta->setObjectName("lCuenta");
    auto* botones = new QDialogButtonBox(this);
    QPushButton* seguir = botones->addButton("Seguir conectado", QDialogButtonBox::RejectRole);
    seguir->setObjectName("cmdSeguir");
    connect(seguir, &QPushButton::clicked, this, [this] {
        emit Seguir();
        close();
    });
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(texto1);
    todo->addWidget(lCuenta);
    todo->addWidget(botones);
    reloj_ = new QTimer(this);
    reloj_->setInterval(1000);
    connect(reloj_, &QTimer::timeout, this, [this] { Contar(); });
    Contar();
    reloj_->start();
    setMinimumWidth(440);
}

void AvisoCuentaAtras::Contar() {
    lCuenta->setText(QString("Quedan %1 s.").arg(quedan_));
    if (quedan_ > 0) {
        --quedan_;
    }
}

} // namespace vorimesk
