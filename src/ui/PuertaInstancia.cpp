#include "PuertaInstancia.h"

#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <unistd.h>

namespace vorimesk {
namespace {

constexpr int kEsperaMs = 1000;
constexpr char kMostrar[] = "mostrar\n";

} // namespace

PuertaInstancia::PuertaInstancia(QString nombre, QObject* padre)
    : QObject(padre), nombre_(std::move(nombre)) {}

QString PuertaInstancia::NombrePorDefecto() {
    return "vorimesk-" + QString::number(getuid());
}

QString PuertaInstancia::NombrePara(const std::filesystem::path& carpetaDatos) {
    std::error_code ec;
    std::filesystem::path ruta = std::filesystem::weakly_canonical(carpetaDatos, ec);
    if (ec) {
        ruta = carpetaDatos;
    }
    const QByteArray huella =
        QCryptographicHash::hash(QByteArray::fromStdString(ruta.string()), QCryptographicHash::Sha1)
            .toHex()
            .left(12);
    return NombrePorDefecto() + "-" + QString::fromLatin1(huella);
}

bool PuertaInstancia::Abrir() {
    servidor_ = new QLocalServer(this);
    servidor_->setSocketOptions(QLocalServer::UserAccessOption);
    // Only the lock holder gets here: a socket left by a copy that crashed
    // is stale and is cleared.
    QLocalServer::removeServer(nombre_);
    connect(servidor_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* s = servidor_->nextPendingConnection()) {
            connect(s, &QLocalSocket::readyRead, this, [this, s] {
                if (s->readAll().startsWith("mostrar")) {
                    emit Llamada();
                }
                s->disconnectFromServer();
            });
            connect(s, &QLocalSocket::disconnected, s, &QObject::deleteLater);
        }
    });
    return servidor_->listen(nombre_);
}

bool PuertaInstancia::Llamar(const QString& nombre) {
    QLocalSocket s;
    s.connectToServer(nombre);
    if (!s.waitForConnected(kEsperaMs)) {
        return false;
    }
    s.write(kMostrar);
    return s.waitForBytesWritten(kEsperaMs);
}

} // namespace vorimesk
