#include "MonitorConexion.h"

#include "PerfilEntrada.h"
#include "core/Errores.h"

namespace vorimesk {

MonitorConexion::MonitorConexion(const Reloj& reloj, Settings& ajustes, cBono& bono,
                                 colConexion& pendientes, RegistroMonitor& registro,
                                 Marcador& marcador, std::filesystem::path carpetaDatos,
                                 Opciones opciones)
    : reloj_(reloj), ajustes_(ajustes), bono_(bono), pendientes_(pendientes), registro_(registro),
      marcador_(marcador), carpeta_(std::move(carpetaDatos)), medidor_(ajustes, bono),
      espera_(opciones.esperaLogSegundos),
      propias_(carpeta_, opciones.esperaLogSegundos, reloj.Ahora()), libroPropio_(carpeta_),
      libroPrestado_(opciones.libro) {}

std::string MonitorConexion::TextoCorregidas(int n) {
    const std::string plural = n == 1 ? "" : "s";
    return "Corregida" + plural +
           " con el registro de sesiones del sistema, que llego despues: " + std::to_string(n) +
           " llamada" + plural + " anotada" + plural + " con lo que midio el contador.";
}

template <typename Paso> void MonitorConexion::Propias(Sucesos& s, Paso paso) {
    try {
        paso();
    } catch (const vorimesk::Error& e) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
    }
}

MonitorConexion::Sucesos MonitorConexion::Tick(const LecturaConexion& lectura) {
    Sucesos s = TickEnlace(lectura);
    Sucesos hora = TickHora();
    s.insert(s.end(), hora.begin(), hora.end());
    return s;
}

MonitorConexion::Sucesos MonitorConexion::TickEnlace(const LecturaConexion& lectura) {
    Sucesos s = TickEstado(lectura);
    volumenVivo_.Bytes(lectura.Recibidos, lectura.Enviados);
    Sucesos actual = TickActual();
    s.insert(s.end(), actual.begin(), actual.end());
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
    const bool conectado = estado == LecturaConexion::kConectado;
    if (!conectado || OtraSesion(sesionColgada_, lectura.Enlace)) {
        colgadoPorUsuario_ = false;
    }
    if (!conectado) {
        // Records a stopped meter left open belong to links gone by now.
        Propias(s, [&] { propias_.Reanudar({}, reloj_.Ahora()); });
    }
    if (LlamadaAbierta() && !OtraSesion(sesionLlamada_, lectura.Enlace)) {
        SeguirPropia(&lectura, s); // the final bytes come with the 0
    }
    if (conectado && LlamadaAbierta() && OtraSesion(sesionLlamada_, lectura.Enlace)) {
        // The link dropped and came back between two looks: the call that
        // was open ended, and this is another one.
        pantalla_.BotonConexion = false;
        AlSoltar(s);
    }
    if (conectado && enganche_ == 0 && !colgadoPorUsuario_) {
        IniciarLlamada(lectura, s);
    } else if (!conectado && LlamadaAbierta()) {
        pantalla_.BotonConexion = false;
        AlSoltar(s);
    } else if (LlamadaAbierta()) {
        if (sesionLlamada_.empty()) {
            sesionLlamada_ = lectura.Enlace;
        }
        RefrescarFecha(s);
    }
    return s;
}

// Both sessions known and not the same one.
bool MonitorConexion::OtraSesion(const std::string& vista, const std::string& ahora) {
    return !vista.empty() && !ahora.empty() && vista != ahora;
}

void MonitorConexion::IniciarLlamada(const LecturaConexion& lectura, Sucesos& s) {
    // A wait for the previous call's log goes on: that call keeps its own.
    const std::string& entrada = lectura.EntryName;
    sesionLlamada_ = lectura.Enlace;
    enganche_ = kEnganchado;
    // Pressing cmdConexion; a button the user already pressed to dial is
    // pressed all the same, so the connect actions run once for every call.
    pantalla_.BotonConexion = true;
    AccionesAlConectar(s);
    inicioLlamada_ = reloj_.Ahora();
    volumenVivo_.Empezar();
    AbrirPropia(lectura, s);
    // The book is taken at the first tick of the meter, with these holidays.
    festivosLlamada_ = ajustes_.Festivos;
    libro_.reset();
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
        marcador_.Marcar(entradaElegida);
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
    sesionColgada_ = sesionLlamada_;
    AlSoltar(s);
    return s;
}

