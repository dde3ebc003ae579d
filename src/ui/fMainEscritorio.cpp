// The main window's life on the desktop: the toolbar, the tray menu, the
// mini window, always-on-top, dragging by the panels and the tools the
// toolbar opens.

#include "ArrastreVentana.h"
#include "BarraPrincipal.h"
#include "HerramientasEscritorio.h"
#include "MenuBandeja.h"
#include "PanelConexion.h"
#include "PilaPrograma.h"
#include "Proteger.h"
#include "TabRegistro.h"
#include "fAbout.h"
#include "fArchivo.h"
#include "fFiltro.h"
#include "fGrafico.h"
#include "fImprimir.h"
#include "fMain.h"
#include "fMini.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QTabWidget>
#include <QUrl>

namespace vorimesk {

void fMain::ConstruirBarra() {
    Toolbar1 = new BarraPrincipal(this);
    addToolBar(Toolbar1);
    connect(Toolbar1, &BarraPrincipal::Pulsado, this,
            [this](int indice) { Proteger(this, [&] { AlBoton(indice); }); });
}

void fMain::ConstruirMenuBandeja() {
    mnuOne = new MenuBandeja(this);
    connect(mnuOne->mnu(MenuBandeja::kMini), &QAction::triggered, this, [this] { AlternarMini(); });
    connect(mnuOne->mnu(MenuBandeja::kSiempreVisible), &QAction::triggered, this,
            [this] { CambiarSiempreVisible(!datos_.Ajustes.SiempreVisible); });
    connect(mnuOne, &MenuBandeja::ConectarCon, this, [this](const QString& entrada) {
        Proteger(this, [&] {
            panel->Elegir(entrada);
            linea_.Marcar(entrada.toStdString());
        });
    });
    connect(mnuOne->mnu(MenuBandeja::kDesconectar), &QAction::triggered, this,
            [this] { Proteger(this, [&] { Atender(monitor_.Soltar()); }); });
    connect(mnuOne->mnu(MenuBandeja::kConfigurar), &QAction::triggered, this, [this] {
        RestaurarVentanas();
        SSTab1->setCurrentIndex(kOpciones);
    });
    connect(mnuOne->mnu(MenuBandeja::kAcercaDe), &QAction::triggered, this,
            [this] { MostrarAcercaDe(); });
    connect(mnuOne->mnu(MenuBandeja::kTerminar), &QAction::triggered, this, [this] { Terminar(); });
    // Nothing to hang up until a call comes up.
    mnuOne->mnu(MenuBandeja::kDesconectar)->setEnabled(false);
}

void fMain::HacerArrastrable() {
    auto* arrastre = new ArrastreVentana(this);
    for (QWidget* asa : panel->Asas()) {
        arrastre->Agarrar(asa);
    }
}

void fMain::AlBoton(int indice) {
    switch (indice) {
    case BarraPrincipal::kSalir:
        Terminar();
        break;
    case BarraPrincipal::kFijar:
        CambiarSiempreVisible(Toolbar1->Boton(BarraPrincipal::kFijar)->isChecked());
        break;
    case BarraPrincipal::kMini:
        IrAMini();
        break;
    case BarraPrincipal::kConfigurar:
        herramientas::ConfiguracionRegional().Abrir();
        break;
    case BarraPrincipal::kImprimir:
        AbrirImprimir();
        break;
    case BarraPrincipal::kArchivar:
        AbrirArchivo();
        break;
    case BarraPrincipal::kGrafico:
        AbrirGrafico();
        break;
    case BarraPrincipal::kCalculadora:
        herramientas::Calculadora().Abrir();
        break;
    case BarraPrincipal::kCalendario:
        herramientas::Calendario().Abrir();
        break;
    case BarraPrincipal::kInformacion:
        MostrarAcercaDe();
        break;
    case BarraPrincipal::kAyuda:
        AbrirAyuda();
        break;
    default:
        break;
    }
    mnuOne->mnu(MenuBandeja::kSiempreVisible)->setChecked(datos_.Ajustes.SiempreVisible);
}

void fMain::CambiarSiempreVisible(bool arriba) {
    datos_.Ajustes.SiempreVisible = arriba;
    AplicarSiempreVisible();
}

void fMain::AplicarSiempreVisible() {
    const bool arriba = datos_.Ajustes.SiempreVisible;
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) != arriba) {
        // Changing a window's flags hides it: shown again, as it was.
        const bool visible = isVisible();
        setWindowFlag(Qt::WindowStaysOnTopHint, arriba);
        if (visible) {
            show();
        }
    }
    Toolbar1->Boton(BarraPrincipal::kFijar)->setChecked(arriba);
    mnuOne->mnu(MenuBandeja::kSiempreVisible)->setChecked(arriba);
}

