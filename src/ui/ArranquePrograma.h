#pragma once
// Starts a program of the list "Cargar programas al conectar" as the Linux
// desktop would (see platform/OrdenPrograma.h). A program that cannot
// be started is reported in Spanish through `alFallar`, later when a
// launcher has to be waited for; the program itself outlives the meter.

#include <QString>
#include <functional>

class QObject;

namespace vorimesk {

// `dueño` keeps a launcher that is being waited for.
void ArrancarPrograma(QObject* dueño, const QString& ruta,
                      const std::function<void(const QString& mensaje)>& alFallar);

} // namespace vorimesk
