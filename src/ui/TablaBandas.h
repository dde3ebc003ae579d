#pragma once
// The two bands of one day type as a small table: a row for the normal band
// and one for the reduced, with the price per minute, the first second and
// the last second of each.

#include <QWidget>
#include <array>
#include <string>

class QLineEdit;
class QTimeEdit;

namespace vorimesk {

class TarifaEditable;

class TablaBandas : public QWidget {
    Q_OBJECT
public:
    // tipoDia: 0 "Semana", 1 "Sabado", 2 "Festivo".
    explicit TablaBandas(int tipoDia, QWidget* padre = nullptr);

    // Fills the table without reporting changes.
    void Mostrar(const TarifaEditable& tarifa);
    // The editor of a field of this day type ("Semana.Normal.Fin"), or null.
    QWidget* Campo(const std::string& clave) const;
    // Where the day type is shown to the user: the normal band's price.
    QLineEdit* PrimerCampo() const { return txtPrecio[0]; }

signals:
    void Cambiado(const QString& clave, const QString& texto);

private:
    // Per band (0 normal, 1 reduced).
    std::array<QLineEdit*, 2> txtPrecio{};
    std::array<QTimeEdit*, 2> tmeInicio{};
    std::array<QTimeEdit*, 2> tmeFin{};

    QTimeEdit* NuevaHora(const std::string& clave);
    int tipoDia_;
};

} // namespace vorimesk
