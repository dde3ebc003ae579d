// Build-time tool: writes the program icon as PNG files of the hicolor sizes,
// drawn by the same code as the icon the windows show.

#include "ui/Iconos.h"

#include <QDir>
#include <QGuiApplication>
#include <cstdio>

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QString carpeta = argc > 1 ? QString::fromLocal8Bit(argv[1]) : "iconos";
    for (int lado : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const QString dir = QString("%1/%2x%2/apps").arg(carpeta).arg(lado);
        QDir().mkpath(dir);
        if (!vorimesk::PintarIconoPrograma(lado).save(dir + "/vorimesk.png")) {
            std::fprintf(stderr, "No se pudo escribir el icono de %d pixeles\n", lado);
            return 1;
        }
    }
    return 0;
}
