#include "MonitorConexion.h"

#include "PerfilEntrada.h"
#include "core/Errores.h"

namespace vorimesk {

MonitorConexion::MonitorConexion(const Reloj& reloj, Settings& ajustes, cBono& bono,
                                 colConexion& pendientes, RegistroMonitor& registro,
                                 LineaMonitor& linea, std::filesystem::path carpetaDatos,
                                 Opciones opciones)
    : reloj_(reloj), ajustes_(ajustes), bono_(bono), pendientes_(pendientes), registro_(registro),
      linea_(linea), carpeta_(std::move(carpetaDatos)), medidor_(ajustes, bono),
      espera_(opciones.esperaLogSegundos) {}

MonitorConexion::Sucesos MonitorConexion::Tick(const LecturaConexion& lectura) {
    Sucesos s = TickEstado(lectura);
    for (Sucesos parte : {TickActual(), TickHora()}) {
        s.insert(s.end(), parte.begin(), parte.end());
    }
    return s;
}

MonitorConexion::Sucesos MonitorConexion::TickEstado(const LecturaConexion& lectura) {
    Sucesos s;
    LeerLog(s, true); // a call ended earlier may still be waiting for its log
    PantallaMonitor& p = pantalla_;
    const int estado = lectura.IntState;
    switch (estado) {
    case LecturaConexion::kNada:
        p.EstadoPantalla = EstadoDePantalla::SinConexion;
        p.ColorIndicador = kColorRojoClaro;
        p.EtiquetasLlamada = false;
        p.ListaConexiones = true;
        p.MsgEstado = "Sin conexion.";
        break;
    case LecturaConexion::kConectando:
    case LecturaConexion::kConectado:
        p.EstadoPantalla = estado == LecturaConexion::kConectado ? EstadoDePantalla::Conectado
                                                                 : EstadoDePantalla::Conectando;
        p.ColorIndicador =
            estado == LecturaConexion::kConectado ? kColorVerdeClaro : kColorAmarillo;
        p.EtiquetasLlamada = true;
        p.ListaConexiones = false;
        p.Conectado = lectura.EntryName;
        p.MsgEstado = estado == LecturaConexion::kConectado ? "Conectado." : "Conectando...";
        break;
    case LecturaConexion::kDesconectado:
        p.ColorIndicador = kColorRojoClaro;
        if (p.EstadoPantalla != EstadoDePantalla::SinConexion) {
            p.EtiquetasLlamada = false;
            p.ListaConexiones = true;
        }
        p.MsgEstado = "Desconectado.";
        break;
    default:
        return s;
    }
    p.Aviso = lectura.Aviso;
    if (!p.Aviso.empty()) {
        p.MsgEstado = p.Aviso;
    }
    if (estado != LecturaConexion::kConectado) {
        colgadoPorUsuario_ = false;
    }
    if (estado == LecturaConexion::kConectado && enganche_ == 0 && !colgadoPorUsuario_) {
        IniciarLlamada(lectura.EntryName, s);
    } else if (estado != LecturaConexion::kConectado && LlamadaAbierta()) {
        pantalla_.BotonConexion = false;
        AlSoltar(s);
    } else if (LlamadaAbierta()) {
        RefrescarFecha(s);
    }
    return s;
}

void MonitorConexion::IniciarLlamada(const std::string& entrada, Sucesos& s) {
    espera_.Cancelar(); // this call's end reads whatever the log still holds
    enganche_ = kEnganchado;
    // Pressing cmdConexion; a button the user already pressed to dial is
    // pressed all the same, so the connect actions run once for every call.
    pantalla_.BotonConexion = true;
    AccionesAlConectar(s);
    inicioLlamada_ = reloj_.Ahora();
    if (!libro_) {
        libro_.emplace(carpeta_);
    }
    libro_->Festivos(ajustes_.Festivos);
    medidorActivo_ = true;

    errorFechaAvisado_ = false;
    const Fecha fecha = LeerFechaConexion(s).value_or(kSinSesion);
    fechaFirme_ = fecha != kSinSesion && fecha != fechaAnterior_;
    entradaLlamada_ = entrada;
    const PerfilEntrada perfil = BuscarPerfilEntrada(ajustes_, entrada);
    pantalla_.Conectado = entrada;
    pantalla_.Tarifa2 = perfil.Tarifa;
    pantalla_.Descuento = perfil.Descuento;
    perfil_ = &pendientes_.Add(fecha, perfil.Tarifa, perfil.Descuento, entrada);
    s.push_back({SucesoMonitor::Tipo::LlamadaIniciada, entrada});
}

void MonitorConexion::AccionesAlConectar(Sucesos& s) {
    if (ajustes_.ProgramasAlConectar) {
        for (const std::string& programa : ajustes_.Programas) {
            s.push_back({SucesoMonitor::Tipo::LanzarPrograma, programa});
        }
    }
    if (ajustes_.AvisoConectar) {
        Sonar(MotivoAviso::Conectar, s);
    }
    if (ajustes_.MiniAlConectar) {
        s.push_back({SucesoMonitor::Tipo::MostrarMini, {}});
    }
    pantalla_.MenuConectar = false;
    pantalla_.MenuDesconectar = true;
}

MonitorConexion::Sucesos MonitorConexion::Pulsar(const std::string& entradaElegida) {
    Sucesos s;
    if (pantalla_.BotonConexion) {
        return s; // already pressed: its value does not change
    }
    pantalla_.BotonConexion = true;
    if (pantalla_.EstadoPantalla == EstadoDePantalla::SinConexion && !entradaElegida.empty()) {
        linea_.Marcar(entradaElegida);
    }
    if (enganche_ == 0) {
        return s;
    }
    AccionesAlConectar(s);
    return s;
}

MonitorConexion::Sucesos MonitorConexion::Soltar() {
    Sucesos s;
    if (!pantalla_.BotonConexion) {
        return s;
    }
    pantalla_.BotonConexion = false;
    colgadoPorUsuario_ = LlamadaAbierta();
    AlSoltar(s);
    return s;
}

void MonitorConexion::AlSoltar(Sucesos& s) {
    if (enganche_ > kEnganchado - 1) {
        linea_.Colgar(entradaLlamada_);
        enganche_ = 0;
        medidorActivo_ = false;
        RefrescarFecha(s);
        if (perfil_ != nullptr && PerfilSigue()) {
            fechaAnterior_ = perfil_->fecha();
        }
        perfil_ = nullptr;
        registro_.LlamadaTerminada(inicioLlamada_);
        s.push_back({SucesoMonitor::Tipo::LlamadaTerminada, entradaLlamada_});
    }
    espera_.Empezar(reloj_.Ahora());
    LeerLog(s, false);
    s.push_back({SucesoMonitor::Tipo::RellenarRegistro, {}});
    if (ajustes_.AvisoDesconectar) {
        Sonar(MotivoAviso::Desconectar, s);
    }
    avisos_.ArmarTodos();
    pantalla_.PuntaBandeja = kDesconectado;
    pantalla_.MenuConectar = true;
    pantalla_.MenuDesconectar = false;
}

void MonitorConexion::LeerLog(Sucesos& s, bool rellenar) {
    if (!espera_.Esperando()) {
        return;
    }
    const EsperaLogModem::Resultado r =
        espera_.Intentar(reloj_.Ahora(), registro_, bono_, ajustes_.Festivos, pendientes_);
    if (r.Añadidas > 0) {
        try {
            registro_.SalvarLog();
        } catch (const vorimesk::Error& e) {
            s.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
        }
        s.push_back({SucesoMonitor::Tipo::LlamadasAnotadas, {}, MotivoAviso::Conectar, r.Añadidas});
        if (rellenar) {
            s.push_back({SucesoMonitor::Tipo::RellenarRegistro, {}});
        }
    }
    if (r.Abandonada) {
        s.push_back({SucesoMonitor::Tipo::LogSinCerrar,
                     "El registro del modem no se ha cerrado; sus llamadas se anotaran al "
                     "terminar la proxima."});
    }
    if (!r.Error.empty()) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, r.Error});
    }
}

