#include "ControlesDialogo.h"

#include <QDateEdit>
#include <QLabel>
#include <QPushButton>

namespace vorimesk {

QPushButton* Boton(const QString& texto, const char* nombre, QWidget* padre) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setAutoDefault(false);
    return b;
}

QDateEdit* EditorFecha(const char* nombre, QWidget* padre) {
    auto* e = new QDateEdit(padre);
    e->setObjectName(nombre);
    e->setDisplayFormat("dd/MM/yyyy");
    e->setCalendarPopup(true);
    return e;
}

QLabel* CifraEnNegrita(QWidget* padre, const char* nombre) {
    auto* l = new QLabel(padre);
    l->setObjectName(nombre);
    QFont negrita = l->font();
    negrita.setBold(true);
    l->setFont(negrita);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

} // namespace vorimesk
