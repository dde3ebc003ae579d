#include "NotificacionAviso.h"

#include "fMain.h"
#include "monitor/PantallaMonitor.h"
#include "monitor/TextoAviso.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QSystemTrayIcon>
#include <QVariantMap>

namespace vorimesk {
namespace {

constexpr int kVisibleMs = 10000;

} // namespace

NotificacionAviso::NotificacionAviso(QSystemTrayIcon* bandeja, QObject* padre)
    : QObject(padre), bandeja_(bandeja) {}

bool NotificacionAviso::Mostrar(const QString& texto) {
    if (bandeja_ && bandeja_->isVisible() && QSystemTrayIcon::isSystemTrayAvailable() &&
        QSystemTrayIcon::supportsMessages()) {
        bandeja_->showMessage(kTituloVentana, texto, QSystemTrayIcon::Information, kVisibleMs);
        return true;
    }
    return PorDbus(texto);
}

bool NotificacionAviso::PorDbus(const QString& texto) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return false;
    }
    QDBusMessage llamada = QDBusMessage::createMethodCall(
        "org.freedesktop.Notifications", "/org/freedesktop/Notifications",
        "org.freedesktop.Notifications", "Notify");
    llamada << QString(kTituloVentana) << 0u << QString("vorimesk") << QString(kTituloVentana)
            << texto << QStringList() << QVariantMap() << -1;
    // Sent without waiting for the answer: a notification service that is
    // slow to answer must not hold up the window's timers.
    return bus.send(llamada);
}

void NotificarAvisos(fMain& ventana) {
    auto* notificacion = new NotificacionAviso(ventana.Bandeja(), &ventana);
    QObject::connect(&ventana, &fMain::AvisoSonoro, notificacion, [&ventana, notificacion](int m) {
        const auto motivo = static_cast<MotivoAviso>(m);
        notificacion->Mostrar(
            QString::fromStdString(TextoAviso(motivo, ventana.Monitor().Pantalla())));
    });
}

} // namespace vorimesk
