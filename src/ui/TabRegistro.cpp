#include "TabRegistro.h"

#include "AnchosProporcionales.h"
#include "ModeloRegistro.h"
#include "Proteger.h"
#include "core/Archivo.h"
#include "core/FormatoNumero.h"
#include "register/ExportarLlamadas.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

// Designed widths of the ten columns, in twips.
const std::vector<int> kTwipsGrid1 = {900, 900, 900, 700, 1100, 950, 400, 1000, 670, 670};
// The widest text each column usually holds.
const std::vector<QString> kMuestrasGrid1 = {"00/00/0000",    "00:00:00", "000:00:00", "00.000",
                                             "Metropolitana", "Reducida", "No",        "Conexion",
                                             "000000",        "000000"};

QLabel* Cifra(QWidget* padre, const char* nombre) {
    auto* l = new QLabel(padre);
    l->setObjectName(nombre);
    QFont negrita = l->font();
    negrita.setBold(true);
    l->setFont(negrita);
    return l;
}

} // namespace

TabRegistro::TabRegistro(QWidget* padre) : QWidget(padre) {
    modelo_ = new ModeloRegistro(this);
    Grid1 = new QTableView(this);
    Grid1->setObjectName("Grid1");
    Grid1->setModel(modelo_);
    Grid1->setSelectionBehavior(QAbstractItemView::SelectRows);
    Grid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Grid1->setAlternatingRowColors(true);
    Grid1->setWordWrap(false);
    // Every row is as high as a line of text: the view never has to measure
    // 32,767 rows.
    QHeaderView* filas = Grid1->verticalHeader();
    filas->setSectionResizeMode(QHeaderView::Fixed);
    filas->setDefaultSectionSize(Grid1->fontMetrics().height() + 6);
    filas->hide();
    Grid1->horizontalHeader()->setHighlightSections(false);
    anchos_ = new AnchosProporcionales(Grid1, kTwipsGrid1, true, kMuestrasGrid1);

    lPeriodo2 = Cifra(this, "lPeriodo2");
    Label4 = Cifra(this, "Label4");
    lDuracionReg = Cifra(this, "lDuracionReg");
    lGastoReg = Cifra(this, "lGastoReg");

    auto* periodo = new QHBoxLayout;
    periodo->addWidget(new QLabel("Periodo:", this));
    periodo->addWidget(lPeriodo2);
    periodo->addStretch();
    cmdFiltro = new QPushButton("&Filtro...", this);
    cmdFiltro->setObjectName("cmdFiltro");
    cmdFiltro->setToolTip("Elegir que llamadas se listan");
    connect(cmdFiltro, &QPushButton::clicked, this, &TabRegistro::PedirFiltro);
    periodo->addWidget(cmdFiltro);
    cmdComparar = new QPushButton("Co&mparar tarifas...", this);
    cmdComparar->setObjectName("cmdComparar");
    connect(cmdComparar, &QPushButton::clicked, this, &TabRegistro::PedirComparacion);
    periodo->addWidget(cmdComparar);
    cmdExportar = new QPushButton("E&xportar...", this);
    cmdExportar->setObjectName("cmdExportar");
    cmdExportar->setToolTip("Guardar las llamadas listadas en CSV o JSON");
    connect(cmdExportar, &QPushButton::clicked, this, &TabRegistro::Exportar);
    periodo->addWidget(cmdExportar);
    ElegirArchivoExportar = [this] {
        return QFileDialog::getSaveFileName(this, "Exportar llamadas", "llamadas.csv",
                                            "Hoja de calculo CSV (*.csv);;JSON (*.json)");
    };

    auto* totales = new QHBoxLayout;
    totales->addWidget(new QLabel("Llamadas:", this));
    totales->addWidget(Label4);
    totales->addSpacing(24);
    totales->addWidget(new QLabel("Duracion:", this));
    totales->addWidget(lDuracionReg);
    totales->addSpacing(24);
    totales->addWidget(new QLabel("Gasto:", this));
    totales->addWidget(lGastoReg);
    totales->addStretch();

    auto* todo = new QVBoxLayout(this);
    todo->addLayout(periodo);
    todo->addWidget(Grid1, 1);
    todo->addLayout(totales);
}

void TabRegistro::Mostrar(const Log& registro, const Listado& l, OpcionesCoste opciones) {
    registro_ = &registro;
    indices_ = l.indices;
    modelo_->Mostrar(registro, l.indices, opciones);
    lPeriodo2->setText(QString::fromStdString(l.Periodo));
    Label4->setText(QString::number(l.NumeroLlamadas));
    lDuracionReg->setText(l.NumeroLlamadas == 0 ? QString()
                                                : QString::fromStdString(l.TotalTiempo.Valor()));
    lGastoReg->setText(l.NumeroLlamadas == 0 ? QString()
                                             : QString::fromStdString(TextoDinero(
                                                   static_cast<double>(l.TotalCentimos) / 100.0)));
}

bool TabRegistro::Exportar() {
    if (registro_ == nullptr) {
        return false;
    }
    const QString ruta = ElegirArchivoExportar();
    if (ruta.isEmpty()) {
        return false;
    }
    return Proteger(this, [&] {
        const std::filesystem::path destino = ruta.toStdString();
        EscribirArchivoSeguro(
            destino, TextoExportado(*registro_, indices_, FormatoDeArchivo(destino)), kSoloUsuario);
        emit Informar(
            QString("Se han exportado %1 llamadas a %2.")
                .arg(indices_.size())
                .arg(QString::fromStdString(std::filesystem::absolute(destino).string())));
    });
}

} // namespace vorimesk
