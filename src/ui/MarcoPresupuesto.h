#pragma once
// The budget in the options tab: an amount per billing period, or nothing.
// It is written to its own file in the data folder as soon as the user
// leaves the field; an amount that does not read is refused with a message
// and the saved budget stays.

#include <QGroupBox>
#include <filesystem>

class QLabel;
class QLineEdit;

namespace vorimesk {

class MarcoPresupuesto : public QGroupBox {
    Q_OBJECT
public:
    MarcoPresupuesto(std::filesystem::path carpeta, QWidget* padre = nullptr);

    // Shows the budget the file holds.
    void Mostrar();
    // Saves what the field holds; false (and a message) when it does not read.
    bool Guardar();

    QLineEdit* txtPresupuesto = nullptr;
    QLabel* lEstadoPresupuesto = nullptr;

signals:
    void PresupuestoCambiado();

private:
    std::filesystem::path carpeta_;
    QString guardado_;
};

} // namespace vorimesk
