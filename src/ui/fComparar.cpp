#include "fComparar.h"

#include "FechasQt.h"
#include "Proteger.h"
#include "core/FormatoNumero.h"
#include "register/Log.h"
#include "session/DatosSesion.h"
#include "tariff/AjustesTarifa.h"

#include <QApplication>
#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QHorizontalBarSeries>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

namespace vorimesk {
namespace {

enum Columna { kTarifa, kConBono, kDifConBono, kSinBono, kDifSinBono, kColumnas };

QString Cantidad(double v) {
    return QString::fromStdString(TextoDinero(v));
}

QString Diferencia(double v) {
    return (v > 0 ? "+" : "") + Cantidad(v);
}

QTableWidgetItem* Celda(const QString& texto, bool numero) {
    auto* c = new QTableWidgetItem(texto);
    c->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    if (numero) {
        c->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return c;
}

} // namespace

FuenteComparacion fComparar::FuenteDe(const DatosSesion& datos, const Listado& listado) {
    FuenteComparacion f;
    f.registro = &datos.Registro;
    f.carpeta = datos.Carpeta;
    f.bono = datos.Bono;
    f.festivos = FestivosDeAjustes(datos.Ajustes);
    f.listadas = listado.indices;
    f.periodoListado = QTexto(listado.Periodo);
    f.hoy = datos.RelojPrograma.Hoy();
    f.impuestos = datos.Ajustes.AnadirImpuestos;
    return f;
}

fComparar::fComparar(FuenteComparacion fuente, QWidget* padre)
    : QDialog(padre), fuente_(std::move(fuente)) {
    setObjectName("fComparar");
    setWindowTitle("Comparar tarifas");
    lResumen = new QLabel(this);
    lResumen->setObjectName("lResumen");
    lResumen->setWordWrap(true);
    tbTarifas = new QTableWidget(0, kColumnas, this);
    tbTarifas->setObjectName("tbTarifas");
    tbTarifas->setHorizontalHeaderLabels(
        {"Tarifa", "Con bonos", "Diferencia", "Sin bonos", "Diferencia"});
    tbTarifas->verticalHeader()->hide();
    tbTarifas->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    tbTarifas->horizontalHeader()->setSectionResizeMode(kTarifa, QHeaderView::ResizeToContents);
    tbTarifas->setSelectionBehavior(QAbstractItemView::SelectRows);
    tbTarifas->setToolTip("Diferencia: lo que habria costado menos lo que se cobro");
    grComparacion = new QChartView(this);
    grComparacion->setObjectName("grComparacion");
    grComparacion->setRenderHint(QPainter::Antialiasing);
    grComparacion->setMinimumHeight(260);
    auto* botones = new QDialogButtonBox(QDialogButtonBox::Close, this);
    botones->button(QDialogButtonBox::Close)->setText("&Cerrar");
    connect(botones, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(Eleccion());
    todo->addWidget(lResumen);
    todo->addWidget(tbTarifas);
    todo->addWidget(grComparacion, 1);
    todo->addWidget(botones);
    resize(720, 620);
    Proteger(this, [this] { Comparar(); });
}

QWidget* fComparar::Eleccion() {
    auto* marco = new QGroupBox("Llamadas que se comparan", this);
    const QString periodo =
        fuente_.periodoListado.isEmpty() ? QString("filtro") : fuente_.periodoListado;
    optListadas = new QRadioButton("Las listadas en el registro (" + periodo + ")", marco);
    optListadas->setObjectName("optListadas");
    optListadas->setChecked(true);
    optFechas = new QRadioButton("Las de los dias", marco);
    optFechas->setObjectName("optFechas");
    dtDesde = new QDateEdit(marco);
    dtDesde->setObjectName("dtDesde");
    dtHasta = new QDateEdit(marco);
    dtHasta->setObjectName("dtHasta");
    for (QDateEdit* d : {dtDesde, dtHasta}) {
        d->setCalendarPopup(true);
        d->setDisplayFormat("dd/MM/yyyy");
    }
    const Log& registro = *fuente_.registro;
    dtDesde->setDate(AQDate(registro.Count() > 0 ? registro.Dia(0) : fuente_.hoy));
    dtHasta->setDate(AQDate(fuente_.hoy));
    cmdComparar = new QPushButton("C&omparar", marco);
    cmdComparar->setObjectName("cmdComparar");
    connect(cmdComparar, &QPushButton::clicked, this,
            [this] { Proteger(this, [this] { Comparar(); }); });

    auto* fechas = new QHBoxLayout;
    fechas->addWidget(optFechas);
    fechas->addWidget(dtDesde);
    fechas->addWidget(new QLabel("a", marco));
    fechas->addWidget(dtHasta);
    fechas->addStretch();
    fechas->addWidget(cmdComparar);
    auto* filas = new QVBoxLayout(marco);
    filas->addWidget(optListadas);
    filas->addLayout(fechas);
    return marco;
}

std::vector<int> fComparar::Elegidas() const {
    if (optListadas->isChecked()) {
        return fuente_.listadas;
    }
    const Fecha desde = DeQDate(dtDesde->date());
    const Fecha hasta = DeQDate(dtHasta->date());
    std::vector<int> elegidas;
    const Log& registro = *fuente_.registro;
    for (int i = 0; i < registro.Count(); ++i) {
        const Fecha dia = registro.Dia(i).SoloFecha();
        if (desde <= dia && dia <= hasta) {
            elegidas.push_back(i);
        }
    }
    return elegidas;
}

void fComparar::Comparar() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        resultado_ = CompararTarifas(*fuente_.registro, Elegidas(), fuente_.carpeta, fuente_.bono,
                                     fuente_.festivos);
    } catch (...) {
        QApplication::restoreOverrideCursor();
        throw;
    }
    QApplication::restoreOverrideCursor();
    Llenar();
    Dibujar();
}

void fComparar::Llenar() {
    const ComparacionTarifas& c = resultado_;
    QString resumen =
        QString("%1 llamadas; se cobraron %2.").arg(c.Llamadas).arg(Cantidad(c.Cobrado));
    if (c.MasBarata >= 0 && c.Llamadas > 0) {
        const TotalTarifa& t = c.Tarifas[static_cast<std::size_t>(c.MasBarata)];
        resumen += QString(" La mas barata: %1 %2 bonos (%3).")
                       .arg(QTexto(t.Tarifa), c.MasBarataConBono ? "con" : "sin",
                            Cantidad(c.MasBarataConBono ? t.ConBono : t.SinBono));
    }
    // The grid adds taxes; the tariffs' own amounts are compared here.
    if (fuente_.impuestos) {
        resumen += " Importes sin impuestos.";
    }
    lResumen->setText(resumen);
    tbTarifas->setRowCount(static_cast<int>(c.Tarifas.size()));
    for (int f = 0; f < tbTarifas->rowCount(); ++f) {
        const TotalTarifa& t = c.Tarifas[static_cast<std::size_t>(f)];
        tbTarifas->setItem(f, kTarifa, Celda(QTexto(t.Tarifa), false));
        tbTarifas->setItem(f, kConBono, Celda(Cantidad(t.ConBono), true));
        tbTarifas->setItem(f, kDifConBono, Celda(Diferencia(t.DiferenciaConBono), true));
        tbTarifas->setItem(f, kSinBono, Celda(Cantidad(t.SinBono), true));
        tbTarifas->setItem(f, kDifSinBono, Celda(Diferencia(t.DiferenciaSinBono), true));
    }
    if (c.MasBarata >= 0 && c.Llamadas > 0) {
        QTableWidgetItem* mejor =
            tbTarifas->item(c.MasBarata, c.MasBarataConBono ? kConBono : kSinBono);
        QFont negrita = mejor->font();
        negrita.setBold(true);
        mejor->setFont(negrita);
        mejor->setBackground(QColor(200, 240, 200));
        tbTarifas->item(c.MasBarata, kTarifa)->setFont(negrita);
    }
}

void fComparar::Dibujar() {
    const ComparacionTarifas& c = resultado_;
    auto* conBono = new QBarSet("Con bonos");
    auto* sinBono = new QBarSet("Sin bonos");
    QStringList tarifas;
    double maximo = c.Cobrado;
    // From the bottom up: the first tariff of the table ends on top.
    for (auto it = c.Tarifas.rbegin(); it != c.Tarifas.rend(); ++it) {
        const TotalTarifa& t = *it;
        tarifas << QTexto(t.Tarifa);
        *conBono << t.ConBono;
        *sinBono << t.SinBono;
        maximo = std::max({maximo, t.ConBono, t.SinBono});
    }
    // Bars across, with the tariffs' names down the side: each name has the
    // width it needs, however many tariffs there are.
    auto* serie = new QHorizontalBarSeries;
    // Without bonos both totals are the same: one bar says it.
    if (fuente_.bono.Count() > 0) {
        serie->append(conBono);
    } else {
        delete conBono;
        sinBono->setLabel("Importe");
    }
    serie->append(sinBono);
    auto* grafico = new QChart;
    grafico->addSeries(serie);
    grafico->setTitle("Cobrado: " + Cantidad(c.Cobrado));
    auto* ejeTarifas = new QBarCategoryAxis;
    ejeTarifas->append(tarifas);
    grafico->addAxis(ejeTarifas, Qt::AlignLeft);
    serie->attachAxis(ejeTarifas);
    auto* ejeImporte = new QValueAxis;
    ejeImporte->setRange(0, maximo > 0 ? maximo * 1.1 : 1.0);
    ejeImporte->setLabelFormat("%.0f");
    grafico->addAxis(ejeImporte, Qt::AlignBottom);
    serie->attachAxis(ejeImporte);
    grafico->legend()->setAlignment(Qt::AlignBottom);
    QChart* anterior = grComparacion->chart();
    grComparacion->setChart(grafico);
    delete anterior;
}

} // namespace vorimesk
