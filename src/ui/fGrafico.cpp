#include "fGrafico.h"

#include "DibujoGrafico.h"
#include "FechasQt.h"
#include "Mensajes.h"
#include "Proteger.h"
#include "core/Errores.h"
#include "register/Log.h"

#include <QButtonGroup>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

namespace vorimesk {
namespace {
const char* const kUnidades[] = {"Llamadas", "Gasto", "Horas"};
}

fGrafico::fGrafico(const Log& registro, const Reloj& reloj, QWidget* padre)
    : QDialog(padre), registro_(registro), reloj_(reloj) {
    setWindowTitle("Grafico");
    Graph1 = new QChartView(this);
    Graph1->setObjectName("Graph1");
    Graph1->setRenderHint(QPainter::Antialiasing);
    Graph1->setMinimumSize(640, 400);
    auto* fila = new QHBoxLayout(this);
    fila->addWidget(Graph1, 1);
    fila->addWidget(Controles());
    Actualizar();
}

QWidget* fGrafico::Controles() {
    auto* panel = new QWidget(this);
    auto* columna = new QVBoxLayout(panel);
    columna->setContentsMargins(0, 0, 0, 0);

    auto* vistas = new QGroupBox(panel);
    auto* grupo = new QButtonGroup(this);
    auto* lv = new QVBoxLayout(vistas);
    const char* textos[] = {"Anual", "Mensual", "Diario"};
    for (int i = 0; i < 3; ++i) {
        Option1[i] = new QRadioButton(textos[i], vistas);
        Option1[i]->setObjectName(QString("Option1_%1").arg(i));
        grupo->addButton(Option1[i], i);
        lv->addWidget(Option1[i]);
    }
    Option1[0]->setChecked(true);

    Combo1 = new QComboBox(panel);
    Combo1->setObjectName("Combo1");
    Combo1->setMinimumContentsLength(14);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    UpDown1 = new QSpinBox(panel);
    UpDown1->setObjectName("UpDown1");
    UpDown1->setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    UpDown1->setToolTip("Anterior / siguiente");
    // Only its arrows show: the item it stands on is the one in the list.
    UpDown1->setFixedWidth(UpDown1->fontMetrics().height() + 4);
    // Hidden in the yearly view, they keep their room: the window does not
    // widen and narrow as the view changes.
    for (QWidget* w : {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(UpDown1)}) {
        QSizePolicy politica = w->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        w->setSizePolicy(politica);
    }
    auto* eleccion = new QHBoxLayout;
    eleccion->addWidget(Combo1, 1);
    eleccion->addWidget(UpDown1);
    lv->addLayout(eleccion);

    cmbTipoGraf = new QComboBox(panel);
    cmbTipoGraf->setObjectName("cmbTipoGraf");
    cmbTipoGraf->addItems({"Barras 2D", "Barras 3D", "Lineas", "Area"});
    cmbTipoDato = new QComboBox(panel);
    cmbTipoDato->setObjectName("cmbTipoDato");
    cmbTipoDato->addItems({"Llamadas", "Gasto", "Tiempo", "MB"});
    cmdGuardar = new QPushButton("Guardar como PNG...", panel);
    cmdGuardar->setObjectName("cmdGuardar");
    cmdGuardar->setAutoDefault(false);

    columna->addWidget(vistas);
    columna->addWidget(new QLabel("Tipo de Grafico:", panel));
    columna->addWidget(cmbTipoGraf);
    columna->addWidget(new QLabel("Visualizar el dato de:", panel));
    columna->addWidget(cmbTipoDato);
    columna->addStretch(1);
    columna->addWidget(cmdGuardar);

    connect(grupo, &QButtonGroup::idClicked, this, [this] {
        LlenarCombo();
        Redibujar();
    });
    connect(cmbTipoGraf, &QComboBox::currentIndexChanged, this, &fGrafico::Redibujar);
    connect(cmbTipoDato, &QComboBox::currentIndexChanged, this, &fGrafico::Redibujar);
    connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int i) {
        const QSignalBlocker bloqueo(UpDown1);
        UpDown1->setValue(i);
        Redibujar();
    });
    // Up steps to the later item, down to the earlier one.
    connect(UpDown1, &QSpinBox::valueChanged, Combo1, &QComboBox::setCurrentIndex);
    connect(cmdGuardar, &QPushButton::clicked, this, &fGrafico::GuardarComo);
    return panel;
}

