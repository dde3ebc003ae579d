#pragma once
// Dates and clock times between the program's date values and Qt's editors.

#include "core/Fecha.h"

#include <QDate>
#include <QString>
#include <QTime>
#include <string>

namespace vorimesk {

inline QDate AQDate(Fecha f) {
    return QDate(f.Año(), f.Mes(), f.Dia());
}
inline Fecha DeQDate(const QDate& d) {
    return Fecha::Crear(d.year(), d.month(), d.day());
}
// The time of day of a date value, and back (the date part is 0).
inline QTime AQTime(Fecha f) {
    return QTime(f.Hora(), f.Minuto(), f.Segundo());
}
inline Fecha DeQTime(const QTime& t) {
    return Fecha::DesdeSegundos(t.msecsSinceStartOfDay() / 1000);
}
inline QString QTexto(const std::string& texto) {
    return QString::fromStdString(texto);
}

} // namespace vorimesk
