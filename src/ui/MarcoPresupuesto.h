#pragma once
// The budget in the options tab: an amount per billing period, or nothing.
// The session's budget is changed (and its file written) as soon as the
// user leaves the field; an amount that does not read is refused with a
// message and the saved budget stays.

#include <QGroupBox>

class QLabel;
class QLineEdit;

namespace vorimesk {

class PresupuestoSesion;

class MarcoPresupuesto : public QGroupBox {
    Q_OBJECT
public:
    MarcoPresupuesto(PresupuestoSesion& presupuesto, QWidget* padre = nullptr);

    // Shows the session's budget.
    void Mostrar();
    // Saves what the field holds; false (and a message) when it does not read.
    bool Guardar();

    QLineEdit* txtPresupuesto = nullptr;
    QLabel* lEstadoPresupuesto = nullptr;

signals:
    void PresupuestoCambiado();

private:
    PresupuestoSesion& presupuesto_;
    QString guardado_;
};

} // namespace vorimesk
