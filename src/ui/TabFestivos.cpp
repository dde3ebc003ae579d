#include "TabFestivos.h"

#include "FechasQt.h"
#include "session/DatosSesion.h"

#include <QCalendarWidget>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace vorimesk {

TabFestivos::TabFestivos(DatosSesion& datos, QWidget* padre) : QWidget(padre), datos_(datos) {
    auto* marco = new QGroupBox("Festivos", this);
    FestivosCal = new QCalendarWidget(marco);
    FestivosCal->setObjectName("FestivosCal");
    FestivosCal->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    FestivosCal->setFirstDayOfWeek(Qt::Monday);
    FestivosCal->setGridVisible(true);
    FestivosCal->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    FestivosCal->setSelectedDate(AQDate(datos_.RelojPrograma.Hoy()));
    cmdCopiarAño = new QPushButton("&Copiar al año siguiente", marco);
    cmdCopiarAño->setObjectName("cmdCopiarAño");
    cmdBorrartodos = new QPushButton("&Borrar todo", marco);
    cmdBorrartodos->setObjectName("cmdBorrartodos");
    connect(FestivosCal, &QCalendarWidget::clicked, this, &TabFestivos::Pulsar);
    connect(cmdCopiarAño, &QPushButton::clicked, this, &TabFestivos::CopiarAlAñoSiguiente);
    connect(cmdBorrartodos, &QPushButton::clicked, this, &TabFestivos::BorrarTodo);

    auto* botones = new QVBoxLayout;
    botones->addWidget(cmdCopiarAño);
    botones->addWidget(cmdBorrartodos);
    botones->addStretch();
    auto* dentro = new QHBoxLayout(marco);
    dentro->addWidget(FestivosCal, 1);
    dentro->addLayout(botones);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(marco);
}

QTextCharFormat TabFestivos::Festivo() {
    QTextCharFormat f;
    f.setForeground(QColor(200, 0, 0));
    f.setBackground(QColor(255, 225, 225));
    f.setFontWeight(QFont::Bold);
    return f;
}

bool TabFestivos::TieneEstiloFestivo(QDate dia) const {
    return FestivosCal->dateTextFormat(dia) == Festivo();
}

void TabFestivos::MostrarFestivos() {
    FestivosCal->setDateTextFormat(QDate(), QTextCharFormat());
    for (const Fecha& f : datos_.Ajustes.Festivos) {
        FestivosCal->setDateTextFormat(AQDate(f), Festivo());
    }
}

void TabFestivos::Pulsar(QDate dia) {
    auto& festivos = datos_.Ajustes.Festivos;
    if (!TieneEstiloFestivo(dia)) {
        FestivosCal->setDateTextFormat(dia, Festivo());
        festivos.push_back(DeQDate(dia));
    } else {
        FestivosCal->setDateTextFormat(dia, QTextCharFormat());
        const Fecha buscado = DeQDate(dia);
        const auto it = std::find_if(festivos.begin(), festivos.end(),
                                     [&](Fecha f) { return f.Dias() == buscado.Dias(); });
        if (it != festivos.end()) {
            festivos.erase(it);
        }
    }
    datos_.RecalculoPendiente = true;
}

void TabFestivos::CopiarAlAñoSiguiente() {
    auto& festivos = datos_.Ajustes.Festivos;
    const int año = datos_.RelojPrograma.Hoy().Año();
    const std::size_t antes = festivos.size();
    for (std::size_t i = 0; i < antes; ++i) {
        const Fecha f = festivos[i];
        if (f.Año() != año) {
            continue;
        }
        // 29 February becomes 1 March, as a calendar date carries.
        const Fecha siguiente = Fecha::Crear(año + 1, f.Mes(), 1).MasDias(f.Dia() - 1);
        festivos.push_back(siguiente);
        FestivosCal->setDateTextFormat(AQDate(siguiente), Festivo());
    }
    datos_.RecalculoPendiente = true;
}

void TabFestivos::BorrarTodo() {
    datos_.Ajustes.Festivos.clear();
    FestivosCal->setDateTextFormat(QDate(), QTextCharFormat());
    datos_.RecalculoPendiente = true;
}

} // namespace vorimesk
