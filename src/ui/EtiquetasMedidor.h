#pragma once
// The live meter's four labels (time, cost, band, bundle) as both the main
// window and the mini window show them: created the same way and painted
// from the same display values, so the two never disagree.

#include <QString>

class QLabel;
class QWidget;

namespace vorimesk {

struct PantallaMonitor;

// A label with its control name, for tests and style sheets to find.
QLabel* EtiquetaConNombre(const QString& texto, const char* nombre, QWidget* padre);

struct EtiquetasMedidor {
    QLabel* lTiempo = nullptr;
    QLabel* lGasto = nullptr;
    QLabel* lTarifa = nullptr;
    QLabel* lBono = nullptr;

    // Time and cost in bold, `puntosTiempo` and `puntosGasto` larger than
    // the window's font.
    static EtiquetasMedidor Crear(QWidget* padre, int puntosTiempo, int puntosGasto);
    void Mostrar(const PantallaMonitor& p) const;
    // A call is being dialled and none is metered yet.
    static bool Marcando(const PantallaMonitor& p);
};

} // namespace vorimesk
