#include "fFiltro.h"

#include "ControlesDialogo.h"
#include "FechasQt.h"
#include "Mensajes.h"
#include "PilaPrograma.h"
#include "Proteger.h"
#include "core/Errores.h"
#include "fPer.h"

#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTimeEdit>
#include <QVBoxLayout>
#include <tuple>
#include <vector>

namespace vorimesk {
namespace {

// A check box mark drawn by the style, empty or ticked, so a toggle shows
// at a glance whether its criterion takes part.
QIcon MarcaInterruptor(QWidget* w) {
    QIcon icono;
    const int lado = w->style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, w);
    const qreal escala = w->devicePixelRatioF();
    for (const bool marcado : {false, true}) {
        QPixmap imagen(QSize(lado, lado) * escala);
        imagen.setDevicePixelRatio(escala);
        imagen.fill(Qt::transparent);
        QPainter pintor(&imagen);
        QStyleOptionButton opcion;
        opcion.initFrom(w);
        opcion.rect = QRect(0, 0, lado, lado);
        opcion.state = QStyle::State_Enabled | (marcado ? QStyle::State_On : QStyle::State_Off);
        w->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &opcion, &pintor, w);
        pintor.end();
        icono.addPixmap(imagen, QIcon::Normal, marcado ? QIcon::On : QIcon::Off);
    }
    return icono;
}

QPushButton* Interruptor(const QString& texto, const char* nombre, QWidget* padre) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    b->setCheckable(true);
    b->setAutoDefault(false);
    b->setIcon(MarcaInterruptor(b));
    return b;
}

QTimeEdit* EditorHora(const char* nombre, QWidget* padre) {
    auto* e = new QTimeEdit(padre);
    e->setObjectName(nombre);
    e->setDisplayFormat("HH:mm:ss");
    return e;
}

QComboBox* Lista(const char* nombre, const QStringList& elementos, QWidget* padre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nombre);
    c->addItems(elementos);
    return c;
}

} // namespace

fFiltro::fFiltro(AnfitrionRegistro& anfitrion, const Reloj& reloj, QWidget* padre)
    : QDialog(padre), anfitrion_(anfitrion), reloj_(reloj), fecha_(reloj.Hoy()) {
    setWindowTitle("Filtro");
    cmdAplicar = Boton("&Aplicar", "cmdAplicar", this);
    cmdSuprimir = Boton("&Suprimir", "cmdSuprimir", this);
    cmdSuprimir->setToolTip("Quitar el filtro");
    cmdTodos = Boton("&Ver todos", "cmdTodos", this);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdAplicar);
    botones->addWidget(cmdSuprimir);
    botones->addWidget(cmdTodos);

    auto* rejilla = new QGridLayout;
    rejilla->addWidget(GrupoFecha(), 0, 0);
    rejilla->addWidget(GrupoHora(), 0, 1);
    rejilla->addWidget(GrupoTiempo(), 1, 0);
    rejilla->addWidget(GrupoOtras(), 1, 1);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(rejilla);
    columna->addLayout(botones);

    Conmutar(bFec, {fecDesde, fecHasta});
    Conmutar(bHora, {HoraSpin1, HoraSpin2});
    Conmutar(bTiempo, {HoraTiempo, Combo1});
    Conmutar(bTipo, {Combo2});
    Conmutar(bBono, {Combo3});
    Conmutar(bDia, {Combo4});
    connect(cmdAplicar, &QPushButton::clicked, this, &fFiltro::Aplicar);
    connect(cmdSuprimir, &QPushButton::clicked, this, &fFiltro::Suprimir);
    connect(cmdTodos, &QPushButton::clicked, this, &fFiltro::VerTodos);
    connect(cmdPeriodos, &QPushButton::clicked, this, &fFiltro::ElegirPeriodo);
    TomarValoresGuardados();
}

