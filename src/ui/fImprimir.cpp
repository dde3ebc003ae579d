#include "fImprimir.h"

#include "ImpresionTexto.h"
#include "Mensajes.h"
#include "Proteger.h"
#include "core/Errores.h"
#include "register/InformeImpresion.h"
#include "tariff/LibroTarifas.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QVBoxLayout>

namespace vorimesk {

fImprimir::fImprimir(const AnfitrionRegistro& anfitrion, const LibroTarifas& libro, QWidget* padre)
    : QDialog(padre), anfitrion_(anfitrion), libro_(libro) {
    setWindowTitle("Imprimir");
    auto* marco = new QGroupBox("Seleccione los datos a imprimir ", this);
    Check1 = new QCheckBox("Registro de llamadas.", marco);
    Check1->setObjectName("Check1");
    Check1->setChecked(true);
    Check2 = new QCheckBox("Tarifas", marco);
    Check2->setObjectName("Check2");
    auto* casillas = new QVBoxLayout(marco);
    casillas->addWidget(Check1);
    casillas->addWidget(Check2);

    cmdImprimir = new QPushButton("&Imprimir", this);
    cmdImprimir->setObjectName("cmdImprimir");
    cmdImprimir->setDefault(true);
    cmdCancelar = new QPushButton("&Cancelar", this);
    cmdCancelar->setObjectName("cmdCancelar");
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdImprimir);
    botones->addWidget(cmdCancelar);

    auto* columna = new QVBoxLayout(this);
    columna->addWidget(marco);
    columna->addLayout(botones);
    connect(cmdImprimir, &QPushButton::clicked, this, &fImprimir::AlImprimir);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
}

std::vector<std::string> fImprimir::Lineas() const {
    std::vector<std::string> lineas;
    if (Check1->isChecked()) {
        lineas = InformeRegistro(anfitrion_.FilasVisibles(), anfitrion_.RangoListado(),
                                 anfitrion_.ListadoActual());
    }
    if (Check2->isChecked()) {
        for (std::string& l : InformeTarifas(libro_.Actual())) {
            lineas.push_back(std::move(l));
        }
    }
    return lineas;
}

bool fImprimir::Imprimir(QPrinter& impresora) const {
    const std::vector<std::string> lineas = Lineas();
    return !lineas.empty() && ImprimirLineas(impresora, lineas);
}

bool fImprimir::ImprimirPdf(const QString& ruta) const {
    QPrinter impresora(QPrinter::HighResolution);
    PrepararImpresora(impresora);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(ruta);
    return Imprimir(impresora);
}

void fImprimir::AlImprimir() {
    if (!Check1->isChecked() && !Check2->isChecked()) {
        return;
    }
    Proteger(this, [&] {
        const QPrinterInfo predeterminada = QPrinterInfo::defaultPrinter();
        if (!predeterminada.isNull()) {
            QPrinter impresora(predeterminada, QPrinter::HighResolution);
            PrepararImpresora(impresora);
            if (!Imprimir(impresora)) {
                avisos::MostrarError(this, "No se pudo imprimir en " +
                                               predeterminada.printerName() + ".");
                return;
            }
            accept();
            return;
        }
        // No printer installed: the print dialog offers a PDF file instead.
        QPrinter impresora(QPrinter::HighResolution);
        PrepararImpresora(impresora);
        impresora.setOutputFormat(QPrinter::PdfFormat);
        QPrintDialog dialogo(&impresora, this);
        dialogo.setWindowTitle("Imprimir");
        if (dialogo.exec() != QDialog::Accepted) {
            return;
        }
        if (!Imprimir(impresora)) {
            avisos::MostrarError(this, "No se pudo imprimir.");
            return;
        }
        accept();
    });
}

} // namespace vorimesk