void MonitorConexion::AlSoltar(Sucesos& s) {
    if (enganche_ > kEnganchado - 1) {
        // Only the user hangs up: a link that dropped by itself may belong to
        // a pppd about to redial (`persist`), which must be left alone.
        if (colgadoPorUsuario_) {
            marcador_.Colgar(entradaLlamada_);
        }
        enganche_ = 0;
        medidorActivo_ = false;
        RefrescarFecha(s);
        const std::optional<Fecha> fechaSesion = FechaSesion();
        Propias(s, [&] { propias_.Cerrar(reloj_.Ahora(), fechaSesion); });
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
    if (espera_.Esperando()) {
        Esperar(s, rellenar);
    }
    // The journal's sessions (also those taken at start-up) drop the
    // meter's records of the same links, and tell of the calls they
    // corrected.
    const std::vector<LlamadaAnotada> entradas = registro_.TomarSesionesEntradas();
    if (!entradas.empty()) {
        Propias(s, [&] { propias_.CubrirSesiones(entradas, reloj_.Ahora()); });
    }
    if (const int corregidas = registro_.TomarCorregidas(); corregidas > 0) {
        s.push_back({SucesoMonitor::Tipo::LlamadasCorregidas, TextoCorregidas(corregidas),
                     MotivoAviso::Conectar, corregidas});
        if (rellenar) {
            s.push_back({SucesoMonitor::Tipo::RellenarRegistro, {}});
        }
    }
    AnotarPropias(s, rellenar);
}

void MonitorConexion::Esperar(Sucesos& s, bool rellenar) {
    const int antes = registro_.Count();
    const std::optional<cConexion> abierta =
        perfil_ != nullptr && PerfilSigue() ? std::optional<cConexion>(*perfil_) : std::nullopt;
    const EsperaLogModem::Resultado r =
        espera_.Intentar(reloj_.Ahora(), registro_, bono_, ajustes_.Festivos, pendientes_);
    if (abierta && !PerfilSigue()) {
        // The reader empties the pending list once it has read a log; the
        // call still up keeps its record, or its session would be priced
        // with no tariff when it is read.
        perfil_ = &pendientes_.Add(abierta->fecha(), abierta->Tarifa(), abierta->Descuento(),
                                   abierta->Conexion());
    }
    if (r.Añadidas > 0) {
        if (!registro_.HaySesionesEntradas()) {
            // The modem log alone: its calls tell no link, only start and entry.
            Propias(s, [&] { propias_.Cubrir(registro_, antes, reloj_.Ahora()); });
        }
        Anotadas(r.Añadidas, s, rellenar);
    }
    // Told only while a call still waits for it: the meter's records stand in.
    if (r.Abandonada && propias_.Esperando() > 0) {
        s.push_back({SucesoMonitor::Tipo::LogSinCerrar,
                     "El registro del modem no se ha cerrado a tiempo; lo que no de se anota "
                     "con lo que midio el contador."});
    }
    if (!r.Error.empty()) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, r.Error});
    }
}

// Saves the register at once and tells the caller.
void MonitorConexion::Anotadas(int n, Sucesos& s, bool rellenar) {
    try {
        registro_.SalvarLog();
    } catch (const vorimesk::Error& e) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, e.what()});
    }
    s.push_back({SucesoMonitor::Tipo::LlamadasAnotadas, {}, MotivoAviso::Conectar, n});
    if (rellenar) {
        s.push_back({SucesoMonitor::Tipo::RellenarRegistro, {}});
    }
}

MonitorConexion::Sucesos MonitorConexion::Parar() {
    Sucesos s;
    AnotarPropias(s, true, true);
    return s;
}

void MonitorConexion::AnotarPropias(Sucesos& s, bool rellenar, bool todas) {
    const LlamadasPropias::Resultado r =
        propias_.Vencidas(reloj_.Ahora(), registro_, bono_, ajustes_.Festivos, todas);
    if (!r.Error.empty()) {
        s.push_back({SucesoMonitor::Tipo::ErrorRegistro, r.Error});
    }
    if (r.Anotadas == 0) {
        return;
    }
    Anotadas(r.Anotadas, s, rellenar);
    if (!sinRegistroAvisado_) {
        sinRegistroAvisado_ = true;
        s.push_back({SucesoMonitor::Tipo::SinRegistroSistema, kAvisoSinRegistroSistema});
    }
}

void MonitorConexion::AbrirPropia(const LecturaConexion& lectura, Sucesos& s) {
    Propias(s, [&] {
        if (const auto retomada = propias_.Reanudar(lectura.Enlace, reloj_.Ahora())) {
            inicioLlamada_ = retomada->Inicio; // the meter was stopped mid-call
            return;
        }
        const PerfilEntrada perfil = BuscarPerfilEntrada(ajustes_, lectura.EntryName);
        LlamadaVista v;
        v.Inicio = inicioLlamada_;
        v.Entrada = lectura.EntryName;
        v.Tarifa = perfil.Tarifa;
        v.Descuento = perfil.Descuento;
        v.Interfaz = lectura.Interfaz;
        v.Pid = lectura.Pid;
        v.Enlace = lectura.Enlace;
        v.ConDiario = lectura.ConDiario;
        v.Recibidos = lectura.Recibidos.value_or(0);
        v.Enviados = lectura.Enviados.value_or(0);
        propias_.Abrir(std::move(v), reloj_.Ahora());
    });
}

void MonitorConexion::SeguirPropia(const LecturaConexion* lectura, Sucesos& s) {
    Propias(s, [&] {
        propias_.Seguir(reloj_.Ahora(), lectura ? lectura->Recibidos : std::nullopt,
                        lectura ? lectura->Enviados : std::nullopt, FechaSesion());
    });
}

// The call's "in use" stamp once its pending connection holds it.
std::optional<Fecha> MonitorConexion::FechaSesion() const {
    if (!fechaFirme_ || perfil_ == nullptr || !PerfilSigue()) {
        return std::nullopt;
    }
    return perfil_->fecha();
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

void MonitorConexion::TomarLibro() {
    const LibroTarifas& libros = libroPrestado_ != nullptr ? *libroPrestado_ : libroPropio_;
    const cLlamada& actual = libros.Actual();
    if (libro_ && lecturasLibro_ == libros.Lecturas()) {
        return;
    }
    libro_ = actual;
    libro_->Festivos(festivosLlamada_);
    lecturasLibro_ = libros.Lecturas();
}

MonitorConexion::Sucesos MonitorConexion::TickActual() {
    Sucesos s;
    if (!medidorActivo_) {
        return s;
    }
    const Fecha ahora = reloj_.Ahora();
    TomarLibro();
    medida_ = medidor_.Medir(*libro_, inicioLlamada_, ahora, entradaLlamada_, grupoBono_);
    volumenVivo_.Sumar(medida_, carpeta_, ajustes_, bono_, registro_.Llamadas(), inicioLlamada_,
                       ahora);
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
