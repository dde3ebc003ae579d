#include "ArranquePrograma.h"

#include "core/Errores.h"
#include "platform/OrdenPrograma.h"

#include <QProcess>
#include <QStandardPaths>
#include <cstdio>

namespace vorimesk {
namespace {

QString NoArranca(const QString& ruta, const QString& motivo) {
    return "No se pudo arrancar el programa \"" + ruta + "\" al conectar" +
           (motivo.isEmpty() ? QString(".") : ": " + motivo);
}

QStringList Argumentos(const OrdenPrograma& orden) {
    QStringList args;
    for (std::size_t i = 1; i < orden.argv.size(); ++i) {
        args << QString::fromStdString(orden.argv[i]);
    }
    return args;
}

} // namespace

void ArrancarPrograma(QObject* dueño, const QString& ruta,
                      const std::function<void(const QString&)>& alFallar) {
    OrdenPrograma orden;
    try {
        orden = OrdenParaPrograma(ruta.toStdString(), [](const std::string& nombre) {
            return !QStandardPaths::findExecutable(QString::fromStdString(nombre)).isEmpty();
        });
    } catch (const Error& e) {
        alFallar(NoArranca(ruta, QString::fromStdString(e.what())));
        return;
    }
    const QString programa = QString::fromStdString(orden.argv.front());
    if (!orden.esperar) {
        if (!QProcess::startDetached(programa, Argumentos(orden))) {
            alFallar(NoArranca(ruta, "no existe o no se puede ejecutar"));
        }
        return;
    }
    // The launcher ends once the program is up; its verdict comes later.
    auto* lanzador = new QProcess(dueño);
    lanzador->setProcessChannelMode(QProcess::MergedChannels);
    QObject::connect(lanzador, &QProcess::errorOccurred, lanzador,
                     [lanzador, ruta, programa, alFallar](QProcess::ProcessError error) {
                         if (error == QProcess::FailedToStart) {
                             alFallar(NoArranca(ruta, "no se encuentra " + programa));
                             lanzador->deleteLater();
                         }
                     });
    QObject::connect(lanzador, &QProcess::finished, lanzador,
                     [lanzador, ruta, programa, alFallar](int codigo, QProcess::ExitStatus estado) {
                         if (estado != QProcess::NormalExit || codigo != 0) {
                             // The launcher's own words are not Spanish: they go to the
                             // terminal only.
                             const QByteArray dicho = lanzador->readAll().trimmed();
                             if (!dicho.isEmpty()) {
                                 std::fprintf(stderr, "%s\n", dicho.constData());
                             }
                             alFallar(NoArranca(ruta, programa + " no ha podido abrirlo"));
                         }
                         lanzador->deleteLater();
                     });
    lanzador->start(programa, Argumentos(orden));
}

} // namespace vorimesk
