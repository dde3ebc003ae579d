#pragma once
// The notice of a limit that will hang the call up: what was reached, the
// seconds left, and one button to keep the call ("Seguir conectado"). It
// counts down on its own; the meter does the hanging up.

#include <QDialog>

class QLabel;
class QTimer;

namespace vorimesk {

class AvisoCuentaAtras : public QDialog {
    Q_OBJECT
public:
    AvisoCuentaAtras(const QString& texto, int segundos, QWidget* padre = nullptr);

signals:
    // The user keeps the call: the countdown is to be cancelled.
    void Seguir();

private:
    void Contar();

    QLabel* lCuenta = nullptr;
    QTimer* reloj_ = nullptr;
    int quedan_;
};

} // namespace vorimesk
