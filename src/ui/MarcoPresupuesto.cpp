#include "MarcoPresupuesto.h"

#include "core/Errores.h"
#include "core/FormatoNumero.h"
#include "session/PresupuestoSesion.h"
#include "settings/Presupuesto.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace vorimesk {

MarcoPresupuesto::MarcoPresupuesto(PresupuestoSesion& presupuesto, QWidget* padre)
    : QGroupBox("Presupuesto", padre), presupuesto_(presupuesto) {
    setObjectName("MarcoPresupuesto");
    txtPresupuesto = new QLineEdit(this);
    txtPresupuesto->setObjectName("txtPresupuesto");
    txtPresupuesto->setAlignment(Qt::AlignRight);
    txtPresupuesto->setPlaceholderText("sin presupuesto");
    txtPresupuesto->setToolTip("Lo que quiere gastar como mucho en cada periodo de facturacion; "
                               "vacio para no usar presupuesto");
    lEstadoPresupuesto = new QLabel(this);
    lEstadoPresupuesto->setObjectName("lEstadoPresupuesto");
    lEstadoPresupuesto->setWordWrap(true);
    auto* fila = new QHBoxLayout;
    fila->addWidget(new QLabel("Por periodo:", this));
    fila->addWidget(txtPresupuesto);
    auto* todo = new QVBoxLayout(this);
    todo->addLayout(fila);
    todo->addWidget(lEstadoPresupuesto);
    connect(txtPresupuesto, &QLineEdit::editingFinished, this, [this] { Guardar(); });
    Mostrar();
}

void MarcoPresupuesto::Mostrar() {
    try {
        const std::optional<double> p = presupuesto_.Actual();
        guardado_ = p ? QString::fromStdString(TextoDinero(*p)) : QString();
        lEstadoPresupuesto->clear();
    } catch (const Error& e) {
        guardado_.clear();
        lEstadoPresupuesto->setText(QString::fromStdString(e.what()));
    }
    txtPresupuesto->setText(guardado_);
}

bool MarcoPresupuesto::Guardar() {
    const QString texto = txtPresupuesto->text().trimmed();
    if (texto == guardado_) {
        return true;
    }
    std::optional<double> nuevo;
    if (!texto.isEmpty()) {
        nuevo = LeerTextoPresupuesto(texto.toStdString());
        if (!nuevo) {
            lEstadoPresupuesto->setText("\"" + texto +
                                        "\" no es una cantidad mayor que 0; el presupuesto "
                                        "sigue siendo el que era.");
            txtPresupuesto->setText(guardado_);
            return false;
        }
    }
    try {
        presupuesto_.Cambiar(nuevo);
    } catch (const Error& e) {
        lEstadoPresupuesto->setText(QString::fromStdString(e.what()));
        txtPresupuesto->setText(guardado_);
        return false;
    }
    guardado_ = nuevo ? QString::fromStdString(TextoDinero(*nuevo)) : QString();
    txtPresupuesto->setText(guardado_);
    lEstadoPresupuesto->clear();
    emit PresupuestoCambiado();
    return true;
}

} // namespace vorimesk
