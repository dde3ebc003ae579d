#pragma once
// The mini window: a small meter that stays above every window while the
// main window is hidden. It shows the live meter's time, cost, band and
// bundle use and the state lamp; it is moved by dragging its body, and
// cmdCerrar closes it (the program goes on in the tray). A double-click or
// its context menu's "&Ventana normal" asks for the normal window back,
// which a desktop without a tray offers no other way.

#include "EtiquetasMedidor.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace vorimesk {

struct PantallaMonitor;

class fMini : public QWidget {
    Q_OBJECT
public:
    explicit fMini(QWidget* padre = nullptr);

    void Mostrar(const PantallaMonitor& p);
    // Top right of the screen it is on, clear of the panel.
    void Colocar();

signals:
    void Cerrada();
    void VentanaNormal();

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mouseDoubleClickEvent(QMouseEvent* evento) override;

private:
    QLabel* lTarifa = nullptr;
    QLabel* lBono = nullptr;
    QLabel* lGasto = nullptr;
    QLabel* lTiempo = nullptr;
    QLabel* shEstado = nullptr;
    QPushButton* cmdCerrar = nullptr;

    EtiquetasMedidor medidor_;
};

} // namespace vorimesk
