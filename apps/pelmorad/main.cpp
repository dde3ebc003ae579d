// pelmorad: the tariff editor. Opens the book of the data folder (--datos
// DIR, or the folder every program of the meter resolves to).

#include "core/CarpetaDatos.h"
#include "core/Errores.h"
#include "tariff/LibroPorDefecto.h"
#include "ui/Iconos.h"
#include "ui/TraduccionQt.h"
#include "ui/fPelmorad.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <optional>
#include <string>

namespace {

constexpr const char* kAyuda = "Uso: pelmorad [--datos DIR]\n"
                               "Editor de tarifas de Vorimesk.\n\n"
                               "  --datos DIR   carpeta de datos (Tarifas.Dat)\n"
                               "  -h, --help    muestra esta ayuda y termina\n";

struct Argumentos {
    std::optional<std::filesystem::path> datos;
    bool ayuda = false;
    std::string error;
};

// Read before Qt starts, so --help works without a display. Qt's own
// options (-platform, ...) are left to it.
Argumentos Leer(int argc, char** argv) {
    Argumentos a;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "-h" || arg == "--help") {
            a.ayuda = true;
        } else if (arg == "--datos" && i + 1 < argc) {
            a.datos = argv[++i];
        } else if (arg.starts_with("--datos=")) {
            a.datos = arg.substr(8);
        } else if (arg == "--datos") {
            a.error = "falta la carpeta de --datos";
        } else if (arg == "-platform" || arg == "-style" || arg == "-display" ||
                   arg == "-geometry" || arg == "-stylesheet") {
            ++i; // Qt's, with its value
        } else if (!arg.starts_with("-")) {
            a.error = "argumento no esperado: " + arg;
        }
    }
    return a;
}

} // namespace

int main(int argc, char** argv) {
    const Argumentos args = Leer(argc, argv);
    if (args.ayuda || !args.error.empty()) {
        if (!args.error.empty()) {
            std::fprintf(stderr, "pelmorad: %s\n", args.error.c_str());
        }
        std::fputs(kAyuda, args.ayuda ? stdout : stderr);
        return args.ayuda ? 0 : 2;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName("pelmorad");
    QApplication::setWindowIcon(vorimesk::IconoPrograma());
    vorimesk::CargarTraduccionQt(app);
    std::filesystem::path carpeta;
    try {
        vorimesk::CarpetaDatos::AlCrear(vorimesk::InstalarLibroPorDefecto);
        carpeta =
            vorimesk::CarpetaDatos::Resolver(vorimesk::CarpetaDatos::EntornoActual(args.datos));
    } catch (const vorimesk::Error& e) {
        QMessageBox::critical(nullptr, "Pelmorad",
                              QString("No se puede usar la carpeta de datos.\n%1").arg(e.what()));
        return 1;
    }
    vorimesk::fPelmorad ventana(carpeta);
    ventana.show();
    return app.exec();
}
