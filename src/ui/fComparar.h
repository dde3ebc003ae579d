#pragma once
// "Comparar tarifas": what a set of calls would have cost under every tariff
// of the book, with the user's bonos and without, beside what the register
// charged: a table and a bar chart. The calls are those listed in the
// register tab (its period or filter) or those between two dates. Nothing is
// changed: the register and the ledger are only read.

#include "core/Fecha.h"
#include "register/ComparacionTarifas.h"
#include "tariff/cBono.h"

#include <QDialog>
#include <filesystem>
#include <vector>

class QChartView;
class QDateEdit;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vorimesk {

class Log;
struct DatosSesion;
struct Listado;

struct FuenteComparacion {
    const Log* registro = nullptr;
    std::filesystem::path carpeta;
    cBono bono;
    std::vector<Fecha> festivos;
    std::vector<int> listadas; // the calls the register tab lists
    QString periodoListado;    // its caption ("" after a filter without dates)
    Fecha hoy;
    bool impuestos = false; // the register shows amounts with taxes added
};

class fComparar : public QDialog {
    Q_OBJECT
public:
    fComparar(FuenteComparacion fuente, QWidget* padre = nullptr);

    // What the window's data gives for the register tab's listing.
    static FuenteComparacion FuenteDe(const DatosSesion& datos, const Listado& listado);

    // Compares again with the calls chosen in the window and shows it.
    void Comparar();
    const ComparacionTarifas& Resultado() const { return resultado_; }

    QRadioButton* optListadas = nullptr;
    QRadioButton* optFechas = nullptr;
    QDateEdit* dtDesde = nullptr;
    QDateEdit* dtHasta = nullptr;
    QPushButton* cmdComparar = nullptr;
    QLabel* lResumen = nullptr;
    QTableWidget* tbTarifas = nullptr;
    QChartView* grComparacion = nullptr;

private:
    QWidget* Eleccion();
    std::vector<int> Elegidas() const;
    void Llenar();
    void Dibujar();

    FuenteComparacion fuente_;
    ComparacionTarifas resultado_;
};

} // namespace vorimesk
