#include "Lanzador.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace vorimesk {
namespace {

QString NombreEditor() {
#ifdef Q_OS_WIN
    return "pelmorad.exe";
#else
    return "pelmorad";
#endif
}

} // namespace

QString Lanzador::RutaEditor(const QString& carpetaPrograma) {
    const QDir aqui(carpetaPrograma.isEmpty() ? QCoreApplication::applicationDirPath()
                                              : carpetaPrograma);
    for (const QString& candidato :
         {aqui.filePath(NombreEditor()), aqui.filePath("../pelmorad/" + NombreEditor())}) {
        const QFileInfo info(candidato);
        if (info.isFile() && info.isExecutable()) {
            return info.canonicalFilePath();
        }
    }
    return {};
}

bool Lanzador::AbrirEditor(const QString& carpetaDatos, QString* error,
                           const QString& carpetaPrograma) {
    const QString ruta = RutaEditor(carpetaPrograma);
    QString motivo;
    if (ruta.isEmpty()) {
        motivo = "No se encuentra el editor de tarifas (" + NombreEditor() + ") junto al programa.";
    } else if (!QProcess::startDetached(ruta, {"--datos", carpetaDatos})) {
        motivo = "No se pudo arrancar el editor de tarifas " + ruta + ".";
    }
    if (error != nullptr) {
        *error = motivo;
    }
    return motivo.isEmpty();
}

} // namespace vorimesk
