#include "TabConexiones.h"

#include "monitor/EntradasConexion.h"
#include "session/DatosSesion.h"

#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace vorimesk {

TabConexiones::TabConexiones(DatosSesion& datos, QWidget* padre) : QWidget(padre), datos_(datos) {
    auto* marco = new QGroupBox("Tarifa y descuento de cada conexion", this);
    listaConexiones2 = new QListWidget(marco);
    listaConexiones2->setObjectName("listaConexiones2");
    cmbTarifa = new QComboBox(marco);
    cmbTarifa->setObjectName("cmbTarifa");
    cmbDescuento = new QComboBox(marco);
    cmbDescuento->setObjectName("cmbDescuento");
    cmbDescuento->addItems({"Ninguno", "BonoNet"});
    cmbTarifa->setMinimumContentsLength(15);

    connect(listaConexiones2, &QListWidget::currentRowChanged, this, &TabConexiones::Seleccion);
    connect(cmbTarifa, &QComboBox::activated, this, &TabConexiones::ElegirTarifa);
    connect(cmbDescuento, &QComboBox::activated, this, &TabConexiones::ElegirDescuento);

    auto* lista = new QVBoxLayout;
    lista->addWidget(new QLabel("Conexiones:", marco));
    lista->addWidget(listaConexiones2, 1);
    auto* eleccion = new QFormLayout;
    eleccion->addRow("Tarifa:", cmbTarifa);
    eleccion->addRow("Descuento:", cmbDescuento);
    auto* derecha = new QVBoxLayout;
    derecha->addLayout(eleccion);
    derecha->addWidget(CrearCiclo(marco));
    derecha->addStretch();
    auto* dentro = new QHBoxLayout(marco);
    dentro->addLayout(lista, 1);
    dentro->addLayout(derecha);
    lOrigen = new QLabel(this);
    lOrigen->setObjectName("lOrigen");
    lOrigen->setWordWrap(true);
    auto* todo = new QVBoxLayout(this);
    todo->addWidget(marco);
    todo->addWidget(lOrigen);
    MostrarEntradas({});
}

void TabConexiones::MostrarOrigen(const std::string& origen) {
    lOrigen->setText(QString::fromStdString(origen));
    lOrigen->setVisible(!origen.empty());
}

void TabConexiones::MostrarEntradas(const std::vector<std::string>& entradas) {
    listaConexiones2->clear();
    hayEntradas_ = !entradas.empty();
    if (!hayEntradas_) {
        listaConexiones2->addItem(kSinConexiones);
    }
    for (const std::string& e : entradas) {
        listaConexiones2->addItem(QString::fromStdString(e));
    }
    cmbTarifa->setEnabled(hayEntradas_);
    cmbDescuento->setEnabled(hayEntradas_);
    if (hayEntradas_) {
        listaConexiones2->setCurrentRow(0);
    }
    Seleccion();
}

void TabConexiones::MostrarTarifas() {
    const QString antes = cmbTarifa->currentText();
    cmbTarifa->clear();
    const cLlamada& libro = datos_.Libro.Actual();
    for (std::int16_t i = 0; i < libro.Count(); ++i) {
        cmbTarifa->addItem(QString::fromStdString(libro.ValorTexto(i, "Nombre")));
    }
    cmbTarifa->setCurrentIndex(cmbTarifa->findText(antes));
    Seleccion();
}

int TabConexiones::Buscar(const std::string& entrada) const {
    const auto& lista = datos_.Ajustes.EntradasConexion;
    for (std::size_t i = 0; i < lista.size(); ++i) {
        if (lista[i].Entrada == entrada) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

std::string TabConexiones::Seleccionada() const {
    const QListWidgetItem* item = listaConexiones2->currentItem();
    return hayEntradas_ && item != nullptr ? item->text().toStdString() : std::string();
}

void TabConexiones::Seleccion() {
    MostrarCiclo(Seleccionada());
    const int i = Buscar(Seleccionada());
    if (i < 0) {
        cmbTarifa->setCurrentIndex(-1);
        cmbDescuento->setCurrentIndex(-1);
        return;
    }
    const EntradaConexion& e = datos_.Ajustes.EntradasConexion[i];
    cmbTarifa->setCurrentIndex(cmbTarifa->findText(QString::fromStdString(e.Tarifa)));
    cmbDescuento->setCurrentIndex(cmbDescuento->findText(QString::fromStdString(e.Descuento)));
}

void TabConexiones::ElegirTarifa(int indice) {
    const int i = Buscar(Seleccionada());
    if (i >= 0 && indice >= 0) {
        datos_.Ajustes.EntradasConexion[i].Tarifa = cmbTarifa->itemText(indice).toStdString();
    }
}

void TabConexiones::ElegirDescuento(int indice) {
    const int i = Buscar(Seleccionada());
    if (i >= 0 && indice >= 0) {
        datos_.Ajustes.EntradasConexion[i].Descuento = cmbDescuento->itemText(indice).toStdString();
    }
}

} // namespace vorimesk
