#include "fModem.h"

#include "AnchoTitulo.h"
#include "Iconos.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorimesk {

fModem::fModem(const QStringList& modelos, QWidget* padre) : QDialog(padre) {
    setWindowTitle("Seleccione un modem");
    setWindowIcon(IconoPrograma());
    Label1 = new QLabel(
        "De los siguientes modems instalados en su sistema, cual desea que use el programa:", this);
    Label1->setWordWrap(true);
    List1 = new QListWidget(this);
    List1->setObjectName("List1");
    List1->addItems(modelos);
    List1->setCurrentRow(0);
    OKButton = new QPushButton("&Aceptar", this);
    OKButton->setObjectName("OKButton");
    OKButton->setDefault(true);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(List1, &QListWidget::itemDoubleClicked, this, &QDialog::accept);

    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(OKButton);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Label1);
    todo->addWidget(List1, 1);
    todo->addLayout(botones);
    resize(420, 260);
    AjustarAnchoAlTitulo(*this);
}

int fModem::Elegido() const {
    return std::max(0, List1->currentRow());
}

} // namespace vorimesk
