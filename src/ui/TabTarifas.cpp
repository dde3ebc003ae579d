#include "TabTarifas.h"

#include "AnchosProporcionales.h"
#include "Lanzador.h"
#include "Mensajes.h"
#include "Proteger.h"
#include "session/DatosSesion.h"

#include <QButtonGroup>
#include <QFileSystemWatcher>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <variant>

namespace vorimesk {
namespace {

const char* const kDias[] = {"Semana", "Sabado", "Festivo"};

// A grid that shows all its cells and never scrolls: sized to its sections.
void AjustarAlContenido(QTableWidget* t) {
    t->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    t->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    int ancho = 2 * t->frameWidth();
    for (int c = 0; c < t->columnCount(); ++c) {
        ancho += t->columnWidth(c);
    }
    if (!t->verticalHeader()->isHidden()) {
        ancho += t->verticalHeader()->width();
    }
    int alto = 2 * t->frameWidth();
    for (int f = 0; f < t->rowCount(); ++f) {
        alto += t->rowHeight(f);
    }
    if (!t->horizontalHeader()->isHidden()) {
        alto += t->horizontalHeader()->sizeHint().height();
    }
    t->setFixedSize(ancho, alto);
}

QTableWidget* Tabla(QWidget* padre, const char* nombre, int filas, int columnas) {
    auto* t = new QTableWidget(filas, columnas, padre);
    t->setObjectName(nombre);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::NoSelection);
    t->setFocusPolicy(Qt::NoFocus);
    t->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    t->verticalHeader()->setDefaultSectionSize(t->fontMetrics().height() + 8);
    t->horizontalHeader()->setHighlightSections(false);
    t->verticalHeader()->setHighlightSections(false);
    return t;
}

// Width of a fixed column: its designed size, or its widest title.
void AnchoCabeceraVertical(QTableWidget* t, int twips) {
    int ancho = AnchosProporcionales::Pixeles(t, twips);
    for (int f = 0; f < t->rowCount(); ++f) {
        if (const QTableWidgetItem* item = t->verticalHeaderItem(f)) {
            ancho = std::max(
                ancho, t->verticalHeader()->fontMetrics().horizontalAdvance(item->text()) + 16);
        }
    }
    t->verticalHeader()->setFixedWidth(ancho);
}

QString HoraMinutos(const ValorTarifa& v) {
    if (const Fecha* f = std::get_if<Fecha>(&v)) {
        return QString::asprintf("%02d:%02d", f->Hora(), f->Minuto());
    }
    return {};
}

} // namespace

TabTarifas::TabTarifas(DatosSesion& datos, std::filesystem::path carpetaPrograma, QWidget* padre)
    : QWidget(padre), datos_(datos), carpetaPrograma_(std::move(carpetaPrograma)) {
    listTarifas = new QListWidget(this);
    listTarifas->setObjectName("listTarifas");
    lSinTarifas = new QLabel("No hay ninguna tarifa: pulse Editor para crearlas.", this);
    lSinTarifas->setWordWrap(true);
    lSinTarifas->hide();

    auto* marcoDia = new QGroupBox("Tipo de dia", this);
    optSemana = new QRadioButton(kDias[0], marcoDia);
    optSabado = new QRadioButton(kDias[1], marcoDia);
    optFestivo = new QRadioButton(kDias[2], marcoDia);
    optSemana->setObjectName("optSemana");
    optSabado->setObjectName("optSabado");
    optFestivo->setObjectName("optFestivo");
    dias_ = new QButtonGroup(this);
    dias_->addButton(optSemana, 0);
    dias_->addButton(optSabado, 1);
    dias_->addButton(optFestivo, 2);
    optSemana->setChecked(true);
    auto* filaDias = new QHBoxLayout(marcoDia);
    filaDias->addWidget(optSemana);
    filaDias->addWidget(optSabado);
    filaDias->addWidget(optFestivo);
    filaDias->addStretch();

    gTarifas = Tabla(this, "gTarifas", 2, 3);
    gTarifas->setHorizontalHeaderLabels({"Importe", "Inicio", "Fin"});
    gTarifas->setVerticalHeaderLabels({"Normal", "Reducida"});
    AnchoCabeceraVertical(gTarifas, 908);
    new AnchosProporcionales(gTarifas, {682, 682, 682}, false, {"00.0000", "00:00", "00:00"});
    AjustarAlContenido(gTarifas);

    gConexion = Tabla(this, "gConexion", 2, 1);
    gConexion->setVerticalHeaderLabels({"Importe", "Inicio"});
    gConexion->horizontalHeader()->hide();
    AnchoCabeceraVertical(gConexion, 700);
    new AnchosProporcionales(gConexion, {550}, false, {"00.0000"});
    AjustarAlContenido(gConexion);

    cmdEditor = new QPushButton("&Editor", this);
    cmdEditor->setObjectName("cmdEditor");
    cmdEditor->setToolTip("Abre el editor de tarifas");

    VigilarLibro();
    connect(listTarifas, &QListWidget::currentRowChanged, this, &TabTarifas::MostrarValores);
    connect(dias_, &QButtonGroup::idClicked, this, &TabTarifas::MostrarValores);
    connect(cmdEditor, &QPushButton::clicked, this, &TabTarifas::AbrirEditor);

    auto* marcoFranjas = new QGroupBox("Franjas", this);
    auto* franjas = new QVBoxLayout(marcoFranjas);
    franjas->addWidget(gTarifas);
    franjas->addStretch();
    auto* marcoConexion = new QGroupBox("Establecimiento de llamada", this);
    auto* conexion = new QVBoxLayout(marcoConexion);
    conexion->addWidget(gConexion);
    conexion->addStretch();

    auto* derecha = new QVBoxLayout;
    derecha->addWidget(marcoDia);
    auto* grids = new QHBoxLayout;
    grids->addWidget(marcoFranjas);
    grids->addWidget(marcoConexion);
    grids->addStretch();
    derecha->addLayout(grids);
    derecha->addStretch();
    auto* editor = new QHBoxLayout;
    editor->addStretch();
    editor->addWidget(cmdEditor);
    derecha->addLayout(editor);

    auto* izquierda = new QVBoxLayout;
    izquierda->addWidget(new QLabel("Tarifas:", this));
    izquierda->addWidget(listTarifas, 1);
    izquierda->addWidget(lSinTarifas);

    auto* todo = new QHBoxLayout(this);
    todo->addLayout(izquierda, 1);
    todo->addLayout(derecha, 2);
}

