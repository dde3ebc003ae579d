#include "BarraPrincipal.h"

#include "HerramientasEscritorio.h"
#include "IconosBarra.h"

#include <QAction>

namespace vorimesk {
namespace {

void SinHerramienta(QAction* boton, const HerramientaEscritorio& herramienta, const QString& que) {
    if (!herramienta.Existe()) {
        boton->setEnabled(false);
        boton->setToolTip(boton->toolTip() + " (no se encontro " + que + " en el sistema)");
    }
}

} // namespace

BarraPrincipal::BarraPrincipal(QWidget* padre) : QToolBar("Herramientas", padre) {
    setObjectName("Toolbar1");
    setMovable(false);
    Añadir(kSalir, IconoDeBarra(IconoBarra::Salir), "Salir de la aplicacion");
    botones_[2] = addSeparator();
    Añadir(kFijar, IconoDeBarra(IconoBarra::Fijar), "Fijar siempre visible");
    botones_[4] = addSeparator();
    Añadir(kMini, IconoDeBarra(IconoBarra::MiniVentana), "Mini Ventana");
    Añadir(kConfigurar, IconoDeBarra(IconoBarra::Configurar), "Configurar");
    Añadir(kImprimir, IconoDeBarra(IconoBarra::Imprimir), "Imprimir");
    Añadir(kArchivar, IconoDeBarra(IconoBarra::Archivar), "Archivar");
    Añadir(kGrafico, IconoDeBarra(IconoBarra::Grafico), "Grafico");
    botones_[10] = addSeparator();
    Añadir(kCalculadora, IconoDeBarra(IconoBarra::Calculadora), "Calculadora");
    Añadir(kCalendario, IconoDeBarra(IconoBarra::Calendario), "Calendario");
    botones_[13] = addSeparator();
    Añadir(kInformacion, IconoDeBarra(IconoBarra::Informacion), "Informacion del programa");
    Añadir(kAyuda, IconoDeBarra(IconoBarra::Ayuda), "Ayuda");

    Boton(kSalir)->setShortcut(QKeySequence("Ctrl+Q"));
    Boton(kFijar)->setCheckable(true);
    Boton(kImprimir)->setShortcut(QKeySequence::Print);
    Boton(kAyuda)->setShortcut(QKeySequence::HelpContents);
    SinHerramienta(Boton(kConfigurar), herramientas::ConfiguracionRegional(),
                   "la configuracion regional del escritorio");
    SinHerramienta(Boton(kCalculadora), herramientas::Calculadora(), "ninguna calculadora");
    SinHerramienta(Boton(kCalendario), herramientas::Calendario(), "ningun calendario");
}

void BarraPrincipal::Añadir(int indice, const QIcon& icono, const QString& punta) {
    QAction* boton = addAction(icono, punta);
    boton->setToolTip(punta);
    connect(boton, &QAction::triggered, this, [this, indice] { emit Pulsado(indice); });
    botones_[static_cast<std::size_t>(indice)] = boton;
}

} // namespace vorimesk
