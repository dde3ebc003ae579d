#pragma once
// Builders of the controls the dialogs share, each given its object name so
// it can be found by it.

class QDateEdit;
class QLabel;
class QPushButton;
class QString;
class QWidget;

namespace vorimesk {

// A push button that is never the default one: Enter in a field does not
// press it.
QPushButton* Boton(const QString& texto, const char* nombre, QWidget* padre);
// A date as dd/MM/yyyy with a calendar to pick it from.
QDateEdit* EditorFecha(const char* nombre, QWidget* padre);
// A figure in bold that the user can select and copy.
QLabel* CifraEnNegrita(QWidget* padre, const char* nombre);

} // namespace vorimesk
