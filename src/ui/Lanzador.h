#pragma once
// Starts the tariff editor for the main window's "&Editor": the "pelmorad"
// program that sits beside the running one (in a build tree, in its own
// folder next to ours), on the same data folder.

#include <QString>

namespace vorimesk {

class Lanzador {
public:
    // Where the editor is looked for: `carpetaPrograma`/pelmorad, then
    // `carpetaPrograma`/../pelmorad/pelmorad. Empty when neither exists.
    // Without a folder, the running program's own.
    static QString RutaEditor(const QString& carpetaPrograma = {});

    // Starts the editor with --datos `carpetaDatos`, detached so it outlives
    // the caller. False, with a Spanish explanation in `error`, when it
    // cannot.
    static bool AbrirEditor(const QString& carpetaDatos, QString* error = nullptr,
                            const QString& carpetaPrograma = {});
};

} // namespace vorimesk
