#pragma once
// The holiday tab: a month calendar where a click marks or unmarks a holiday
// (shown in the "festivos" style), copying this year's holidays to the next
// year, and clearing them all. Every change raises RecalculoPendiente, since
// holidays are priced as Sundays.

#include <QDate>
#include <QTextCharFormat>
#include <QWidget>

class QCalendarWidget;
class QPushButton;

namespace vorimesk {

struct DatosSesion;

class TabFestivos : public QWidget {
    Q_OBJECT
public:
    TabFestivos(DatosSesion& datos, QWidget* padre = nullptr);

    // Styles every stored holiday (at load).
    void MostrarFestivos();
    // The "festivos" style.
    static QTextCharFormat Festivo();
    bool TieneEstiloFestivo(QDate dia) const;

    // The three edits, as the calendar and the buttons run them.
    void Pulsar(QDate dia);
    void CopiarAlAñoSiguiente();
    void BorrarTodo();

private:
    QCalendarWidget* FestivosCal = nullptr;
    QPushButton* cmdCopiarAño = nullptr;
    QPushButton* cmdBorrartodos = nullptr;

    DatosSesion& datos_;
};

} // namespace vorimesk