QWidget* fFiltro::GrupoFecha() {
    auto* g = new QGroupBox("Fecha", this);
    bFec = Interruptor("Filtrar por fecha", "bFec", g);
    fecDesde = EditorFecha("fecDesde", g);
    fecHasta = EditorFecha("fecHasta", g);
    cmdPeriodos = Boton("...", "cmdPeriodos", g);
    cmdPeriodos->setToolTip("Elegir un periodo de facturacion");
    auto* l = new QGridLayout(g);
    l->addWidget(bFec, 0, 0, 1, 3);
    l->addWidget(new QLabel("Desde:", g), 1, 0);
    l->addWidget(fecDesde, 1, 1);
    l->addWidget(cmdPeriodos, 1, 2, 2, 1);
    l->addWidget(new QLabel("Hasta:", g), 2, 0);
    l->addWidget(fecHasta, 2, 1);
    return g;
}

QWidget* fFiltro::GrupoHora() {
    auto* g = new QGroupBox("Hora", this);
    bHora = Interruptor("Filtrar por hora", "bHora", g);
    HoraSpin1 = EditorHora("HoraSpin1", g);
    HoraSpin2 = EditorHora("HoraSpin2", g);
    auto* l = new QGridLayout(g);
    l->addWidget(bHora, 0, 0, 1, 2);
    l->addWidget(new QLabel("Desde:", g), 1, 0);
    l->addWidget(HoraSpin1, 1, 1);
    l->addWidget(new QLabel("Hasta:", g), 2, 0);
    l->addWidget(HoraSpin2, 2, 1);
    return g;
}

QWidget* fFiltro::GrupoTiempo() {
    auto* g = new QGroupBox("Tiempo", this);
    bTiempo = Interruptor("Solo llamadas con un tiempo", "bTiempo", g);
    Combo1 = Lista("Combo1", {"> de", "< de", "="}, g);
    HoraTiempo = EditorHora("HoraTiempo", g);
    auto* l = new QGridLayout(g);
    l->addWidget(bTiempo, 0, 0, 1, 2);
    l->addWidget(Combo1, 1, 0);
    l->addWidget(HoraTiempo, 1, 1);
    l->setRowStretch(2, 1);
    return g;
}

QWidget* fFiltro::GrupoOtras() {
    auto* g = new QGroupBox("Otras opciones ", this);
    bTipo = Interruptor("Filtrar", "bTipo", g);
    bBono = Interruptor("Filtrar", "bBono", g);
    bDia = Interruptor("Filtrar", "bDia", g);
    Combo2 = Lista("Combo2", {"Normal", "Reducida"}, g);
    Combo3 = Lista("Combo3", {"Sin Bono", "Con Bono"}, g);
    Combo4 = Lista("Combo4", {"Semana", "Sabado", "Festivo"}, g);
    auto* l = new QGridLayout(g);
    int fila = 0;
    for (auto [boton, etiqueta, lista] :
         {std::tuple{bTipo, "Tipo tarifa:", Combo2}, std::tuple{bBono, "BonoNet:", Combo3},
          std::tuple{bDia, "Tipo de dia:", Combo4}}) {
        l->addWidget(boton, fila, 0);
        l->addWidget(new QLabel(etiqueta, g), fila, 1);
        l->addWidget(lista, fila, 2);
        ++fila;
    }
    l->setColumnStretch(2, 1);
    return g;
}

// A toggle down lets its criterion take part: its inputs come alive and the
// first of them takes the focus.
void fFiltro::Conmutar(QPushButton* boton, std::initializer_list<QWidget*> controles) {
    std::vector<QWidget*> lista(controles);
    const auto aplicar = [lista](bool abajo) {
        for (QWidget* w : lista) {
            w->setEnabled(abajo);
        }
        if (abajo) {
            lista.front()->setFocus();
        }
    };
    connect(boton, &QPushButton::toggled, this, aplicar);
    aplicar(boton->isChecked());
}

