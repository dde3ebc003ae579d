#include "TabBono.h"

#include "AnchosProporcionales.h"
#include "Mensajes.h"
#include "fBono.h"
#include "session/DatosSesion.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

const char* const kEtiquetasTipo[] = {"BonoNet 10 Dia", "BonoNet 50 Dia", "BonoNet 10 Noche",
                                      "BonoNet 50 Noche"};

QString TextoBaja(const FechaVariante& baja) {
    return baja.TieneFecha() ? QString::fromStdString(baja.fecha.SoloFecha().TextoCorto())
                             : QString();
}

BonoGuardado Guardado(const cBono& b, std::int16_t i) {
    return {b.Tipo(i), b.Alta(i), b.Baja(i), b.tiempo(i)};
}

} // namespace

TabBono::TabBono(DatosSesion& datos, QWidget* padre) : QWidget(padre), datos_(datos) {
    PedirBono = [this](const BonoGuardado& inicial, bool nuevo) -> std::optional<BonoGuardado> {
        fBono dialogo(inicial, nuevo, datos_.RelojPrograma.Hoy(), this);
        if (dialogo.exec() != QDialog::Accepted) {
            return std::nullopt;
        }
        return dialogo.Resultado();
    };

    auto* marco = new QGroupBox("BonoNet ", this);
    gBono = new QTableWidget(0, 4, marco);
    gBono->setObjectName("gBono");
    gBono->setHorizontalHeaderLabels({"Nombre", "Alta", "Baja", "Tiempo"});
    gBono->setEditTriggers(QAbstractItemView::NoEditTriggers);
    gBono->setSelectionBehavior(QAbstractItemView::SelectRows);
    gBono->setSelectionMode(QAbstractItemView::SingleSelection);
    gBono->verticalHeader()->hide();
    gBono->verticalHeader()->setDefaultSectionSize(gBono->fontMetrics().height() + 6);
    gBono->horizontalHeader()->setHighlightSections(false);
    new AnchosProporcionales(gBono, {1250, 1000, 1000, 800}, true,
                             {"10NOCHE", "00/00/0000", "00/00/0000", "00:00:00"});

    cmdAlta = new QPushButton("&Alta", marco);
    cmdModificar = new QPushButton("&Modificar", marco);
    cmdEliminar = new QPushButton("E&liminar", marco);
    cmdLimpiar = new QPushButton("&Limpiar", marco);
    cmdAlta->setObjectName("cmdAlta");
    cmdModificar->setObjectName("cmdModificar");
    cmdEliminar->setObjectName("cmdEliminar");
    cmdLimpiar->setObjectName("cmdLimpiar");
    connect(cmdAlta, &QPushButton::clicked, this, &TabBono::Alta);
    connect(cmdModificar, &QPushButton::clicked, this, &TabBono::Modificar);
    connect(cmdEliminar, &QPushButton::clicked, this, &TabBono::Eliminar);
    connect(cmdLimpiar, &QPushButton::clicked, this, &TabBono::Limpiar);
    connect(gBono, &QTableWidget::itemSelectionChanged, this, &TabBono::CambioSeleccion);
    connect(gBono, &QTableWidget::cellDoubleClicked, this, &TabBono::Modificar);

    tabBono = new QTabWidget(marco);
    tabBono->setObjectName("tabBono");
    tabBono->addTab(PaginaGrupo(cBono::kGrupoDia), NombreGrupo(cBono::kGrupoDia));
    tabBono->addTab(PaginaGrupo(cBono::kGrupoNoche), NombreGrupo(cBono::kGrupoNoche));
    connect(tabBono, &QTabWidget::currentChanged, this, &TabBono::GrupoElegido);

    auto* botones = new QVBoxLayout;
    for (QPushButton* b : {cmdAlta, cmdModificar, cmdEliminar, cmdLimpiar}) {
        botones->addWidget(b);
    }
    botones->addStretch();
    auto* dentro = new QGridLayout(marco);
    dentro->addWidget(gBono, 0, 0);
    dentro->addLayout(botones, 0, 1);
    dentro->addWidget(tabBono, 1, 0, 1, 2);
    dentro->setRowStretch(0, 1);

    auto* marcoFactura = new QGroupBox("Facturacion", this);
    tsp1 = new QSpinBox(marcoFactura);
    tsp1->setObjectName("tsp1");
    tsp1->setRange(1, 31);
    cmbFac = new QComboBox(marcoFactura);
    cmbFac->setObjectName("cmbFac");
    cmbFac->addItems({"Mensual", "Par Bimensual", "Impar Bimensual", "Trimestral"});
    connect(tsp1, &QSpinBox::valueChanged, this, &TabBono::CambioDia);
    connect(cmbFac, &QComboBox::activated, this, &TabBono::CambioIntervalo);
    auto* factura = new QFormLayout(marcoFactura);
    factura->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    factura->addRow("Comienza cada dia", tsp1);
    factura->addRow("Intervalos  de Factura:", cmbFac);

    auto* todo = new QVBoxLayout(this);
    todo->addWidget(marco, 1);
    todo->addWidget(marcoFactura);
    CambioSeleccion();
}

QString TabBono::NombreGrupo(int grupo) {
    return grupo == cBono::kGrupoNoche ? "Noche" : "Dia";
}

