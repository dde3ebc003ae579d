// Writes a PNG of every window and dialog into the folder given as argument,
// for a person to look at (make screenshots; also at 200% with
// QT_SCALE_FACTOR=2).

#include "tariff/LibroPorDefecto.h"
#include "ui/PanelTarifa.h"
#include "ui/TablaBandas.h"
#include "ui/fAbout.h"
#include "ui/fPelmorad.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTimeEdit>
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

// A data folder with the shipped tariff book, alive until the program ends.
std::filesystem::path CarpetaConLibro() {
    static QTemporaryDir dir;
    const std::filesystem::path ruta = dir.path().toStdString();
    InstalarLibroPorDefecto(ruta);
    return ruta;
}

std::unique_ptr<fPelmorad> Editor(int tarifa) {
    auto v = std::make_unique<fPelmorad>(CarpetaConLibro());
    v->Seleccionar(tarifa);
    return v;
}

// The editor while the user is getting a tariff wrong: a price with a comma,
// a Saturday with hours left out and overlapping.
std::unique_ptr<QWidget> EditorConProblemas() {
    auto v = Editor(2);
    v->panel->tablas[0]->txtPrecio[1]->setText("5,94");
    emit v->panel->tablas[0]->txtPrecio[1]->textEdited("5,94");
    v->panel->tablas[1]->tmeInicio[1]->setTime(QTime(16, 0));
    v->panel->tablas[1]->tmeFin[1]->setTime(QTime(9, 0));
    return v;
}

std::vector<Captura> Capturas() {
    return {
        {"acerca-de", [] { return std::make_unique<fAbout>(); }},
        {"banner-inicio",
         [] {
             auto a = std::make_unique<fAbout>();
             a->ModoBanner(true);
             return a;
         }},
        {"pelmorad", [] { return Editor(0); }},
        {"pelmorad-problemas", [] { return EditorConProblemas(); }},
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
