#include "AplicacionVorimesk.h"

#include "core/Errores.h"
#include "ui/Mensajes.h"

#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace vorimesk {

AplicacionVorimesk::AplicacionVorimesk(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("Vorimesk");
    setApplicationVersion(VORIMESK_VERSION);
    // The main window hides to the tray: only "&Terminar" ends the program.
    setQuitOnLastWindowClosed(false);
    // Qt's own texts (file dialog, calendar) in Spanish when the desktop has
    // them installed.
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    auto* traduccion = new QTranslator(this);
    if (traduccion->load(QLocale(), "qtbase", "_",
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        installTranslator(traduccion);
    }
}

bool AplicacionVorimesk::notify(QObject* receptor, QEvent* evento) {
    try {
        return QApplication::notify(receptor, evento);
    } catch (const Error& error) {
        avisos::MostrarError(activeWindow(), error);
    }
    return false;
}

} // namespace vorimesk
