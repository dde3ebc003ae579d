#include "EtiquetasMedidor.h"

#include "PaletaColores.h"
#include "core/FormatoNumero.h"
#include "core/Numero.h"
#include "monitor/PantallaMonitor.h"

#include <QLabel>

namespace vorimesk {
namespace {

void Resaltar(QLabel* l, int puntos) {
    QFont f = l->font();
    f.setPointSize(f.pointSize() + puntos);
    f.setBold(true);
    l->setFont(f);
}

// The meter's cost ("17.93") as money is shown everywhere else; a text that
// is no amount (an unknown tariff) as it comes.
QString Gasto(const std::string& texto) {
    const auto numero = NumeroEscrito(texto.empty() ? "0" : texto);
    return QString::fromStdString(numero ? TextoDinero(Val(*numero)) : texto);
}

} // namespace

QLabel* EtiquetaConNombre(const QString& texto, const char* nombre, QWidget* padre) {
    auto* l = new QLabel(texto, padre);
    l->setObjectName(nombre);
    return l;
}

EtiquetasMedidor EtiquetasMedidor::Crear(QWidget* padre, int puntosTiempo, int puntosGasto) {
    EtiquetasMedidor e;
    e.lTiempo = EtiquetaConNombre("00:00:00", "lTiempo", padre);
    e.lGasto = EtiquetaConNombre(Gasto({}), "lGasto", padre);
    e.lTarifa = EtiquetaConNombre({}, "lTarifa", padre);
    e.lBono = EtiquetaConNombre({}, "lBono", padre);
    Resaltar(e.lTiempo, puntosTiempo);
    Resaltar(e.lGasto, puntosGasto);
    e.lTiempo->setToolTip("Duracion de la llamada");
    e.lGasto->setToolTip("Coste de la llamada");
    e.lTarifa->setToolTip("Franja de la tarifa en este momento");
    e.lBono->setToolTip("Se esta gastando tiempo de un bono");
    return e;
}

bool EtiquetasMedidor::Marcando(const PantallaMonitor& p) {
    return p.EstadoPantalla == EstadoDePantalla::Conectando ||
           (p.BotonConexion && !p.EtiquetasLlamada);
}

void EtiquetasMedidor::Mostrar(const PantallaMonitor& visto) const {
    // The figures left from the last call go as soon as a new one is dialled.
    PantallaMonitor p = visto;
    if (Marcando(visto)) {
        p.Tiempo = "00:00:00";
        p.Gasto.clear();
        p.Tarifa.clear();
        p.Bono.clear();
    }
    lTiempo->setText(QString::fromStdString(p.Tiempo));
    QPalette paleta = lTiempo->palette();
    paleta.setColor(QPalette::WindowText, ColorPaleta(p.ColorTiempo));
    lTiempo->setPalette(paleta);
    lGasto->setText(Gasto(p.Gasto));
    lTarifa->setText(QString::fromStdString(p.Tarifa));
    lBono->setText(QString::fromStdString(p.Bono));
}

} // namespace vorimesk
