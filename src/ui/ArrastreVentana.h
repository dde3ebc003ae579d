#pragma once
// Moving a window by its body: a left-button press on any of the given
// widgets drags the whole window, as its title bar would. The window
// manager does the move when it can (startSystemMove, which also works on
// Wayland); otherwise the window follows the mouse itself.

#include <QObject>
#include <QPoint>

class QWidget;

namespace vorimesk {

class ArrastreVentana : public QObject {
    Q_OBJECT
public:
    // Owned by `ventana`; watches what Agarrar adds (the window itself too,
    // when it is added).
    explicit ArrastreVentana(QWidget* ventana);
    void Agarrar(QWidget* asa);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    QWidget* ventana_;
    bool arrastrando_ = false;
    QPoint desfase_;
};

} // namespace vorimesk
