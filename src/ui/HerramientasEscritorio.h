#pragma once
// The desktop's own helper programs that the toolbar and the about box
// start: a calculator, a calendar, the regional settings and a system
// information tool. Each is the first one of a list of well-known programs
// found on the PATH; when none is, the button that starts it is disabled.

#include <QString>
#include <QStringList>

class QUrl;

namespace vorimesk {

struct HerramientaEscritorio {
    QString programa; // empty: none found
    QStringList argumentos;
    bool Existe() const { return !programa.isEmpty(); }
    // Starts it detached; false when there is none or it cannot start.
    bool Abrir() const;
};

namespace herramientas {

HerramientaEscritorio Calculadora();
HerramientaEscritorio Calendario();
HerramientaEscritorio ConfiguracionRegional();
HerramientaEscritorio InfoSistema();

// The shipped HTML help's first page, looked for beside the program (an
// installed copy, then the source tree of a build); empty when missing.
QString PaginaAyuda(const QString& carpetaPrograma);
// Where PaginaAyuda looks, in order, for a message that says so.
QStringList SitiosAyuda(const QString& carpetaPrograma);

// Opens an address in the desktop's browser. Empty when it did; otherwise
// a Spanish sentence that says what is missing: no browser found, or one
// that would not open it.
QString AbrirEnNavegador(const QUrl& direccion);

} // namespace herramientas
} // namespace vorimesk
