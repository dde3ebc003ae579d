#include "VigiaPresupuesto.h"

#include "PanelPrevision.h"
#include "SonidoAviso.h"
#include "core/Errores.h"
#include "core/FormatoNumero.h"
#include "session/DatosSesion.h"

#include <QSystemTrayIcon>

namespace vorimesk {

VigiaPresupuesto::VigiaPresupuesto(const DatosSesion& datos, SonidoAviso& sonido,
                                   PanelPrevision& panel, std::function<QSystemTrayIcon*()> bandeja,
                                   QObject* padre)
    : QObject(padre), datos_(datos), sonido_(sonido), panel_(panel), bandeja_(std::move(bandeja)) {}

void VigiaPresupuesto::Actualizar() {
    DatosPrevision d;
    d.DiaFactura = datos_.Bono.DiaFactura();
    d.perFactura = datos_.Bono.perFactura();
    d.Coste = datos_.Coste();
    QString ilegible;
    try {
        d.Presupuesto = datos_.Presupuesto.Actual();
    } catch (const Error& e) {
        // A damaged budget file only leaves the forecast without a budget.
        ilegible = QString::fromStdString(e.what());
    }
    const PrevisionPeriodo p = Prever(datos_.Registro, d, datos_.RelojPrograma.Hoy());
    panel_.Mostrar(p);
    if (!ilegible.isEmpty()) {
        panel_.PresupuestoIlegible(ilegible);
    }
    if (!aviso_.Comprobar(p)) {
        return;
    }
    const QString texto =
        QString("A este ritmo el periodo costara %1, mas que el presupuesto de %2.")
            .arg(QString::fromStdString(TextoDinero(p.Proyeccion)),
                 QString::fromStdString(TextoDinero(*p.Presupuesto)));
    sonido_.Reproducir(QString::fromStdString(datos_.Ajustes.SonidoAviso));
    QSystemTrayIcon* bandeja = bandeja_ ? bandeja_() : nullptr;
    if (bandeja != nullptr && QSystemTrayIcon::isSystemTrayAvailable()) {
        bandeja->showMessage("Vorimesk: presupuesto", texto, QSystemTrayIcon::Warning);
    }
    emit AvisoPresupuesto(texto);
}

} // namespace vorimesk