VistaGrafico fGrafico::Vista() const {
    for (int i = 0; i < 3; ++i) {
        if (Option1[i]->isChecked()) {
            return static_cast<VistaGrafico>(i);
        }
    }
    return VistaGrafico::Anual;
}

void fGrafico::Actualizar() {
    if (!Proteger(this, [&] { dias_ = AgregarPorDia(registro_); })) {
        dias_.clear();
    }
    LlenarCombo();
    Redibujar();
}

// The years or months the register spans; the latest one is chosen, or the
// same item as before when it is still there.
void fGrafico::LlenarCombo() {
    const QString antes = Combo1->currentText();
    elementos_ = ElementosCombo(dias_, Vista());
    const QSignalBlocker bloqueo1(Combo1);
    const QSignalBlocker bloqueo2(UpDown1);
    Combo1->clear();
    for (const ElementoCombo& e : elementos_) {
        Combo1->addItem(QTexto(e.texto));
    }
    const int previo = Combo1->findText(antes);
    Combo1->setCurrentIndex(previo >= 0 ? previo : Combo1->count() - 1);
    UpDown1->setRange(0, std::max(0, Combo1->count() - 1));
    UpDown1->setValue(Combo1->currentIndex());
    const bool conLista = Vista() != VistaGrafico::Anual;
    Combo1->setVisible(conLista);
    UpDown1->setVisible(conLista);
}

QString fGrafico::Titulo() const {
    const QString dato = cmbTipoDato->currentText();
    switch (Vista()) {
    case VistaGrafico::Anual:
        return dato + " por año";
    case VistaGrafico::Mensual:
        return dato + " por mes (" + QTexto(AñosDelMensual(dias_, reloj_.Hoy())) + ")";
    case VistaGrafico::Diario:
        return dato + " por dia" + (Combo1->count() > 0 ? " de " + Combo1->currentText() : "");
    }
    return dato;
}

void fGrafico::Redibujar() {
    std::optional<ElementoCombo> eleccion;
    const int i = Combo1->currentIndex();
    if (i >= 0 && i < static_cast<int>(elementos_.size())) {
        eleccion = elementos_[static_cast<std::size_t>(i)];
    }
    const auto dato = static_cast<DatoGrafico>(std::max(0, cmbTipoDato->currentIndex()));
    puntos_ = PuntosGrafico(dias_, Vista(), dato, eleccion, reloj_.Hoy());
    // The view lets go of its chart without deleting it: the one it made for
    // itself at first too.
    QChart* anterior = Graph1->chart();
    Graph1->setChart(
        CrearGrafico(puntos_, static_cast<TipoGrafico>(std::max(0, cmbTipoGraf->currentIndex())),
                     Titulo(), kUnidades[static_cast<int>(dato)]));
    delete anterior;
}

bool fGrafico::GuardarPng(const QString& ruta) const {
    return Graph1->grab().save(ruta, "PNG");
}

void fGrafico::GuardarComo() {
    QString ruta = QFileDialog::getSaveFileName(this, "Guardar como PNG", "grafico.png",
                                                "Imagenes PNG (*.png)");
    if (ruta.isEmpty()) {
        return;
    }
    if (!ruta.endsWith(".png", Qt::CaseInsensitive)) {
        ruta += ".png";
    }
    if (!GuardarPng(ruta)) {
        avisos::MostrarError(this, "No se pudo guardar la imagen en " + ruta + ".");
    }
}

bool fGrafico::event(QEvent* evento) {
    if (evento->type() == QEvent::WindowActivate) {
        Actualizar();
    }
    return QDialog::event(evento);
}

} // namespace vorimesk
