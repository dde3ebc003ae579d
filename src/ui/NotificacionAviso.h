#pragma once
// The window's alerts also as desktop notifications, with the alert's own
// sentence: through the tray icon when the desktop has a tray, else through
// the desktop's notification service (org.freedesktop.Notifications). A
// muted laptop then still tells the user.

#include <QObject>
#include <QPointer>
#include <QString>

class QSystemTrayIcon;

namespace vorimesk {

class fMain;

class NotificacionAviso : public QObject {
    Q_OBJECT
public:
    explicit NotificacionAviso(QSystemTrayIcon* bandeja, QObject* padre = nullptr);

    // True when the tray took the message or it went out to the session
    // bus (false with neither).
    bool Mostrar(const QString& texto);

private:
    bool PorDbus(const QString& texto);

    QPointer<QSystemTrayIcon> bandeja_;
};

// Every alert the window sounds is also notified.
void NotificarAvisos(fMain& ventana);

} // namespace vorimesk
