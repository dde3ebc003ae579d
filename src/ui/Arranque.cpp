#include "Arranque.h"

#include "PosicionVentana.h"
#include "fAbout.h"
#include "fMain.h"

#include <QApplication>
#include <QDialog>

namespace vorimesk {
namespace {

// A question or warning of the load must not open under the banner, which
// stays above every window: the banner steps aside for it.
class ApartarBanner : public QObject {
public:
    explicit ApartarBanner(fAbout& banner) : banner_(banner) { qApp->installEventFilter(this); }
    ~ApartarBanner() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::Show && objeto != &banner_ && objeto->isWidgetType() &&
            qobject_cast<QDialog*>(objeto) != nullptr) {
            banner_.hide();
        }
        return false;
    }

private:
    fAbout& banner_;
};

} // namespace

std::unique_ptr<fMain> Arrancar(EntornoVentana entorno,
                                const std::function<void(fAbout&)>& alCargar) {
    fAbout banner;
    banner.ModoBanner(true);
    banner.show();
    banner.repaint();
    QApplication::processEvents();

    auto ventana = std::make_unique<fMain>(std::move(entorno));
    {
        ApartarBanner apartar(banner);
        if (alCargar) {
            alCargar(banner);
        }
        ventana->Cargar();
    }
    RecordarPosicion(*ventana, ventana->Datos().Carpeta);
    ventana->show();
    banner.close();
    return ventana;
}

} // namespace vorimesk
