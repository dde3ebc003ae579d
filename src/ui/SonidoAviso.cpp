#include "SonidoAviso.h"

#include <QFileInfo>
#include <QSoundEffect>
#include <QUrl>

namespace vorimesk {

SonidoAviso::SonidoAviso(QObject* padre) : QObject(padre) {}

bool SonidoAviso::Reproducir(const QString& ruta) {
    const QFileInfo archivo(ruta);
    if (ruta.isEmpty() || !archivo.isFile() || !archivo.isReadable()) {
        return false;
    }
    // Made on first use: a machine without sound never opens an audio device.
    if (efecto_ == nullptr) {
        efecto_ = new QSoundEffect(this);
    }
    const QUrl fuente = QUrl::fromLocalFile(archivo.absoluteFilePath());
    if (efecto_->source() != fuente) {
        efecto_->setSource(fuente);
    }
    efecto_->play();
    return true;
}

} // namespace vorimesk
