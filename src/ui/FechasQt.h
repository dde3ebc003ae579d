#pragma once
// Between the program's date values and Qt's calendar types.

#include "core/Fecha.h"

#include <QDate>
#include <QTime>

namespace vorimesk {

inline QDate AQDate(Fecha f) {
    return QDate(f.Año(), f.Mes(), f.Dia());
}
inline Fecha DesdeQDate(QDate d) {
    return Fecha::Crear(d.year(), d.month(), d.day());
}
inline QTime AQTime(Fecha f) {
    return QTime(f.Hora(), f.Minuto(), f.Segundo());
}
// The time of day as a date value with no date part.
inline Fecha DesdeQTime(QTime t) {
    return Fecha::DesdeSegundos(t.msecsSinceStartOfDay() / 1000);
}

} // namespace vorimesk
