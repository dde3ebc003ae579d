#pragma once
// How a second start of the program reaches the first: the running copy
// listens on a local socket named after the user and its data folder, and a
// second copy on that folder (which
// the single-instance lock has already stopped) knocks on it and ends, so
// the running window comes forward instead of nothing happening.

#include <QObject>
#include <QString>
#include <filesystem>

class QLocalServer;

namespace vorimesk {

class PuertaInstancia : public QObject {
    Q_OBJECT
public:
    explicit PuertaInstancia(QString nombre = NombrePorDefecto(), QObject* padre = nullptr);

    // The running copy starts listening; false when it cannot (the program
    // works all the same, a second start then just ends).
    bool Abrir();
    // The second copy: true when the running one heard the knock.
    static bool Llamar(const QString& nombre = NombrePorDefecto());

    static QString NombrePorDefecto();
    // One door per data folder, as there is one lock per data folder.
    static QString NombrePara(const std::filesystem::path& carpetaDatos);

signals:
    void Llamada();

private:
    QString nombre_;
    QLocalServer* servidor_ = nullptr;
};

} // namespace vorimesk
