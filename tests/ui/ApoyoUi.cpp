#include "ApoyoUi.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <stdexcept>
#include <unistd.h>

namespace fs = std::filesystem;

namespace prueba {

CarpetaUi::CarpetaUi() {
    std::string plantilla = (fs::temp_directory_path() / "vorimesk-ui-XXXXXX").string();
    if (::mkdtemp(plantilla.data()) == nullptr) {
        throw std::runtime_error("no se pudo crear la carpeta temporal");
    }
    dir = plantilla;
}

CarpetaUi::~CarpetaUi() {
    std::error_code ec;
    fs::remove_all(dir, ec);
}

void Responder(const QString& boton, QString* texto) {
    QTimer::singleShot(0, [boton, texto] {
        auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (caja == nullptr) {
            ADD_FAILURE() << "no se abrio ninguna caja de mensaje";
            return;
        }
        if (texto != nullptr) {
            *texto = caja->text() + "\n" + caja->informativeText();
        }
        for (QAbstractButton* b : caja->buttons()) {
            if (b->text() == boton) {
                b->click();
                return;
            }
        }
        ADD_FAILURE() << "la caja no tiene el boton " << boton.toStdString();
        caja->reject();
    });
}

} // namespace prueba
