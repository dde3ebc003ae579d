#include "TablaBandas.h"

#include "tariff/TarifaEditable.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTimeEdit>

namespace vorimesk {
namespace {

constexpr const char* kFormatoHora = "HH:mm:ss";

QLabel* Cabecera(const QString& texto, QWidget* padre) {
    auto* l = new QLabel(texto, padre);
    QFont f = l->font();
    f.setBold(true);
    l->setFont(f);
    return l;
}

} // namespace

TablaBandas::TablaBandas(int tipoDia, QWidget* padre) : QWidget(padre), tipoDia_(tipoDia) {
    auto* rejilla = new QGridLayout(this);
    rejilla->setContentsMargins(0, 0, 0, 0);
    rejilla->addWidget(Cabecera("Franja", this), 0, 0);
    rejilla->addWidget(Cabecera("Precio/minuto", this), 0, 1);
    rejilla->addWidget(Cabecera("Inicio", this), 0, 2);
    rejilla->addWidget(Cabecera("Fin", this), 0, 3);
    const char* franjas[] = {"Normal", "Reducida"};
    for (int f = 0; f < 2; ++f) {
        rejilla->addWidget(new QLabel(franjas[f], this), f + 1, 0);
        const std::string precio = TarifaEditable::Clave(tipoDia_, f, "Importe");
        txtPrecio[f] = new QLineEdit(this);
        txtPrecio[f]->setObjectName(QString("txtPrecio_%1").arg(f));
        txtPrecio[f]->setAccessibleName(QString::fromStdString(precio));
        txtPrecio[f]->setMaximumWidth(txtPrecio[f]->fontMetrics().horizontalAdvance("0") * 11);
        connect(txtPrecio[f], &QLineEdit::textEdited, this, [this, precio](const QString& t) {
            emit Cambiado(QString::fromStdString(precio), t);
        });
        rejilla->addWidget(txtPrecio[f], f + 1, 1);
        tmeInicio[f] = NuevaHora(TarifaEditable::Clave(tipoDia_, f, "Inicio"));
        tmeFin[f] = NuevaHora(TarifaEditable::Clave(tipoDia_, f, "Fin"));
        tmeInicio[f]->setObjectName(QString("tmeInicio_%1").arg(f));
        tmeFin[f]->setObjectName(QString("tmeFin_%1").arg(f));
        rejilla->addWidget(tmeInicio[f], f + 1, 2);
        rejilla->addWidget(tmeFin[f], f + 1, 3);
    }
    rejilla->setColumnStretch(4, 1);
}

QTimeEdit* TablaBandas::NuevaHora(const std::string& clave) {
    auto* t = new QTimeEdit(this);
    t->setDisplayFormat(kFormatoHora);
    t->setWrapping(true);
    t->setAccessibleName(QString::fromStdString(clave));
    t->setToolTip("Las franjas incluyen su ultimo segundo: una franja hasta las 17:59:59 "
                  "acaba justo antes de las 18:00:00. Con el mismo inicio y fin, la franja "
                  "queda vacia.");
    connect(t, &QTimeEdit::timeChanged, this, [this, clave](const QTime& h) {
        emit Cambiado(QString::fromStdString(clave), h.toString(kFormatoHora));
    });
    return t;
}

void TablaBandas::Mostrar(const TarifaEditable& tarifa) {
    const QSignalBlocker bloqueo(this);
    for (int f = 0; f < 2; ++f) {
        txtPrecio[f]->setText(QString::fromStdString(
            tarifa.ValorMostrado(TarifaEditable::Clave(tipoDia_, f, "Importe"))));
        const auto poner = [&](QTimeEdit* t, const char* campo) {
            const auto s =
                TarifaEditable::LeerHora(tarifa.Valor(TarifaEditable::Clave(tipoDia_, f, campo)));
            const QSignalBlocker b(t);
            t->setTime(QTime(0, 0).addSecs(s.value_or(0)));
        };
        poner(tmeInicio[f], "Inicio");
        poner(tmeFin[f], "Fin");
    }
}

QWidget* TablaBandas::Campo(const std::string& clave) const {
    for (int f = 0; f < 2; ++f) {
        if (clave == TarifaEditable::Clave(tipoDia_, f, "Importe")) {
            return txtPrecio[f];
        }
        if (clave == TarifaEditable::Clave(tipoDia_, f, "Inicio")) {
            return tmeInicio[f];
        }
        if (clave == TarifaEditable::Clave(tipoDia_, f, "Fin")) {
            return tmeFin[f];
        }
    }
    return nullptr;
}

} // namespace vorimesk
