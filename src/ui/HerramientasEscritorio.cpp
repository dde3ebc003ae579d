#include "HerramientasEscritorio.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <initializer_list>
#include <utility>

namespace vorimesk {
namespace {

using Candidato = std::pair<const char*, QStringList>;

HerramientaEscritorio Primera(std::initializer_list<Candidato> candidatos) {
    for (const auto& [nombre, argumentos] : candidatos) {
        const QString ruta = QStandardPaths::findExecutable(nombre);
        if (!ruta.isEmpty()) {
            return {ruta, argumentos};
        }
    }
    return {};
}

} // namespace

bool HerramientaEscritorio::Abrir() const {
    return Existe() && QProcess::startDetached(programa, argumentos);
}

namespace herramientas {

HerramientaEscritorio Calculadora() {
    return Primera({{"gnome-calculator", {}},
                    {"kcalc", {}},
                    {"mate-calc", {}},
                    {"galculator", {}},
                    {"qalculate-gtk", {}},
                    {"xcalc", {}}});
}

HerramientaEscritorio Calendario() {
    return Primera({{"gnome-calendar", {}},
                    {"korganizer", {}},
                    {"orage", {}},
                    {"gsimplecal", {}},
                    {"evolution", {"-c", "calendar"}}});
}

HerramientaEscritorio ConfiguracionRegional() {
    return Primera({{"gnome-control-center", {"region"}},
                    {"systemsettings", {"kcm_regionandlang"}},
                    {"xfce4-settings-manager", {}},
                    {"lxqt-config-locale", {}},
                    {"mate-control-center", {}}});
}

HerramientaEscritorio InfoSistema() {
    return Primera({{"hardinfo", {}},
                    {"kinfocenter", {}},
                    {"gnome-system-monitor", {}},
                    {"xfce4-taskmanager", {}},
                    {"lxtask", {}}});
}

QStringList SitiosAyuda(const QString& carpetaPrograma) {
    const QDir aqui(carpetaPrograma);
    return {QDir::cleanPath(aqui.filePath("../share/vorimesk/ayuda/index.html")),
            QDir::cleanPath(aqui.filePath("ayuda/index.html")),
            QStringLiteral(VORIMESK_FUENTES "/data/ayuda/index.html")};
}

QString PaginaAyuda(const QString& carpetaPrograma) {
    for (const QString& candidato : SitiosAyuda(carpetaPrograma)) {
        const QFileInfo info(candidato);
        if (info.isFile()) {
            return info.canonicalFilePath();
        }
    }
    return {};
}

QString AbrirEnNavegador(const QUrl& direccion) {
    // Qt opens addresses through xdg-open, or the program named by BROWSER.
    const bool hay = !QStandardPaths::findExecutable("xdg-open").isEmpty() ||
                     !qEnvironmentVariableIsEmpty("BROWSER");
    const QString que = direccion.isLocalFile() ? direccion.toLocalFile() : direccion.toString();
    if (!hay) {
        return "No se encuentra ningun navegador (ni xdg-open ni la variable BROWSER) para "
               "abrir " +
               que + ".";
    }
    if (!QDesktopServices::openUrl(direccion)) {
        return "El escritorio no pudo abrir " + que + " en un navegador.";
    }
    return {};
}

} // namespace herramientas
} // namespace vorimesk