QWidget* TabBono::PaginaGrupo(int grupo) {
    auto* pagina = new QWidget;
    auto* filas = new QFormLayout(pagina);
    for (int tipo = grupo * 2; tipo < grupo * 2 + 2; ++tipo) {
        lTipos[tipo] = new QLabel(pagina);
        lTipos[tipo]->setObjectName(QString("lTipo%1").arg(tipo));
        filas->addRow(kEtiquetasTipo[tipo], lTipos[tipo]);
    }
    return pagina;
}

int TabBono::Grupo() const {
    return tabBono->currentIndex();
}

void TabBono::Mostrar() {
    const cBono& b = datos_.Bono;
    gBono->setRowCount(b.Count());
    for (std::int16_t i = 0; i < b.Count(); ++i) {
        const QString celdas[] = {QString::fromStdString(b.Nombre(i)),
                                  QString::fromStdString(b.Alta(i).SoloFecha().TextoCorto()),
                                  TextoBaja(b.Baja(i)), QString::fromStdString(b.tiempo(i))};
        const Qt::Alignment alineacion[] = {Qt::AlignRight, Qt::AlignHCenter, Qt::AlignHCenter,
                                            Qt::AlignRight};
        for (int c = 0; c < 4; ++c) {
            auto* celda = new QTableWidgetItem(celdas[c]);
            celda->setTextAlignment(alineacion[c] | Qt::AlignVCenter);
            gBono->setItem(i, c, celda);
        }
    }
    for (std::int16_t tipo = 0; tipo < cBono::kTipos; ++tipo) {
        lTipos[tipo]->setText(QString("%1 bono(s), quedan %2")
                                  .arg(b.CountTipo(tipo))
                                  .arg(QString::fromStdString(b.TotalTiempoTipo(tipo))));
    }
    tsp1->blockSignals(true);
    tsp1->setValue(b.DiaFactura());
    tsp1->blockSignals(false);
    cmbFac->setCurrentIndex(b.perFactura() < 4 ? b.perFactura() : -1);
    CambioSeleccion();
}

int TabBono::Seleccionado() const {
    const auto filas = gBono->selectionModel()->selectedRows();
    return filas.isEmpty() ? -1 : filas.constFirst().row();
}

void TabBono::CambioSeleccion() {
    const bool hay = Seleccionado() >= 0;
    cmdModificar->setEnabled(hay);
    cmdEliminar->setEnabled(hay);
    cmdLimpiar->setEnabled(datos_.Bono.Count() > 0);
}

bool TabBono::Confirmar(const QString& texto) {
    return vorimesk::Confirmar(this, texto, {}, "E&liminar");
}

void TabBono::Alta() {
    BonoGuardado inicial;
    inicial.Alta = datos_.RelojPrograma.Hoy();
    const auto nuevo = PedirBono(inicial, true);
    if (!nuevo) {
        return;
    }
    cBono& b = datos_.Bono;
    const std::int16_t i = b.DarAlta(nuevo->Tipo, nuevo->Alta);
    b.Baja(i, nuevo->Baja);
    b.tiempo(i, nuevo->tiempo);
    Mostrar();
    gBono->selectRow(i);
    emit BonoCambiado();
}

void TabBono::Modificar() {
    const int fila = Seleccionado();
    if (fila < 0) {
        return;
    }
    cBono& b = datos_.Bono;
    const auto i = static_cast<std::int16_t>(fila);
    const auto cambiado = PedirBono(Guardado(b, i), false);
    if (!cambiado) {
        return;
    }
    b.Alta(i, cambiado->Alta);
    b.Baja(i, cambiado->Baja);
    b.tiempo(i, cambiado->tiempo);
    Mostrar();
    gBono->selectRow(i);
    emit BonoCambiado();
}

void TabBono::Eliminar() {
    const int fila = Seleccionado();
    if (fila < 0 || !Confirmar("¿Desea eliminar el bono seleccionado?")) {
        return;
    }
    // The ledger has no removal of its own: it is rebuilt without the bundle,
    // in the same order and with the same billing settings.
    cBono& b = datos_.Bono;
    std::vector<BonoGuardado> quedan;
    for (std::int16_t i = 0; i < b.Count(); ++i) {
        if (i != fila) {
            quedan.push_back(Guardado(b, i));
        }
    }
    b.Limpiar();
    for (const BonoGuardado& g : quedan) {
        const std::int16_t i = b.DarAlta(g.Tipo, g.Alta);
        b.Baja(i, g.Baja);
        b.tiempo(i, g.tiempo);
    }
    Mostrar();
    emit BonoCambiado();
}

void TabBono::Limpiar() {
    if (datos_.Bono.Count() == 0 || !Confirmar("¿Desea eliminar todos los bonos?")) {
        return;
    }
    datos_.Bono.Limpiar();
    Mostrar();
    emit BonoCambiado();
}

void TabBono::CambioDia(int dia) {
    datos_.Bono.DiaFactura(static_cast<std::uint8_t>(dia));
    Mostrar();
    datos_.RecalculoPendiente = true;
    emit FacturacionCambiada();
}

void TabBono::CambioIntervalo(int intervalo) {
    datos_.Bono.perFactura(static_cast<std::uint8_t>(intervalo));
    Mostrar();
    datos_.RecalculoPendiente = true;
    emit FacturacionCambiada();
}

} // namespace vorimesk
