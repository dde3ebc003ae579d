#pragma once
// Keeps the forecast of the billing period on the summary tab up to date and
// sounds the budget alert: the alert sound and, where the desktop has a tray,
// a notification, once when the projection passes the budget (again only in
// a new period or after the budget is changed in the options tab).

#include "register/AvisoPresupuesto.h"

#include <QObject>
#include <functional>

class QSystemTrayIcon;

namespace vorimesk {

struct DatosSesion;
class PanelPrevision;
class SonidoAviso;

class VigiaPresupuesto : public QObject {
    Q_OBJECT
public:
    // `bandeja` gives the tray icon when there is one (null otherwise).
    VigiaPresupuesto(const DatosSesion& datos, SonidoAviso& sonido, PanelPrevision& panel,
                     std::function<QSystemTrayIcon*()> bandeja, QObject* padre = nullptr);

    // Works the forecast out afresh (budget file included) and shows it.
    void Actualizar();

signals:
    // The budget alert fired; the text is what the notification says.
    void AvisoPresupuesto(const QString& texto);

private:
    const DatosSesion& datos_;
    SonidoAviso& sonido_;
    PanelPrevision& panel_;
    std::function<QSystemTrayIcon*()> bandeja_;
    vorimesk::AvisoPresupuesto aviso_;
};

} // namespace vorimesk
