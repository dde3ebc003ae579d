#pragma once
// The period picker: the billing periods of one year, from the first date
// its opener gives up to today. Its opener pushes the billing day, the
// interval choice (0 "Mensual", 1 "Par Bimensual", 2 "Impar Bimensual") and
// the first date on the program's stack before creating it; the picker
// takes them off as it opens. Picking a period (double click, Enter or
// "Aceptar") leaves its start and then its end on the stack (the end on
// top) and sets the result code to kPeriodoElegido; closing it any other
// way leaves the stack empty.

#include "core/Reloj.h"
#include "tariff/cPeriodo.h"

#include <QDialog>

class QComboBox;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace vorimesk {

class fPer : public QDialog {
    Q_OBJECT
public:
    explicit fPer(const Reloj& reloj, QWidget* padre = nullptr);

    // Hands the period back to the opener and closes.
    void Elegir(QListWidgetItem* elemento);

public slots:
    void reject() override;

private:
    QComboBox* cmbAño = nullptr;
    QListWidget* lvPer = nullptr;
    QPushButton* cmdAceptar = nullptr;

    void TomarParametros();
    void LlenarAños();
    void ElegirAño(int indice);

    const Reloj& reloj_;
    cPeriodo periodos_;
    Fecha primera_;
};

} // namespace vorimesk