std::optional<Fecha> MonitorConexion::LeerFechaConexion(Sucesos& s) {
    try {
        return registro_.DateConexion();
    } catch (const vorimesk::Error& e) {
        if (!errorFechaAvisado_) {
            errorFechaAvisado_ = true;
            s.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
        }
        return std::nullopt;
    }
}

bool MonitorConexion::PerfilSigue() const {
    for (const cConexion& c : pendientes_) {
        if (&c == perfil_) {
            return true;
        }
    }
    return false;
}

void MonitorConexion::RefrescarFecha(Sucesos& s) {
    if (fechaFirme_ || perfil_ == nullptr) {
        return;
    }
    const std::optional<Fecha> fecha = LeerFechaConexion(s);
    if (!fecha || *fecha == kSinSesion || *fecha == fechaAnterior_) {
        return;
    }
    if (!PerfilSigue()) {
        perfil_ = nullptr;
        return;
    }
    perfil_->fecha(*fecha);
    fechaFirme_ = true;
}

MonitorConexion::Sucesos MonitorConexion::TickActual() {
    Sucesos s;
    if (!medidorActivo_) {
        return s;
    }
    medida_ = medidor_.Medir(*libro_, inicioLlamada_, reloj_.Ahora(), entradaLlamada_, grupoBono_);
    for (MotivoAviso motivo : avisos_.Comprobar(ajustes_, medida_)) {
        Sonar(motivo, s);
    }
    medidor_.Mostrar(medida_, pantalla_);
    return s;
}

MonitorConexion::Sucesos MonitorConexion::TickHora() {
    Sucesos s;
    const ControlHora::Resultado r = hora_.Tick(reloj_.Ahora(), ajustes_, bono_);
    pantalla_.FechaHoy = r.FechaHoy;
    pantalla_.HoraAhora = r.HoraAhora;
    if (r.Sonar) {
        Sonar(MotivoAviso::Hora, s);
    }
    if (r.Renovado && bono_.Count() > 0) {
        s.push_back({SucesoMonitor::Tipo::BonoRenovado, {}});
    }
    return s;
}

void MonitorConexion::Sonar(MotivoAviso motivo, Sucesos& s) const {
    s.push_back({SucesoMonitor::Tipo::Sonar, ajustes_.SonidoAviso, motivo});
}

} // namespace vorimesk
