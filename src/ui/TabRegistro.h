#pragma once
// The register tab: the grid of listed calls (Grid1) with the period or
// filter it shows, and the totals under it. "E&xportar..." saves the calls
// listed as CSV or JSON, the files "vorimesk-cli exportar" writes.

#include "register/ListadoRegistro.h"

#include <QWidget>
#include <functional>
#include <vector>

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

    // Asks where to save and writes the calls listed there, as JSON when the
    // name ends in ".json" and as CSV otherwise; false when nothing was
    // written (cancelled, or a failure the user is told about).
    bool Exportar();
    // The save dialog: the chosen path, or empty when cancelled.
    std::function<QString()> ElegirArchivoExportar;

signals:
    // What an action did, for the window's status line.
    void Informar(const QString& texto);
    // The user asks for the register filter.
    void PedirFiltro();
    // The user asks what the listed calls would cost under every tariff.
    void PedirComparacion();

private:
    QTableView* Grid1 = nullptr;
    QLabel* lPeriodo2 = nullptr;
    QLabel* Label4 = nullptr;       // beside "Llamadas:"
    QLabel* lDuracionReg = nullptr; // beside "Duracion:"
    QLabel* lGastoReg = nullptr;    // beside "Gasto:"
    QPushButton* cmdFiltro = nullptr;
    QPushButton* cmdComparar = nullptr;
    QPushButton* cmdExportar = nullptr;

    ModeloRegistro* modelo_ = nullptr;
    AnchosProporcionales* anchos_ = nullptr;
    const Log* registro_ = nullptr;
    std::vector<int> indices_;
};

} // namespace vorimesk
