#include "PanelTarifa.h"

#include "AvisoCampo.h"
#include "FranjaDia.h"
#include "LeyendaFranjas.h"
#include "TablaBandas.h"
#include "tariff/TarifaEditable.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>
#include <map>

namespace vorimesk {
namespace {

const char* kAyuda = "ayudaOriginal";

QColor Fondo(Gravedad g) {
    return g == Gravedad::Error ? QColor(255, 214, 214) : QColor(255, 240, 190);
}

// Colours the field and makes the message its tooltip; with no problem the
// field gets its own look and help back.
void MarcarCampo(QWidget* campo, const Problema* p) {
    if (!campo->property(kAyuda).isValid()) {
        campo->setProperty(kAyuda, campo->toolTip());
    }
    QPalette paleta = campo->parentWidget()->palette();
    if (p != nullptr) {
        paleta.setColor(QPalette::Base, Fondo(p->gravedad));
    }
    campo->setPalette(paleta);
    campo->setToolTip(p != nullptr ? QString::fromStdString(p->mensaje)
                                   : campo->property(kAyuda).toString());
}

} // namespace

PanelTarifa::PanelTarifa(QWidget* padre) : QWidget(padre) {
    auto* columna = new QVBoxLayout(this);
    columna->setContentsMargins(0, 0, 0, 0);
    columna->addWidget(CrearNombre());
    columna->addWidget(CrearConexion());
    for (int d = 0; d < 3; ++d) {
        columna->addWidget(CrearDia(d));
    }
    columna->addWidget(new LeyendaFranjas(this));
    columna->addStretch();
}

QWidget* PanelTarifa::CrearNombre() {
    auto* caja = new QWidget(this);
    auto* fila = new QHBoxLayout(caja);
    fila->setContentsMargins(0, 0, 0, 0);
    txtNombre = new QLineEdit(caja);
    txtNombre->setObjectName("txtNombre");
    txtNombre->setMinimumWidth(txtNombre->fontMetrics().horizontalAdvance("M") * 14);
    txtNombre->setToolTip("Hasta 15 caracteres; el primero, una letra sin acento, una cifra o "
                          "un signo.");
    connect(txtNombre, &QLineEdit::textEdited, this,
            [this](const QString& t) { emit Cambiado("Nombre", t); });
    auto* lNombre = new QLabel("&Nombre:", caja);
    lNombre->setBuddy(txtNombre);
    fila->addWidget(lNombre);
    fila->addWidget(txtNombre);
    fila->addSpacing(fontMetrics().height());
    avisoNombre = new AvisoCampo(1, caja);
    avisoNombre->setObjectName("avisoNombre");
    fila->addWidget(avisoNombre, 1);
    return caja;
}

QWidget* PanelTarifa::CrearConexion() {
    auto* grupo = new QGroupBox("Establecimiento de llamada", this);
    auto* fila = new QHBoxLayout(grupo);
    txtConexion = new QLineEdit(grupo);
    txtConexion->setObjectName("txtConexion");
    txtConexion->setMaximumWidth(txtConexion->fontMetrics().horizontalAdvance("0") * 11);
    connect(txtConexion, &QLineEdit::textEdited, this,
            [this](const QString& t) { emit Cambiado("Conexion.Importe", t); });
    spnMinutos = new QSpinBox(grupo);
    spnMinutos->setObjectName("spnMinutos");
    spnMinutos->setRange(0, 23);
    spnMinutos->setSuffix(" min");
    spnSegundos = new QSpinBox(grupo);
    spnSegundos->setObjectName("spnSegundos");
    spnSegundos->setRange(0, 59);
    spnSegundos->setSuffix(" s");
    for (QSpinBox* s : {spnMinutos, spnSegundos}) {
        s->setToolTip("Tiempo que cubre el importe por llamada: hasta 23 min 59 s.");
        connect(s, &QSpinBox::valueChanged, this, &PanelTarifa::EmitirTiempoIncluido);
    }
    auto* lImporte = new QLabel("&Importe por llamada:", grupo);
    lImporte->setBuddy(txtConexion);
    auto* lTiempo = new QLabel("&Tiempo incluido:", grupo);
    lTiempo->setBuddy(spnMinutos);
    fila->addWidget(lImporte);
    fila->addWidget(txtConexion);
    fila->addSpacing(fontMetrics().height());
    fila->addWidget(lTiempo);
    fila->addWidget(spnMinutos);
    fila->addWidget(spnSegundos);
    fila->addSpacing(fontMetrics().height());
    avisoConexion = new AvisoCampo(1, grupo);
    avisoConexion->setObjectName("avisoConexion");
    fila->addWidget(avisoConexion, 1);
    return grupo;
}

QWidget* PanelTarifa::CrearDia(int d) {
    auto* grupo = new QGroupBox(TarifaEditable::kDias[d], this);
    auto* fila = new QHBoxLayout(grupo);
    tablas[d] = new TablaBandas(d, grupo);
    tablas[d]->setObjectName(QString("tablas_%1").arg(d));
    connect(tablas[d], &TablaBandas::Cambiado, this, &PanelTarifa::Cambiado);
    fila->addWidget(tablas[d], 0, Qt::AlignTop);
    auto* derecha = new QVBoxLayout;
    franjas[d] = new FranjaDia(grupo);
    franjas[d]->setObjectName(QString("franjas_%1").arg(d));
    franjas[d]->setAccessibleName(QString("Franjas de ") + TarifaEditable::kDias[d]);
    derecha->addWidget(franjas[d]);
    avisoDia[d] = new AvisoCampo(2, grupo);
    avisoDia[d]->setObjectName(QString("avisoDia_%1").arg(d));
    derecha->addWidget(avisoDia[d]);
    derecha->addStretch();
    fila->addLayout(derecha, 1);
    return grupo;
}

void PanelTarifa::EmitirTiempoIncluido() {
    emit Cambiado("Conexion.Tiempo", QString::fromStdString(TarifaEditable::TextoTiempoIncluido(
                                         spnMinutos->value(), spnSegundos->value())));
}

void PanelTarifa::Mostrar(const TarifaEditable& t) {
    const QSignalBlocker b1(txtNombre), b2(txtConexion), b3(spnMinutos), b4(spnSegundos);
    txtNombre->setText(QString::fromStdString(t.Valor("Nombre")));
    txtConexion->setText(QString::fromStdString(t.ValorMostrado("Conexion.Importe")));
    const auto incluido = TarifaEditable::LeerTiempoIncluido(t.Valor("Conexion.Tiempo"));
    spnMinutos->setValue(incluido ? incluido->first : 0);
    spnSegundos->setValue(incluido ? incluido->second : 0);
    for (TablaBandas* tabla : tablas) {
        tabla->Mostrar(t);
    }
    ActualizarFranjas(t);
}

void PanelTarifa::ActualizarFranjas(const TarifaEditable& t) {
    for (int d = 0; d < 3; ++d) {
        franjas[d]->Mostrar(t.Franjas(d));
    }
}

QWidget* PanelTarifa::Campo(const std::string& clave) const {
    if (clave == "Nombre") {
        return txtNombre;
    }
    if (clave == "Conexion.Importe") {
        return txtConexion;
    }
    if (clave == "Conexion.Tiempo") {
        return spnMinutos;
    }
    for (TablaBandas* tabla : tablas) {
        if (QWidget* w = tabla->Campo(clave)) {
            return w;
        }
    }
    return nullptr;
}

AvisoCampo* PanelTarifa::Seccion(const std::string& clave) const {
    if (clave == "Nombre") {
        return avisoNombre;
    }
    if (clave.starts_with("Conexion")) {
        return avisoConexion;
    }
    for (int d = 0; d < 3; ++d) {
        if (clave.starts_with(TarifaEditable::kDias[d])) {
            return avisoDia[d];
        }
    }
    return nullptr;
}

void PanelTarifa::MarcarProblemas(const std::vector<Problema>& problemas) {
    std::map<QWidget*, const Problema*> campos;
    std::map<AvisoCampo*, std::pair<QStringList, bool>> secciones;
    for (const std::string& clave : RegistroTarifa::Claves()) {
        campos[Campo(clave)] = nullptr;
    }
    for (AvisoCampo* l : {avisoNombre, avisoConexion, avisoDia[0], avisoDia[1], avisoDia[2]}) {
        secciones[l];
    }
    for (const Problema& p : problemas) {
        if (QWidget* w = Campo(p.clave);
            w != nullptr && (campos[w] == nullptr || p.gravedad == Gravedad::Error)) {
            campos[w] = &p;
        }
        if (AvisoCampo* l = Seccion(p.clave)) {
            const bool error = p.gravedad == Gravedad::Error;
            secciones[l].first << QString(error ? "Error: " : "Aviso: ") +
                                      QString::fromStdString(p.mensaje);
            secciones[l].second = secciones[l].second || error;
        }
    }
    for (const auto& [campo, p] : campos) {
        MarcarCampo(campo, p);
    }
    for (const auto& [l, avisos] : secciones) {
        l->Mostrar(avisos.first, avisos.second);
    }
}

void PanelTarifa::Enfocar(const std::string& clave) {
    QWidget* w = Campo(clave);
    for (int d = 0; w == nullptr && d < 3; ++d) {
        if (clave == TarifaEditable::kDias[d]) {
            w = tablas[d]->PrimerCampo();
        }
    }
    if (w == nullptr) {
        return;
    }
    w->setFocus(Qt::OtherFocusReason);
    if (auto* linea = qobject_cast<QLineEdit*>(w)) {
        linea->selectAll();
    }
}

} // namespace vorimesk