// The editor writes the book beside it and renames it into place: the folder
// is watched, and the book shown again once the session has read it again.
void TabTarifas::VigilarLibro() {
    vigilante_ = new QFileSystemWatcher(this);
    espera_ = new QTimer(this);
    espera_->setSingleShot(true);
    espera_->setInterval(150); // one look for the burst of changes a save makes
    connect(vigilante_, &QFileSystemWatcher::directoryChanged, espera_,
            qOverload<>(&QTimer::start));
    connect(espera_, &QTimer::timeout, this, Protegido(this, [this] {
                datos_.Libro.Actual();
                if (datos_.Libro.Lecturas() != mostrado_) {
                    Refrescar();
                }
            }));
}

int TabTarifas::TipoDia() const {
    return std::max(0, dias_->checkedId());
}

void TabTarifas::Refrescar() {
    const QString carpeta = QString::fromStdString(datos_.Carpeta.string());
    if (!vigilante_->directories().contains(carpeta)) {
        vigilante_->addPath(carpeta);
    }
    const cLlamada& libro = datos_.Libro.Actual();
    mostrado_ = datos_.Libro.Lecturas();
    const int antes = std::max(0, listTarifas->currentRow());
    listTarifas->blockSignals(true);
    listTarifas->clear();
    for (std::int16_t i = 0; i < libro.Count(); ++i) {
        listTarifas->addItem(QString::fromStdString(libro.ValorTexto(i, "Nombre")));
    }
    listTarifas->setCurrentRow(std::min(antes, listTarifas->count() - 1));
    listTarifas->blockSignals(false);
    lSinTarifas->setVisible(listTarifas->count() == 0);
    MostrarValores();
}

void TabTarifas::PonerCelda(QTableWidget* tabla, int fila, int columna, const QString& texto) {
    auto* celda = new QTableWidgetItem(texto);
    celda->setTextAlignment(Qt::AlignCenter);
    tabla->setItem(fila, columna, celda);
}

void TabTarifas::MostrarValores() {
    const cLlamada& libro = datos_.Libro.Actual();
    if (datos_.Libro.Lecturas() != mostrado_) {
        Refrescar(); // the list first: it shows the values again
        return;
    }
    const int t = listTarifas->currentRow();
    const bool hay = t >= 0 && t < libro.Count();
    const std::string dia = kDias[TipoDia()];
    const char* const franjas[] = {".Normal", ".Reducida"};
    for (int f = 0; f < 2; ++f) {
        const std::string base = dia + franjas[f];
        const auto i = static_cast<std::int16_t>(t);
        PonerCelda(gTarifas, f, 0,
                   hay ? QString::fromStdString(libro.ValorTexto(i, base + ".Importe"))
                       : QString());
        PonerCelda(gTarifas, f, 1, hay ? HoraMinutos(libro.Valor(i, base + ".Inicio")) : "");
        PonerCelda(gTarifas, f, 2, hay ? HoraMinutos(libro.Valor(i, base + ".Fin")) : "");
    }
    const auto i = static_cast<std::int16_t>(t);
    PonerCelda(gConexion, 0, 0,
               hay ? QString::fromStdString(libro.ValorTexto(i, "Conexion.Importe")) : "");
    PonerCelda(gConexion, 1, 0, hay ? HoraMinutos(libro.Valor(i, "Conexion.Tiempo")) : "");
}

bool TabTarifas::AbrirEditor() {
    QString error;
    if (!Lanzador::AbrirEditor(QString::fromStdString(datos_.Carpeta.string()), &error,
                               QString::fromStdString(carpetaPrograma_.string()))) {
        Avisar(this, QMessageBox::Warning, error);
        return false;
    }
    datos_.RecalculoPendiente = true;
    emit EditorAbierto();
    return true;
}

} // namespace vorimesk
