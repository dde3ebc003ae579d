#pragma once
// The file filter of the programs dialog. It is kept in the Windows form
// "description|patterns|description|patterns..." exactly as the dialog has
// always offered it; the Qt dialog shows the same descriptions and matches
// the patterns without regard to case, and the first choice also shows the
// files a Linux system can run, which have no extension.

#include <QFileInfo>
#include <QSortFilterProxyModel>
#include <QString>
#include <QStringList>
#include <vector>

namespace vorimesk {

inline const QString kFiltroProgramas =
    "Archivos de programa (*.Exe; *.Com; *.Bat; *.Lnk)|*.exe;*.com;*.bat;*.lnk|Archivos "
    "Ejecutables (*.Exe) | *.exe|Todos los programas (*.*)|*.*";

struct EleccionFiltro {
    QString descripcion;  // as written, blanks included
    QStringList patrones; // trimmed; "*.*" stands for every file
};

std::vector<EleccionFiltro> LeerFiltroWindows(const QString& filtro);

// The name filters for QFileDialog (to use with HideNameFilterDetails): each
// description followed by a pattern that lets every file through, since
// FiltroProgramasProxy does the matching.
QStringList FiltrosDialogo(const std::vector<EleccionFiltro>& elecciones);

// Whether a file passes choice `eleccion` (0-based) of the filter.
bool PasaFiltro(const std::vector<EleccionFiltro>& elecciones, int eleccion,
                const QFileInfo& archivo);

class FiltroProgramasProxy : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit FiltroProgramasProxy(std::vector<EleccionFiltro> elecciones, QObject* padre = nullptr);
    void Eleccion(int eleccion);
    // Finds the choice by the text the dialog shows.
    void EleccionPorTexto(const QString& texto);

protected:
    bool filterAcceptsRow(int fila, const QModelIndex& padre) const override;

private:
    std::vector<EleccionFiltro> elecciones_;
    int eleccion_ = 0;
};

} // namespace vorimesk
