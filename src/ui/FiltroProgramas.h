#pragma once
// The file filter of the programs dialog. Its first choice shows what a
// Linux desktop starts: the files the system can run, which have no
// extension, and desktop entries (".desktop"). Behind it comes the filter
// the dialog has always offered, kept in the Windows form
// "description|patterns|description|patterns..." exactly; the Qt dialog
// shows the same descriptions and matches the patterns without regard to
// case.

#include <QFileInfo>
#include <QSortFilterProxyModel>
#include <QString>
#include <QStringList>
#include <vector>

namespace vorimesk {

inline const QString kFiltroProgramas =
    "Archivos de programa (*.Exe; *.Com; *.Bat; *.Lnk)|*.exe;*.com;*.bat;*.lnk|Archivos "
    "Ejecutables (*.Exe) | *.exe|Todos los programas (*.*)|*.*";

inline const QString kFiltroProgramasLinux =
    "Programas de Linux (ejecutables y accesos directos *.desktop)";

struct EleccionFiltro {
    QString descripcion;      // as written, blanks included
    QStringList patrones;     // trimmed; "*.*" stands for every file
    bool ejecutables = false; // also every file the system can run
};

std::vector<EleccionFiltro> LeerFiltroWindows(const QString& filtro);
// The programs dialog's choices: the Linux one, then kFiltroProgramas.
std::vector<EleccionFiltro> FiltroDialogoProgramas();

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
