#pragma once
// The alert sound: the user's sound file, played without waiting. A missing
// or unplayable file plays nothing and says nothing.

#include <QObject>
#include <QString>

class QSoundEffect;

namespace vorimesk {

class SonidoAviso : public QObject {
    Q_OBJECT
public:
    explicit SonidoAviso(QObject* padre = nullptr);
    // True when playing was started (the file exists and is a file).
    bool Reproducir(const QString& ruta);

private:
    QSoundEffect* efecto_ = nullptr;
};

} // namespace vorimesk
