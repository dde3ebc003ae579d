#include "TraduccionQt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace vorimesk {

QTranslator* CargarTraduccionQt(QCoreApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    auto* traduccion = new QTranslator(&app);
    if (!traduccion->load(QLocale(), "qtbase", "_",
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete traduccion;
        return nullptr;
    }
    QCoreApplication::installTranslator(traduccion);
    return traduccion;
}

} // namespace vorimesk
