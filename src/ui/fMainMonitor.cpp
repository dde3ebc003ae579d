// The main window's side of the connection monitor: the timers' ticks go in,
// the events that come out are carried out and the display is painted.

#include "ArranquePrograma.h"
#include "AvisoCuentaAtras.h"
#include "MenuBandeja.h"
#include "PanelConexion.h"
#include "Proteger.h"
#include "SonidoAviso.h"
#include "TabBono.h"
#include "TabResumen.h"
#include "core/Errores.h"
#include "core/FormatoNumero.h"
#include "fMain.h"
#include "fMini.h"
#include "monitor/PerfilEntrada.h"

#include <QAction>
#include <QStatusBar>
#include <QSystemTrayIcon>
#include <iostream>

namespace vorimesk {

void fMain::TickHora() {
    Atender(contador_.PasoHora());
}

void fMain::TickEstado() {
    Atender(contador_.PasoEstado());
}

void fMain::Atender(const MonitorConexion::Sucesos& sucesos) {
    for (const SucesoMonitor& s : sucesos) {
        switch (s.tipo) {
        case SucesoMonitor::Tipo::Sonar:
            sonido_->Reproducir(QString::fromStdString(s.texto));
            emit AvisoSonoro(static_cast<int>(s.motivo));
            break;
        case SucesoMonitor::Tipo::MostrarMini:
            MostrarMini();
            break;
        case SucesoMonitor::Tipo::LlamadasAnotadas:
            if (datos_.Registro.Count() > 0) {
                centimosAnotados_ =
                    CentimosMostrados(datos_.Registro, datos_.Registro.Count() - 1, datos_.Coste());
            }
            break;
        case SucesoMonitor::Tipo::LlamadaIniciada:
            centimosAnotados_.reset();
            // A demonstration shows every window a call can have.
            if (entorno_.demostracion) {
                MostrarMini();
            }
            break;
        case SucesoMonitor::Tipo::LanzarPrograma:
            ArrancarPrograma(this, QString::fromStdString(s.texto), [this](const QString& m) {
                statusBar()->showMessage(m);
                std::cerr << "Vorimesk: " << m.toStdString() << "\n";
            });
            break;
        case SucesoMonitor::Tipo::RellenarRegistro:
            MostrarPeriodo();
            break;
        case SucesoMonitor::Tipo::BonoRenovado:
            tabBono->Mostrar();
            MostrarBono();
            break;
        case SucesoMonitor::Tipo::LogSinCerrar:
        case SucesoMonitor::Tipo::SinRegistroSistema:
        case SucesoMonitor::Tipo::LlamadasCorregidas:
        case SucesoMonitor::Tipo::MarcadoFallido:
        case SucesoMonitor::Tipo::LimiteCuentaCancelada:
            statusBar()->showMessage(QString::fromStdString(s.texto));
            break;
        case SucesoMonitor::Tipo::LimiteAviso:
        case SucesoMonitor::Tipo::LimiteNoMarcar:
        case SucesoMonitor::Tipo::LimiteColgado:
            AvisarLimite(s);
            break;
        case SucesoMonitor::Tipo::LimiteCuentaAtras:
            AvisarLimite(s);
            MostrarCuentaAtras(s);
            break;
        case SucesoMonitor::Tipo::MarcadoRechazado:
            statusBar()->showMessage(QString::fromStdString(s.texto));
            rechazado_ = s.texto;
            break;
        case SucesoMonitor::Tipo::ErrorRegistro:
            // Not modal: the timers go on while the user reads it.
            statusBar()->showMessage(QString::fromStdString(s.texto));
            std::cerr << "Vorimesk: " << s.texto << "\n";
            break;
        default:
            // The call's own display (mini window included) is painted from
            // the monitor's values below.
            break;
        }
    }
    MostrarPantalla();
}

void fMain::AvisarLimite(const SucesoMonitor& s) {
    const QString texto = QString::fromStdString(s.texto);
    statusBar()->showMessage(texto);
    sonido_->Reproducir(QString::fromStdString(datos_.Ajustes.SonidoAviso));
    if (bandeja_ != nullptr) {
        bandeja_->showMessage("Vorimesk: limite", texto, QSystemTrayIcon::Warning);
    }
    emit AvisoLimite(texto);
    if (s.tipo == SucesoMonitor::Tipo::LimiteColgado && cuentaAtras_ != nullptr) {
        cuentaAtras_->close();
    }
}

void fMain::MostrarCuentaAtras(const SucesoMonitor& s) {
    if (cuentaAtras_ != nullptr) {
        cuentaAtras_->close();
    }
    cuentaAtras_ = new AvisoCuentaAtras(QString::fromStdString(s.texto), s.llamadas, this);
    connect(cuentaAtras_, &AvisoCuentaAtras::Seguir, this,
            [this] { Proteger(this, [&] { Atender(contador_.CancelarCuentaLimite()); }); });
    cuentaAtras_->show();
}

void fMain::Marcar(const std::string& entrada, bool pulsar) {
    rechazado_.reset();
    Atender(pulsar ? contador_.Pulsar(entrada) : contador_.Marcar(entrada));
    if (!rechazado_ || !ConfirmarForzar(QString::fromStdString(*rechazado_))) {
        return;
    }
    // The user allows this one call.
    Atender(pulsar ? contador_.Pulsar(entrada, true) : contador_.Marcar(entrada, true));
}

void fMain::MostrarPantalla() {
    PantallaMonitor p = monitor_.Pantalla();
    if (centimosAnotados_ && !monitor_.LlamadaAbierta() && !p.Gasto.empty()) {
        p.Gasto = FormatoDosDecimales(static_cast<double>(*centimosAnotados_) / 100.0);
    }
    panel->Mostrar(p);
    if (mini_ != nullptr) {
        mini_->Mostrar(p);
    }
    mnuOne->mnuConectar()->setEnabled(p.MenuConectar);
    mnuOne->mnuDesconectar()->setEnabled(p.MenuDesconectar);
    if (bandeja_ != nullptr) {
        bandeja_->setToolTip(QString::fromStdString(p.PuntaBandeja));
    }
    if (monitor_.LlamadaAbierta() && p.Descuento == kDescuentoBonoNet) {
        MostrarBono();
    }
}

void fMain::MostrarBono() {
    const auto grupo = static_cast<std::int16_t>(tabBono->Grupo());
    const PantallaMonitor& p = monitor_.Pantalla();
    // During a BonoNet call the live meter's figures are the ones to show.
    if (monitor_.LlamadaAbierta() && p.Descuento == kDescuentoBonoNet) {
        tabResumen->MostrarBono(TabBono::NombreGrupo(grupo), p.BonoGastado, p.BonoQueda);
        return;
    }
    tabResumen->MostrarBono(TabBono::NombreGrupo(grupo), datos_.Bono.TiempoGastadoGrupo(grupo),
                            datos_.Bono.TotalTiempoGrupo(grupo));
}

} // namespace vorimesk
