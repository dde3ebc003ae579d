#include "HerramientasEscritorio.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
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

QString PaginaAyuda(const QString& carpetaPrograma) {
    const QDir aqui(carpetaPrograma);
    for (const QString& candidato :
         {aqui.filePath("../share/vorimesk/ayuda/index.html"), aqui.filePath("ayuda/index.html"),
          QStringLiteral(VORIMESK_FUENTES "/data/ayuda/index.html")}) {
        const QFileInfo info(candidato);
        if (info.isFile()) {
            return info.canonicalFilePath();
        }
    }
    return {};
}

} // namespace herramientas
} // namespace vorimesk
