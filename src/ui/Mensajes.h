#pragma once
// Message boxes with their buttons in Spanish whatever translations Qt finds,
// titled with the window they belong to.

#include <QMessageBox>
#include <QString>

namespace vorimesk {

// Tells something; one "Aceptar" button.
void Avisar(QWidget* padre, QMessageBox::Icon icono, const QString& texto,
            const QString& detalle = {});

// Asks before doing something: true for the button `si`, false for
// "Cancelar" (the default) or closing the box.
bool Confirmar(QWidget* padre, const QString& texto, const QString& detalle, const QString& si);

// Closing with unsaved changes.
enum class AlCerrar { Guardar, Descartar, Cancelar };
AlCerrar PreguntarAlCerrar(QWidget* padre, const QString& texto);

} // namespace vorimesk
