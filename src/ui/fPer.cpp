#include "fPer.h"

#include "AnchoTitulo.h"
#include "ControlesDialogo.h"
#include "FechasQt.h"
#include "PilaPrograma.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace vorimesk {
namespace {

// The small picture beside each period: a calendar leaf, drawn at twice its
// size so it stays sharp on screens scaled to 200%.
QIcon IconoPeriodo() {
    QPixmap hoja(32, 32);
    hoja.fill(Qt::transparent);
    QPainter p(&hoja);
    p.scale(2, 2);
    p.setPen(QColor(90, 90, 90));
    p.setBrush(Qt::white);
    p.drawRect(1, 2, 13, 12);
    p.fillRect(2, 3, 12, 3, QColor(200, 40, 40));
    p.setPen(QColor(120, 120, 120));
    for (int y = 8; y <= 12; y += 2) {
        for (int x = 3; x <= 12; x += 3) {
            p.drawPoint(x, y);
        }
    }
    return QIcon(hoja);
}

} // namespace

fPer::fPer(const Reloj& reloj, QWidget* padre) : QDialog(padre), reloj_(reloj) {
    setWindowTitle("Seleccion de periodos de facturacion.");
    setModal(true);
    cmbAño = new QComboBox(this);
    cmbAño->setObjectName("cmbAño");
    lvPer = new QListWidget(this);
    lvPer->setObjectName("lvPer");
    lvPer->setIconSize(QSize(16, 16));
    lvPer->setMinimumWidth(300);

    auto* año = new QHBoxLayout;
    año->addWidget(new QLabel("Año:", this));
    año->addWidget(cmbAño, 1);
    cmdAceptar = Boton("&Aceptar", "cmdAceptar", this);
    cmdAceptar->setDefault(true);
    cmdAceptar->setEnabled(false);
    auto* cancelar = Boton("&Cancelar", "cmdCancelar", this);
    auto* botones = new QHBoxLayout;
    botones->addStretch(1);
    botones->addWidget(cmdAceptar);
    botones->addWidget(cancelar);
    auto* columna = new QVBoxLayout(this);
    columna->addLayout(año);
    columna->addWidget(lvPer, 1);
    columna->addLayout(botones);
    resize(340, 300);
    AjustarAnchoAlTitulo(*this);

    ResultadoPeriodos() = kPeriodoCancelado;
    TomarParametros();
    connect(cmbAño, &QComboBox::currentIndexChanged, this, &fPer::ElegirAño);
    connect(lvPer, &QListWidget::itemActivated, this, &fPer::Elegir);
    connect(lvPer, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* actual) {
        lvPer->scrollToItem(actual);
        cmdAceptar->setEnabled(actual != nullptr);
    });
    connect(cmdAceptar, &QPushButton::clicked, this, [this] { Elegir(lvPer->currentItem()); });
    connect(cancelar, &QPushButton::clicked, this, &fPer::reject);
    LlenarAños();
}

// The opener pushed billing day, interval and first date; they come off in
// the reverse order. A value missing falls back to a harmless default.
void fPer::TomarParametros() {
    cPila& pila = PilaPrograma();
    const Fecha hoy = reloj_.Hoy();
    primera_ = pila.Count() > 0 ? FechaDePila(pila.Sacar(), hoy).SoloFecha() : hoy;
    const std::int64_t intervalo = pila.Count() > 0 ? EnteroDePila(pila.Sacar(), 0) : 0;
    const std::int64_t dia = pila.Count() > 0 ? EnteroDePila(pila.Sacar(), 1) : 1;
    periodos_.Datos(static_cast<std::uint8_t>(dia), static_cast<std::uint8_t>(intervalo));
    periodos_.Periodos(primera_, hoy);
}

void fPer::LlenarAños() {
    const int actual = reloj_.Hoy().Año();
    {
        const QSignalBlocker bloqueo(cmbAño);
        for (int año = primera_.Año(); año <= actual; ++año) {
            cmbAño->addItem(QString::number(año));
        }
        cmbAño->setCurrentIndex(cmbAño->count() - 1);
    }
    ElegirAño(cmbAño->currentIndex());
}

void fPer::ElegirAño(int indice) {
    lvPer->clear();
    if (indice < 0) {
        return;
    }
    periodos_.Reset();
    periodos_.Filtro(static_cast<std::int16_t>(cmbAño->itemText(indice).toInt()));
    const QIcon icono = IconoPeriodo();
    for (std::string p = periodos_.Periodo(); !p.empty(); p = periodos_.Periodo()) {
        if (p != cPeriodo::kOtro) {
            lvPer->addItem(new QListWidgetItem(icono, QTexto(p)));
        }
    }
}

void fPer::Elegir(QListWidgetItem* elemento) {
    if (elemento == nullptr) {
        return;
    }
    const std::string texto = elemento->text().toStdString();
    cPila& pila = PilaPrograma();
    pila.Vaciar();
    pila.Meter(cPeriodo::FechaIni(texto));
    pila.Meter(cPeriodo::FechaFin(texto));
    ResultadoPeriodos() = kPeriodoElegido;
    accept();
}

void fPer::reject() {
    PilaPrograma().Vaciar();
    ResultadoPeriodos() = kPeriodoCancelado;
    QDialog::reject();
}

} // namespace vorimesk
