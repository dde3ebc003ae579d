#include "ControlesDialogo.h"

#include <QDateEdit>
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

} // namespace vorimesk
