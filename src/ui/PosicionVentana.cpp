#include "PosicionVentana.h"

#include "fMain.h"

#include <QCoreApplication>
#include <QEvent>
#include <QSettings>
#include <QWidget>

namespace vorimesk {
namespace {

constexpr const char* kClave = "Ventana/Geometria";

class GuardaPosicion : public QObject {
public:
    GuardaPosicion(QWidget& ventana, const std::filesystem::path& carpeta)
        : QObject(&ventana), ventana_(ventana),
          preferencias_(QString::fromStdString((carpeta / fMain::kArchivoPreferencias).string()),
                        QSettings::IniFormat) {
        const QByteArray geometria = preferencias_.value(kClave).toByteArray();
        if (!geometria.isEmpty()) {
            ventana_.restoreGeometry(geometria);
        }
        ventana_.installEventFilter(this);
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { Guardar(true); });
    }
    ~GuardaPosicion() override { preferencias_.sync(); }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (objeto == &ventana_) {
            switch (evento->type()) {
            case QEvent::Move:
            case QEvent::Resize:
                // Only a shown window has a place of its own worth keeping.
                if (ventana_.isVisible()) {
                    Guardar(false);
                }
                break;
            case QEvent::Hide:
            case QEvent::Close:
                Guardar(true);
                break;
            default:
                break;
            }
        }
        return false;
    }

private:
    // While the window is dragged only the value changes; the file is
    // written when it hides, closes or the program ends.
    void Guardar(bool escribir) {
        preferencias_.setValue(kClave, ventana_.saveGeometry());
        if (escribir) {
            preferencias_.sync();
        }
    }

    QWidget& ventana_;
    QSettings preferencias_;
};

} // namespace

void RecordarPosicion(QWidget& ventana, const std::filesystem::path& carpetaDatos) {
    new GuardaPosicion(ventana, carpetaDatos);
}

} // namespace vorimesk
