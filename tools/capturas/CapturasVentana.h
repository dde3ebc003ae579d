#pragma once
// Screenshots of the main window's tabs and of its dialogs, written as PNG
// files into `carpeta`; false when one cannot be written.

#include <QString>

bool CapturarVentana(const QString& carpeta);
