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
    const auto al = [this](QAction* boton, auto hacer) {
        connect(boton, &QAction::triggered, this, Protegido(this, std::move(hacer)));
    };
    al(Toolbar1->accSalir(), [this] { Terminar(); });
    al(Toolbar1->accFijar(), [this] { CambiarSiempreVisible(Toolbar1->accFijar()->isChecked()); });
    al(Toolbar1->accMini(), [this] { IrAMini(); });
    al(Toolbar1->accConfigurar(), [] { herramientas::ConfiguracionRegional().Abrir(); });
    al(Toolbar1->accImprimir(), [this] { AbrirImprimir(); });
    al(Toolbar1->accArchivar(), [this] { AbrirArchivo(); });
    al(Toolbar1->accGrafico(), [this] { AbrirGrafico(); });
    al(Toolbar1->accCalculadora(), [] { herramientas::Calculadora().Abrir(); });
    al(Toolbar1->accCalendario(), [] { herramientas::Calendario().Abrir(); });
    al(Toolbar1->accInformacion(), [this] { MostrarAcercaDe(); });
    al(Toolbar1->accAyuda(), [this] { AbrirAyuda(); });
}

void fMain::ConstruirMenuBandeja() {
    mnuOne = new MenuBandeja(this);
    connect(mnuOne->mnuMini(), &QAction::triggered, this, [this] { AlternarMini(); });
    connect(mnuOne->mnuSiempreVisible(), &QAction::triggered, this,
            [this] { CambiarSiempreVisible(!datos_.Ajustes.SiempreVisible); });
    connect(mnuOne, &MenuBandeja::ConectarCon, this, [this](const QString& entrada) {
        Proteger(this, [&] {
            panel->Elegir(entrada);
            Marcar(entrada.toStdString(), false);
        });
    });
    connect(mnuOne->mnuDesconectar(), &QAction::triggered, this,
            [this] { Proteger(this, [&] { Atender(contador_.Soltar()); }); });
    connect(mnuOne->mnuConfigurar(), &QAction::triggered, this, [this] {
        RestaurarVentanas();
        SSTab1->setCurrentIndex(kOpciones);
    });
    connect(mnuOne->mnuAcercaDe(), &QAction::triggered, this, [this] { MostrarAcercaDe(); });
    connect(mnuOne->mnuTerminar(), &QAction::triggered, this, [this] { Terminar(); });
    // Nothing to hang up until a call comes up.
    mnuOne->mnuDesconectar()->setEnabled(false);
}

void fMain::HacerArrastrable() {
    auto* arrastre = new ArrastreVentana(this);
    for (QWidget* asa : panel->Asas()) {
        arrastre->Agarrar(asa);
    }
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
    Toolbar1->accFijar()->setChecked(arriba);
    mnuOne->mnuSiempreVisible()->setChecked(arriba);
}

void fMain::AlternarMini() {
    if (mnuOne->mnuMini()->text() == MenuBandeja::kIrAMini) {
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
    mnuOne->mnuMini()->setText(MenuBandeja::kIrANormal);
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
    mnuOne->mnuMini()->setText(MenuBandeja::kIrAMini);
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
    const QString programa = QString::fromStdString(entorno_.carpetaPrograma.string());
    const QString pagina = herramientas::PaginaAyuda(programa);
    const QString falta = pagina.isEmpty()
                              ? "No se encuentra la ayuda del programa; se ha buscado en:\n" +
                                    herramientas::SitiosAyuda(programa).join('\n')
                              : herramientas::AbrirEnNavegador(QUrl::fromLocalFile(pagina));
    if (!falta.isEmpty()) {
        QMessageBox::information(this, "Ayuda", falta);
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
