#pragma once
// Tab 1: the dial-up entries of the system, each with the tariff and the
// discount its calls are priced with. Choosing a tariff or a discount stores
// it at once for the selected entry.

#include <QWidget>
#include <string>
#include <vector>

class QComboBox;
class QDateEdit;
class QLabel;
class QListWidget;
class QSpinBox;

namespace vorimesk {

struct DatosSesion;

class TabConexiones : public QWidget {
    Q_OBJECT
public:
    TabConexiones(DatosSesion& datos, QWidget* padre = nullptr);

    // The system's entries, in order; none shows "No hay conexiones disponibles.".
    void MostrarEntradas(const std::vector<std::string>& entradas);
    // Where the system's entries come from, in one line under the list.
    void MostrarOrigen(const std::string& origen);
    // The tariff names of the book, for the tariff list.
    void MostrarTarifas();

    // Position of the entry in EntradasConexion, compared exactly; -1 when
    // it is not there.
    int Buscar(const std::string& entrada) const;

private:
    QListWidget* listaConexiones2 = nullptr;
    QComboBox* cmbTarifa = nullptr;
    QComboBox* cmbDescuento = nullptr;
    QLabel* lOrigen = nullptr;
    // The data plan's cycle of the entry ("Planes.json", written at once).
    QComboBox* cmbCiclo = nullptr;
    QSpinBox* spnCiclo = nullptr;
    QDateEdit* dtDesde = nullptr;

    void Seleccion();
    void ElegirTarifa(int indice);
    void ElegirDescuento(int indice);
    QWidget* CrearCiclo(QWidget* padre);
    void MostrarCiclo(const std::string& entrada);
    void CambiarCiclo();
    std::string Seleccionada() const;

    DatosSesion& datos_;
    bool hayEntradas_ = false;
};

} // namespace vorimesk
