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
    salir_ = Añadir("accSalir", IconoDeBarra(IconoBarra::Salir), "Salir de la aplicacion");
    addSeparator();
    fijar_ = Añadir("accFijar", IconoDeBarra(IconoBarra::Fijar), "Fijar siempre visible");
    addSeparator();
    mini_ = Añadir("accMini", IconoDeBarra(IconoBarra::MiniVentana), "Mini Ventana");
    configurar_ = Añadir("accConfigurar", IconoDeBarra(IconoBarra::Configurar), "Configurar");
    imprimir_ = Añadir("accImprimir", IconoDeBarra(IconoBarra::Imprimir), "Imprimir");
    archivar_ = Añadir("accArchivar", IconoDeBarra(IconoBarra::Archivar), "Archivar");
    grafico_ = Añadir("accGrafico", IconoDeBarra(IconoBarra::Grafico), "Grafico");
    addSeparator();
    calculadora_ = Añadir("accCalculadora", IconoDeBarra(IconoBarra::Calculadora), "Calculadora");
    calendario_ = Añadir("accCalendario", IconoDeBarra(IconoBarra::Calendario), "Calendario");
    addSeparator();
    informacion_ =
        Añadir("accInformacion", IconoDeBarra(IconoBarra::Informacion), "Informacion del programa");
    ayuda_ = Añadir("accAyuda", IconoDeBarra(IconoBarra::Ayuda), "Ayuda");

    salir_->setShortcut(QKeySequence("Ctrl+Q"));
    fijar_->setCheckable(true);
    imprimir_->setShortcut(QKeySequence::Print);
    ayuda_->setShortcut(QKeySequence::HelpContents);
    SinHerramienta(configurar_, herramientas::ConfiguracionRegional(),
                   "la configuracion regional del escritorio");
    SinHerramienta(calculadora_, herramientas::Calculadora(), "ninguna calculadora");
    SinHerramienta(calendario_, herramientas::Calendario(), "ningun calendario");
}

QAction* BarraPrincipal::Añadir(const char* nombre, const QIcon& icono, const QString& punta) {
    QAction* boton = addAction(icono, punta);
    boton->setObjectName(nombre);
    boton->setToolTip(punta);
    return boton;
}

} // namespace vorimesk
