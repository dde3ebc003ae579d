#pragma once
// The register tab: the grid of listed calls (Grid1) with the period or
// filter it shows, and the totals under it.

#include "register/ListadoRegistro.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QTableView;

namespace vorimesk {

class ModeloRegistro;
class AnchosProporcionales;

class TabRegistro : public QWidget {
    Q_OBJECT
public:
    explicit TabRegistro(QWidget* padre = nullptr);

    void Mostrar(const Log& registro, const Listado& listado, OpcionesCoste opciones);
    const ModeloRegistro& Modelo() const { return *modelo_; }

signals:
    // The user asks for the register filter.
    void PedirFiltro();

private:
    QTableView* Grid1 = nullptr;
    QLabel* lPeriodo2 = nullptr;
    QLabel* Label4 = nullptr;       // beside "Llamadas:"
    QLabel* lDuracionReg = nullptr; // beside "Duracion:"
    QLabel* lGastoReg = nullptr;    // beside "Gasto:"
    QPushButton* cmdFiltro = nullptr;

    ModeloRegistro* modelo_ = nullptr;
    AnchosProporcionales* anchos_ = nullptr;
};

} // namespace vorimesk
