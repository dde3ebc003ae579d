#include "AplicacionVorimesk.h"

#include "core/Errores.h"
#include "ui/Mensajes.h"
#include "ui/TraduccionQt.h"

namespace vorimesk {

AplicacionVorimesk::AplicacionVorimesk(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName("Vorimesk");
    setApplicationVersion(VORIMESK_VERSION);
    // The main window hides to the tray: only "&Terminar" ends the program.
    setQuitOnLastWindowClosed(false);
    CargarTraduccionQt(*this);
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
