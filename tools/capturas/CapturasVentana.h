#pragma once
// Screenshots of the main window's tabs and of its dialogs, written as PNG
// files into `carpeta`; false when one cannot be written.

#include <QPixmap>
#include <QString>

class QWidget;

bool CapturarVentana(const QString& carpeta);

// The window with a plain title bar drawn above it (icon, the title in bold,
// three buttons), as a desktop shows it: a title that does not fit shows cut.
QPixmap ConTitulo(QWidget* ventana);
