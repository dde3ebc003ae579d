#include "FiltroProgramas.h"

#include <QFileSystemModel>
#include <QRegularExpression>

namespace vorimesk {

std::vector<EleccionFiltro> LeerFiltroWindows(const QString& filtro) {
    const QStringList partes = filtro.split('|');
    std::vector<EleccionFiltro> elecciones;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2) {
        EleccionFiltro e;
        e.descripcion = partes[i];
        for (const QString& patron : partes[i + 1].split(';', Qt::SkipEmptyParts)) {
            e.patrones.append(patron.trimmed());
        }
        elecciones.push_back(e);
    }
    return elecciones;
}

std::vector<EleccionFiltro> FiltroDialogoProgramas() {
    std::vector<EleccionFiltro> elecciones{{kFiltroProgramasLinux, {"*.desktop"}, true}};
    for (EleccionFiltro& e : LeerFiltroWindows(kFiltroProgramas)) {
        elecciones.push_back(std::move(e));
    }
    return elecciones;
}

QStringList FiltrosDialogo(const std::vector<EleccionFiltro>& elecciones) {
    QStringList filtros;
    for (const EleccionFiltro& e : elecciones) {
        filtros.append(e.descripcion + " (*)");
    }
    return filtros;
}

bool PasaFiltro(const std::vector<EleccionFiltro>& elecciones, int eleccion,
                const QFileInfo& archivo) {
    if (eleccion < 0 || eleccion >= static_cast<int>(elecciones.size())) {
        return true;
    }
    for (const QString& patron : elecciones[eleccion].patrones) {
        if (patron == "*.*" || patron == "*") {
            return true;
        }
        const auto forma = QRegularExpression::fromWildcard(patron, Qt::CaseInsensitive);
        if (forma.match(archivo.fileName()).hasMatch()) {
            return true;
        }
    }
    return elecciones[eleccion].ejecutables && archivo.isFile() && archivo.isExecutable();
}

FiltroProgramasProxy::FiltroProgramasProxy(std::vector<EleccionFiltro> elecciones, QObject* padre)
    : QSortFilterProxyModel(padre), elecciones_(std::move(elecciones)) {}

void FiltroProgramasProxy::Eleccion(int eleccion) {
    eleccion_ = eleccion;
    invalidateFilter();
}

void FiltroProgramasProxy::EleccionPorTexto(const QString& texto) {
    const QString buscado = texto.simplified();
    for (std::size_t i = 0; i < elecciones_.size(); ++i) {
        const QString d = elecciones_[i].descripcion.simplified();
        if (buscado == d || buscado.startsWith(d + " (")) {
            Eleccion(static_cast<int>(i));
            return;
        }
    }
}

bool FiltroProgramasProxy::filterAcceptsRow(int fila, const QModelIndex& padre) const {
    const auto* sistema = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (sistema == nullptr) {
        return true;
    }
    const QFileInfo archivo = sistema->fileInfo(sistema->index(fila, 0, padre));
    return archivo.isDir() || PasaFiltro(elecciones_, eleccion_, archivo);
}

} // namespace vorimesk
