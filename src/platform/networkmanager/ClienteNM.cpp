#include "ClienteNM.h"

#include "core/Errores.h"
#include "core/Texto1252.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <map>

namespace vorimesk {
namespace {

constexpr const char* kNombre = "org.freedesktop.NetworkManager";
constexpr const char* kRuta = "/org/freedesktop/NetworkManager";
constexpr const char* kRutaAjustes = "/org/freedesktop/NetworkManager/Settings";
constexpr const char* kIfAjustes = "org.freedesktop.NetworkManager.Settings";
constexpr const char* kIfConexion = "org.freedesktop.NetworkManager.Settings.Connection";
constexpr const char* kIfActiva = "org.freedesktop.NetworkManager.Connection.Active";
constexpr const char* kIfDispositivo = "org.freedesktop.NetworkManager.Device";
constexpr const char* kIfEstadisticas = "org.freedesktop.NetworkManager.Device.Statistics";
constexpr const char* kIfPropiedades = "org.freedesktop.DBus.Properties";
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr const char* kRutaBus = "/org/freedesktop/DBus";
constexpr std::uint32_t kDispositivoModem = 8;

// NetworkManager answers at once; one that hangs must not freeze the tick
// for the bus's default 25 seconds.
constexpr auto kEspera = std::chrono::seconds(2);

using Propiedades = std::map<std::string, sdbus::Variant>;
using Ajustes = std::map<std::string, Propiedades>;

template <typename T> T Valor(const Propiedades& p, const std::string& clave, T porDefecto = {}) {
    const auto it = p.find(clave);
    if (it == p.end() || !it->second.containsValueOfType<T>()) {
        return porDefecto;
    }
    return it->second.get<T>();
}

Propiedades Seccion(const Ajustes& a, const std::string& nombre) {
    const auto it = a.find(nombre);
    return it == a.end() ? Propiedades{} : it->second;
}

bool EmpiezaPor(const std::string& texto, std::string_view inicio) {
    return texto.rfind(inicio, 0) == 0;
}

bool InterfazDeMarcado(const std::string& interfaz) {
    return EmpiezaPor(interfaz, "ppp") || EmpiezaPor(interfaz, "wwan");
}

bool TipoDeMarcado(const std::string& tipo) {
    static constexpr std::array<std::string_view, 3> kTipos = {"gsm", "cdma", "pppoe"};
    return std::find(kTipos.begin(), kTipos.end(), tipo) != kTipos.end();
}

// A connection the user dials: mobile broadband, PPPoE, a Bluetooth phone
// used as a modem, or one tied to a ppp or wwan interface.
bool EsEntrada(const Ajustes& a) {
    const Propiedades conexion = Seccion(a, "connection");
    const auto tipo = Valor<std::string>(conexion, "type");
    if (TipoDeMarcado(tipo)) {
        return true;
    }
    if (tipo == "bluetooth" && Valor<std::string>(Seccion(a, "bluetooth"), "type") == "dun") {
        return true;
    }
    return InterfazDeMarcado(Valor<std::string>(conexion, "interface-name"));
}

std::unique_ptr<sdbus::IProxy> Proxy(sdbus::IConnection& bus, const std::string& ruta,
                                     const char* destino = kNombre) {
    return sdbus::createProxy(bus, destino, ruta);
}

Propiedades LeerTodas(sdbus::IConnection& bus, const std::string& ruta, const char* interfaz) {
    Propiedades p;
    Proxy(bus, ruta)
        ->callMethod("GetAll")
        .onInterface(kIfPropiedades)
        .withTimeout(kEspera)
        .withArguments(std::string(interfaz))
        .storeResultsTo(p);
    return p;
}

bool TieneDueño(sdbus::IConnection& bus) {
    bool tiene = false;
    Proxy(bus, kRutaBus, kBus)
        ->callMethod("NameHasOwner")
        .onInterface(kBus)
        .withTimeout(kEspera)
        .withArguments(std::string(kNombre))
        .storeResultsTo(tiene);
    return tiene;
}

// The refusals a user can act on get their own words; anything else keeps
// NetworkManager's own explanation after ours.
std::string Rechazo(const std::string& accion, const std::string& id, const sdbus::Error& e) {
    const std::string& nombre = e.getName();
    const std::string inicio = "NetworkManager no ha podido " + accion + " \"" + id + "\"";
    if (nombre.ends_with(".PermissionDenied") || nombre.ends_with(".AccessDenied")) {
        return inicio + ": no tiene permiso para hacerlo.";
    }
    if (nombre.ends_with(".UnknownDevice")) {
        return inicio + ": no hay ningun modem o dispositivo que pueda usarla.";
    }
    if (nombre.ends_with(".UnknownConnection") || nombre.ends_with(".ConnectionNotActive")) {
        return inicio + ": la conexion ya no existe o no esta activa.";
    }
    if (nombre.ends_with(".NoReply") || nombre.ends_with(".ServiceUnknown") ||
        nombre.ends_with(".NameHasNoOwner")) {
        return inicio + ": NetworkManager no responde.";
    }
    return inicio + " (" + e.getMessage() + ").";
}

} // namespace

bool ClienteNM::Disponible() {
    try {
        const auto bus = sdbus::createSystemBusConnection();
        return TieneDueño(*bus);
    } catch (const sdbus::Error&) {
        return false;
    }
}

ClienteNM::ClienteNM() {
    try {
        Conectar();
    } catch (const sdbus::Error& e) {
        Desconectar();
        throw Error("No se puede hablar con NetworkManager por el bus del sistema: " +
                    e.getMessage());
    }
    Bombear();
}

ClienteNM::~ClienteNM() {
    Desconectar();
}

void ClienteNM::Conectar() {
    bus_ = sdbus::createSystemBusConnection();
    suscripciones_.push_back(bus_->addMatch(std::string("type='signal',sender='") + kNombre + "'",
                                            [this](sdbus::Message& m) { AlSenal(m); }));
    suscripciones_.push_back(bus_->addMatch(
        std::string("type='signal',sender='") + kBus + "',path='" + kRutaBus + "',interface='" +
            kBus + "',member='NameOwnerChanged',arg0='" + kNombre + "'",
        [this](sdbus::Message& m) { AlDueño(m); }));
    presente_ = TieneDueño(*bus_);
    releerConexiones_ = true;
    releerActivas_ = true;
}

void ClienteNM::Desconectar() {
    // The subscriptions belong to the connection and go first.
    suscripciones_.clear();
    bus_.reset();
}

void ClienteNM::Bombear() {
    if (!bus_) {
        try {
            Conectar();
            ++reinicios_;
        } catch (const sdbus::Error&) {
            Desconectar();
            return; // the last picture stands until the bus is back
        }
    }
    try {
        while (bus_->processPendingRequest()) {
        }
    } catch (const sdbus::Error&) {
        Desconectar();
        return;
    }
    if (!presente_) {
        return;
    }
    // While NetworkManager is coming back its objects may not be there yet:
    // what failed is read again on the next call.
    try {
        if (releerConexiones_) {
            LeerConexiones();
            releerConexiones_ = false;
        }
        if (releerActivas_) {
            LeerActivas();
            releerActivas_ = false;
        }
    } catch (const sdbus::Error&) {
    }
}

void ClienteNM::AlSenal(sdbus::Message& m) {
    try {
        const std::string interfaz = m.getInterfaceName();
        const std::string miembro = m.getMemberName();
        if (interfaz == kIfPropiedades && miembro == "PropertiesChanged") {
            AlPropiedades(m);
        } else if (interfaz == kIfActiva && miembro == "StateChanged") {
            std::uint32_t estado = 0;
            m >> estado;
            AlEstado(m.getPath(), estado);
        } else if (interfaz == kIfAjustes || interfaz == kIfConexion) {
            // A connection added, changed or removed: the list, and which
            // active ones dial, are read again.
            releerConexiones_ = true;
            releerActivas_ = true;
        }
    } catch (const std::exception&) {
        // Nothing may leave a handler: it runs inside the bus library's C code.
        releerActivas_ = true;
    }
}

void ClienteNM::AlPropiedades(sdbus::Message& m) {
    std::string interfaz;
    Propiedades cambios;
    m >> interfaz >> cambios;
    const std::string ruta = m.getPath();
    if (interfaz == kNombre) {
        if (cambios.count("ActiveConnections") != 0) {
            releerActivas_ = true;
        }
        if (cambios.count("Startup") != 0) {
            iniciando_ = Valor<bool>(cambios, "Startup");
        }
    } else if (interfaz == kIfActiva) {
        if (cambios.count("State") != 0) {
            AlEstado(ruta, Valor<std::uint32_t>(cambios, "State"));
        }
        if (cambios.count("Devices") != 0) {
            releerActivas_ = true;
        }
    } else if (interfaz == kIfDispositivo) {
        if (cambios.count("IpInterface") != 0) {
            releerActivas_ = true;
        }
    } else if (interfaz == kIfEstadisticas) {
        for (ActivaNM& a : activas_) {
            if (a.dispositivo != ruta) {
                continue;
            }
            Trafico t = a.bytes.value_or(Trafico{});
            t.recibidos = Valor<std::uint64_t>(cambios, "RxBytes", t.recibidos);
            t.enviados = Valor<std::uint64_t>(cambios, "TxBytes", t.enviados);
            a.bytes = t;
        }
    }
}

void ClienteNM::AlEstado(const std::string& ruta, std::uint32_t estado) {
    const auto it = std::find_if(activas_.begin(), activas_.end(),
                                 [&](const ActivaNM& a) { return a.ruta == ruta; });
    if (it == activas_.end()) {
        releerActivas_ = true; // one not seen yet: the list tells whether it dials
        return;
    }
    it->estado = estado;
}

void ClienteNM::AlDueño(sdbus::Message& m) {
    std::string nombre;
    std::string antes;
    std::string ahora;
    try {
        m >> nombre >> antes >> ahora;
    } catch (const std::exception&) {
        return; // not the signal it claims to be
    }
    presente_ = !ahora.empty();
    if (presente_) {
        ++reinicios_;
        iniciando_ = false;
        releerConexiones_ = true;
        releerActivas_ = true;
    }
}

void ClienteNM::LeerConexiones() {
    std::vector<sdbus::ObjectPath> rutas;
    Proxy(*bus_, kRutaAjustes)
        ->callMethod("ListConnections")
        .onInterface(kIfAjustes)
        .withTimeout(kEspera)
        .storeResultsTo(rutas);
    std::vector<ConexionNM> leidas;
    for (const auto& ruta : rutas) {
        Ajustes a;
        try {
            Proxy(*bus_, ruta)
                ->callMethod("GetSettings")
                .onInterface(kIfConexion)
                .withTimeout(kEspera)
                .storeResultsTo(a);
        } catch (const sdbus::Error&) {
            continue; // removed while the list was read
        }
        if (EsEntrada(a)) {
            const Propiedades c = Seccion(a, "connection");
            leidas.push_back({ruta, Valor<std::string>(c, "id"), Valor<std::string>(c, "uuid")});
        }
    }
    conexiones_ = std::move(leidas);
}

void ClienteNM::LeerActivas() {
    const Propiedades gestor = LeerTodas(*bus_, kRuta, kNombre);
    iniciando_ = Valor<bool>(gestor, "Startup");
    std::vector<ActivaNM> leidas;
    for (const auto& ruta : Valor<std::vector<sdbus::ObjectPath>>(gestor, "ActiveConnections")) {
        if (auto a = LeerActiva(ruta)) {
            leidas.push_back(std::move(*a));
        }
    }
    activas_ = std::move(leidas);
}

std::optional<ActivaNM> ClienteNM::LeerActiva(const std::string& ruta) const {
    Propiedades p;
    try {
        p = LeerTodas(*bus_, ruta, kIfActiva);
    } catch (const sdbus::Error&) {
        return std::nullopt; // gone while the list was read
    }
    ActivaNM a;
    a.ruta = ruta;
    a.uuid = Valor<std::string>(p, "Uuid");
    a.id = Valor<std::string>(p, "Id");
    a.estado = Valor<std::uint32_t>(p, "State");
    const auto dispositivos = Valor<std::vector<sdbus::ObjectPath>>(p, "Devices");
    if (!dispositivos.empty()) {
        a.dispositivo = dispositivos.front();
    }
    const bool esModem = [&] {
        if (a.dispositivo.empty()) {
            return false;
        }
        try {
            const Propiedades d = LeerTodas(*bus_, a.dispositivo, kIfDispositivo);
            a.interfaz = Valor<std::string>(d, "IpInterface");
            return Valor<std::uint32_t>(d, "DeviceType") == kDispositivoModem;
        } catch (const sdbus::Error&) {
            return false;
        }
    }();
    const bool deEntrada = std::any_of(conexiones_.begin(), conexiones_.end(),
                                       [&](const ConexionNM& c) { return c.uuid == a.uuid; });
    if (!deEntrada && !esModem && !TipoDeMarcado(Valor<std::string>(p, "Type")) &&
        !InterfazDeMarcado(a.interfaz)) {
        return std::nullopt;
    }
    LeerDispositivo(a);
    return a;
}

void ClienteNM::LeerDispositivo(ActivaNM& a) const {
    if (a.dispositivo.empty()) {
        return;
    }
    try {
        const Propiedades e = LeerTodas(*bus_, a.dispositivo, kIfEstadisticas);
        a.bytes = Trafico{Valor<std::uint64_t>(e, "RxBytes"), Valor<std::uint64_t>(e, "TxBytes")};
    } catch (const sdbus::Error&) {
        a.bytes.reset(); // a NetworkManager without statistics
    }
}

std::string ClienteNM::DispositivoPara(const std::string& conexion) const {
    try {
        std::vector<sdbus::ObjectPath> dispositivos;
        Proxy(*bus_, kRuta)
            ->callMethod("GetDevices")
            .onInterface(kNombre)
            .withTimeout(kEspera)
            .storeResultsTo(dispositivos);
        for (const auto& d : dispositivos) {
            const Propiedades p = LeerTodas(*bus_, d, kIfDispositivo);
            const auto disponibles =
                Valor<std::vector<sdbus::ObjectPath>>(p, "AvailableConnections");
            if (std::find(disponibles.begin(), disponibles.end(), conexion) != disponibles.end()) {
                return d;
            }
        }
    } catch (const sdbus::Error&) {
    }
    return "/"; // NetworkManager picks the device
}

std::optional<std::string> ClienteNM::Activar(const std::string& id) {
    const std::string buscado = Recortar(id);
    const auto c = std::find_if(conexiones_.begin(), conexiones_.end(),
                                [&](const ConexionNM& x) { return Recortar(x.id) == buscado; });
    std::optional<std::string> error;
    if (c == conexiones_.end()) {
        error = "NetworkManager no tiene ninguna conexion llamada \"" + buscado + "\".";
    } else if (!bus_ || !presente_) {
        error = "NetworkManager no ha podido activar \"" + buscado + "\": no esta en marcha.";
    } else {
        try {
            sdbus::ObjectPath activa;
            Proxy(*bus_, kRuta)
                ->callMethod("ActivateConnection")
                .onInterface(kNombre)
                .withTimeout(kEspera)
                .withArguments(sdbus::ObjectPath(c->ruta),
                               sdbus::ObjectPath(DispositivoPara(c->ruta)), sdbus::ObjectPath("/"))
                .storeResultsTo(activa);
            releerActivas_ = true;
        } catch (const sdbus::Error& e) {
            error = Rechazo("activar", buscado, e);
        }
    }
    aviso_ = error.value_or(std::string());
    return error;
}

int ClienteNM::Desactivar(const std::string& id, std::optional<std::string>& error) {
    const std::string buscado = Recortar(id);
    int pedidas = 0;
    error.reset();
    for (const ActivaNM& a : activas_) {
        if (Recortar(a.id) != buscado || !bus_) {
            continue;
        }
        ++pedidas;
        try {
            Proxy(*bus_, kRuta)
                ->callMethod("DeactivateConnection")
                .onInterface(kNombre)
                .withTimeout(kEspera)
                .withArguments(sdbus::ObjectPath(a.ruta));
        } catch (const sdbus::Error& e) {
            if (!error) {
                error = Rechazo("colgar", buscado, e);
            }
        }
    }
    if (pedidas > 0) {
        releerActivas_ = true;
        aviso_ = error.value_or(std::string());
    }
    return pedidas;
}

void ClienteNM::Refresco(const std::string& dispositivo, std::uint32_t ms) {
    if (!bus_ || dispositivo.empty()) {
        return;
    }
    try {
        Proxy(*bus_, dispositivo)
            ->callMethod("Set")
            .onInterface(kIfPropiedades)
            .withTimeout(kEspera)
            .withArguments(std::string(kIfEstadisticas), std::string("RefreshRateMs"),
                           sdbus::Variant(ms));
    } catch (const sdbus::Error&) {
        // Without the right to change it the counters move at NetworkManager's own pace.
    }
}

} // namespace vorimesk
