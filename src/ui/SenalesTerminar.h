#pragma once
// Turns SIGTERM, SIGHUP and SIGINT (the session ending, the terminal closing,
// Ctrl-C) into a Qt signal on the UI thread, so the program saves its files
// and ends as through "&Terminar". The handler only writes a byte to a socket
// pair; a QSocketNotifier reads it inside the event loop.

#include <QObject>

class QSocketNotifier;

namespace vorimesk {

class SenalesTerminar : public QObject {
    Q_OBJECT
public:
    // One per process; the handlers are installed here and put back to the
    // default when it is destroyed.
    explicit SenalesTerminar(QObject* padre = nullptr);
    ~SenalesTerminar() override;

signals:
    void Terminar(int senal);

private:
    void Leer();

    QSocketNotifier* notificador_ = nullptr;
};

} // namespace vorimesk
