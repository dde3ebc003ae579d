#pragma once
// The print dialog: the call register as the register window shows it
// (filter included) and the tariff book, as plain text at character columns
// in a fixed-pitch font. It prints on the default printer; with no printer
// installed the print dialog lets the user write a PDF file instead. The
// dialog closes once the job is sent.

#include "AnfitrionRegistro.h"

#include <QDialog>
#include <string>
#include <vector>

class QCheckBox;
class QPrinter;
class QPushButton;

namespace vorimesk {

class LibroTarifas;

class fImprimir : public QDialog {
    Q_OBJECT
public:
    fImprimir(const AnfitrionRegistro& anfitrion, const LibroTarifas& libro,
              QWidget* padre = nullptr);

    // The lines of the reports ticked, the register first; empty when
    // neither box is ticked.
    std::vector<std::string> Lineas() const;
    // Prints the ticked reports on `impresora`; false when there is nothing
    // to print or the printer cannot be opened.
    bool Imprimir(QPrinter& impresora) const;
    bool ImprimirPdf(const QString& ruta) const;

private:
    QCheckBox* Check1 = nullptr;
    QCheckBox* Check2 = nullptr;
    QPushButton* cmdImprimir = nullptr;
    QPushButton* cmdCancelar = nullptr;

    void AlImprimir();

    const AnfitrionRegistro& anfitrion_;
    const LibroTarifas& libro_;
};

} // namespace vorimesk