void fFiltro::TomarValoresGuardados() {
    cPila& pila = PilaPrograma();
    if (pila.Count() > 0) {
        fecha_ = FechaDePila(pila.Sacar(), reloj_.Hoy());
        entero1_ = pila.Count() > 0 ? EnteroDePila(pila.Sacar(), 0) : 0;
        entero2_ = pila.Count() > 0 ? EnteroDePila(pila.Sacar(), 1) : 1;
        pila.Vaciar();
    }
    for (QComboBox* c : {Combo1, Combo2, Combo3, Combo4}) {
        c->setCurrentIndex(0);
    }
    const QDate hoy = AQDate(reloj_.Hoy());
    fecDesde->setDate(hoy);
    fecHasta->setDate(hoy);
    // The whole day: ticking the hour toggle alone leaves every call in.
    HoraSpin1->setTime(QTime(0, 0, 0));
    HoraSpin2->setTime(QTime(23, 59, 59));
    SoltarInterruptores();
}

void fFiltro::SoltarInterruptores() {
    for (QPushButton* b : {bFec, bHora, bTiempo, bTipo, bBono, bDia}) {
        b->setChecked(false);
    }
}

CriteriosFiltro fFiltro::Criterios() const {
    CriteriosFiltro c;
    const auto entero = [](const QPushButton* b, const QComboBox* lista) {
        return static_cast<std::int16_t>(b->isChecked() ? lista->currentIndex() : -1);
    };
    if (bFec->isChecked()) {
        // The start as the picker shows it, the end as the picker holds it.
        c.desde = Fecha::LeerTextoCorto(fecDesde->text().toStdString())
                      .value_or(DeQDate(fecDesde->date()));
        c.hasta = DeQDate(fecHasta->date());
    } else {
        c.desde = c.hasta = kFechaApagada;
    }
    if (bHora->isChecked()) {
        c.horaDesde = DeQTime(HoraSpin1->time());
        c.horaHasta = DeQTime(HoraSpin2->time());
    } else {
        c.horaDesde = c.horaHasta = kFechaApagada;
    }
    c.tipo = entero(bTipo, Combo2);
    c.bono = entero(bBono, Combo3);
    c.tipoDia = entero(bDia, Combo4);
    c.comparacion = entero(bTiempo, Combo1);
    c.duracion = bTiempo->isChecked() ? HoraTiempo->time().toString("HH:mm:ss").toStdString()
                                      : std::string("-1");
    return c;
}

void fFiltro::Aplicar() {
    Proteger(this, [&] { anfitrion_.RellenaGrid(Criterios()); });
}

void fFiltro::Suprimir() {
    // The toggles go with the filter, so none is left ticked over a grid it
    // no longer filters.
    SoltarInterruptores();
    Proteger(this, [&] {
        anfitrion_.RellenaGrid(
            CriteriosFiltro::Periodo(anfitrion_.InicioPeriodo(), anfitrion_.FinPeriodo()));
    });
}

void fFiltro::VerTodos() {
    Proteger(this, [&] { anfitrion_.RellenaGrid({}); });
}

void fFiltro::ElegirPeriodo() {
    cPila& pila = PilaPrograma();
    pila.Meter(entero2_);
    pila.Meter(entero1_);
    pila.Meter(fecha_);
    fPer selector(reloj_, this);
    // Beside the filter, a little in from its left edge and below its top
    // (600 and 750 twips).
    selector.move(x() - selector.width() + 40, y() + 50);
    selector.exec();
    VolverDelSelector();
}

void fFiltro::VolverDelSelector() {
    cPila& pila = PilaPrograma();
    if (ResultadoPeriodos() != kPeriodoElegido || pila.Count() == 0) {
        return;
    }
    fecHasta->setDate(AQDate(FechaDePila(pila.Sacar(), reloj_.Hoy())));
    if (pila.Count() > 0) {
        fecDesde->setDate(AQDate(FechaDePila(pila.Sacar(), reloj_.Hoy())));
    }
    pila.Vaciar();
    ResultadoPeriodos() = kPeriodoCancelado;
    bFec->setChecked(true);
}

} // namespace vorimesk
