// Writes a PNG of every window and dialog into the folder given as argument,
// for a person to look at (make screenshots; also at 200% with
// QT_SCALE_FACTOR=2).

#include "ui/fAbout.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace vorimesk;

namespace {

struct Captura {
    const char* nombre;
    std::function<std::unique_ptr<QWidget>()> crear;
};

std::vector<Captura> Capturas() {
    return {
        {"acerca-de", [] { return std::make_unique<fAbout>(); }},
        {"banner-inicio",
         [] {
             auto a = std::make_unique<fAbout>();
             a->ModoBanner(true);
             return a;
         }},
    };
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication app(argc, argv);
    const QString carpeta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : "screenshots";
    QDir().mkpath(carpeta);
    for (const Captura& c : Capturas()) {
        auto ventana = c.crear();
        ventana->adjustSize();
        ventana->show();
        QApplication::processEvents();
        const QString ruta = carpeta + "/" + c.nombre + ".png";
        if (!ventana->grab().save(ruta)) {
            std::fprintf(stderr, "No se pudo guardar %s\n", qPrintable(ruta));
            return 1;
        }
        std::printf("%s\n", qPrintable(ruta));
    }
    return 0;
}