void fMain::AlternarMini() {
    if (mnuOne->mnu(MenuBandeja::kMini)->text() == MenuBandeja::kIrAMini) {
        IrAMini();
    } else {
        IrANormal();
    }
}

fMini* fMain::Mini() const {
    return mini_;
}

void fMain::MostrarMini() {
    if (mini_ == nullptr) {
        mini_ = new fMini;
        mini_->Mostrar(monitor_.Pantalla());
        mini_->Colocar();
        connect(mini_, &fMini::VentanaNormal, this, [this] { IrANormal(); });
        // Without a tray nothing else brings the normal window back.
        connect(mini_, &fMini::Cerrada, this, [this] {
            if (bandeja_ == nullptr) {
                RestaurarVentanas();
            }
        });
    }
    mini_->show();
    mini_->raise();
    mnuOne->mnu(MenuBandeja::kMini)->setText(MenuBandeja::kIrANormal);
}

void fMain::IrAMini() {
    MostrarMini();
    hide();
}

void fMain::IrANormal() {
    if (mini_ != nullptr) {
        mini_->close();
    }
    RestaurarVentanas();
    mnuOne->mnu(MenuBandeja::kMini)->setText(MenuBandeja::kIrAMini);
}

void fMain::RestaurarVentanas() {
    for (const QPointer<QWidget>& w : ocultas_) {
        if (w != nullptr && w != this) {
            w->showNormal();
        }
    }
    ocultas_.clear();
    // Without a tray the close box minimised them instead.
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w != this && w->isMinimized()) {
            w->showNormal();
        }
    }
    showNormal();
    raise();
    activateWindow();
}

void fMain::MostrarAcercaDe() {
    fAbout acerca(this);
    acerca.setWindowFlag(Qt::WindowStaysOnTopHint, datos_.Ajustes.SiempreVisible);
    acerca.exec();
}

void fMain::AbrirAyuda() {
    const QString pagina =
        herramientas::PaginaAyuda(QString::fromStdString(entorno_.carpetaPrograma.string()));
    if (pagina.isEmpty() || !QDesktopServices::openUrl(QUrl::fromLocalFile(pagina))) {
        QMessageBox::information(this, "Ayuda",
                                 "No se encuentra la ayuda del programa o no hay un navegador "
                                 "con el que abrirla.");
    }
}

void fMain::AbrirImprimir() {
    fImprimir imprimir(*this, datos_.Libro, this);
    imprimir.exec();
}

void fMain::AbrirArchivo() {
    fArchivo archivo(*this, datos_.Registro, datos_.Bono, datos_.RelojPrograma, datos_.Carpeta,
                     this);
    archivo.exec();
}

void fMain::AbrirGrafico() {
    auto* grafico = new fGrafico(datos_.Registro, datos_.RelojPrograma, this);
    grafico->setAttribute(Qt::WA_DeleteOnClose);
    grafico->show();
}

void fMain::AbrirFiltro() {
    // The filter hands these on to the period picker.
    PilaPrograma().Meter(std::int64_t{datos_.Bono.DiaFactura()});
    PilaPrograma().Meter(std::int64_t{datos_.Bono.perFactura()});
    PilaPrograma().Meter(datos_.Registro.Count() > 0 ? datos_.Registro.Dia(0)
                                                     : datos_.RelojPrograma.Hoy());
    auto* filtro = new fFiltro(*this, datos_.RelojPrograma, this);
    filtro->setAttribute(Qt::WA_DeleteOnClose);
    filtro->show();
}

} // namespace vorimesk
