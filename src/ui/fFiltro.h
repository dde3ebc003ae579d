#pragma once
// The register filter: gathers up to seven criteria (dates, start hours, a
// duration comparison, band, bono use, day type) and has the register window
// list the calls that meet them. It changes nothing in the register and
// stays open, so the user can refine and apply again.
//
// Its opener may leave the first call's date over the billing day and the
// interval choice on the program's stack (pushed as billing day, interval,
// date); the filter keeps them and hands them on to the period picker.

#include "AnfitrionRegistro.h"
#include "core/Reloj.h"

#include <QDialog>
#include <initializer_list>

class QComboBox;
class QDateEdit;
class QPushButton;
class QTimeEdit;

namespace vorimesk {

class fFiltro : public QDialog {
    Q_OBJECT
public:
    fFiltro(AnfitrionRegistro& anfitrion, const Reloj& reloj, QWidget* padre = nullptr);

    // The nine criteria as "&Aplicar" passes them: -1 for a group whose
    // toggle is up.
    CriteriosFiltro Criterios() const;

    // "...": the period picker, modal, fed with the kept values; a period
    // picked there fills the dates and presses the date toggle.
    void ElegirPeriodo();
    // What the filter does when it comes back to the front after the picker.
    void VolverDelSelector();

private:
    QPushButton* bFec = nullptr;
    QPushButton* bHora = nullptr;
    QPushButton* bTiempo = nullptr;
    QPushButton* bTipo = nullptr;
    QPushButton* bBono = nullptr;
    QPushButton* bDia = nullptr;
    QDateEdit* fecDesde = nullptr;
    QDateEdit* fecHasta = nullptr;
    QPushButton* cmdPeriodos = nullptr;
    QTimeEdit* HoraSpin1 = nullptr;
    QTimeEdit* HoraSpin2 = nullptr;
    QComboBox* Combo1 = nullptr;
    QTimeEdit* HoraTiempo = nullptr;
    QComboBox* Combo2 = nullptr;
    QComboBox* Combo3 = nullptr;
    QComboBox* Combo4 = nullptr;
    QPushButton* cmdAplicar = nullptr;
    QPushButton* cmdSuprimir = nullptr;
    QPushButton* cmdTodos = nullptr;

    QWidget* GrupoFecha();
    QWidget* GrupoHora();
    QWidget* GrupoTiempo();
    QWidget* GrupoOtras();
    void Conmutar(QPushButton* boton, std::initializer_list<QWidget*> controles);
    void TomarValoresGuardados();
    void SoltarInterruptores();
    void Aplicar();
    void Suprimir();
    void VerTodos();

    AnfitrionRegistro& anfitrion_;
    const Reloj& reloj_;
    // What the opener left for the period picker: first date, interval
    // choice and billing day.
    Fecha fecha_;
    std::int64_t entero1_ = 0;
    std::int64_t entero2_ = 1;
};

} // namespace vorimesk
