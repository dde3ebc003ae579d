// The NetworkManager backend on a private bus where dbusmock plays
// NetworkManager and ModemManager: entries, modems and whole calls, also
// across a restart of NetworkManager.

#include "BusSimulado.h"
#include "platform/Plataforma.h"
#include "platform/networkmanager/ClienteNM.h"
#include "platform/networkmanager/EntradasNM.h"
#include "platform/networkmanager/FuenteConexionesNM.h"
#include "platform/networkmanager/MarcadorNM.h"
#include "platform/networkmanager/ModemsMM.h"

using namespace vorimesk;
using namespace std::chrono_literals;

namespace {

constexpr const char* kActiva = "org.freedesktop.NetworkManager.Connection.Active";
constexpr const char* kEstadisticas = "org.freedesktop.NetworkManager.Device.Statistics";

class SerieFija final : public ListaModems {
public:
    std::vector<Modem> Modems() const override {
        return {{"ttyUSB0", "USB Modem", "/log"}, {"ttyS0", "16550A", "/log"}};
    }
};

class NetworkManagerSimulado : public prueba::BusSimulado {
protected:
    void SetUp() override {
        BusSimulado::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        // The modem's network interface, while the link is up.
        Escribir(dir / "sys" / "class" / "net" / "wwan0" / "flags", "0x1091\n");
        conexion = AñadirConexion("Movistar 3G", "gsm", "uuid-movistar");
        modem = AñadirModem("wwan0", "wwan0", {sdbus::ObjectPath(conexion)});
        // An empty pppd side: no ppp interface, no pppd, no peers.
        OpcionesPlataforma o;
        o.carpetaDatos = dir;
        o.raices = {dir / "sys", dir / "proc", dir / "run", dir / "peers"};
        o.entorno = {};
        o.ejecutar = [this](const std::vector<std::string>& argv) {
            ordenes.push_back(argv);
            return 0;
        };
        plataforma = CrearPlataforma(o);
    }

    // Ticks until the state comes (signals travel through the daemon) and
    // returns every state seen on the way, the last one included.
    std::vector<int> Hasta(int estado) {
        std::vector<int> vistos;
        for (int i = 0; i < 200; ++i) {
            l = plataforma.conexiones->Leer();
            const int e = l.IntState;
            if (vistos.empty() || vistos.back() != e) {
                vistos.push_back(e);
            }
            if (e == estado) {
                break;
            }
            std::this_thread::sleep_for(10ms);
        }
        return vistos;
    }
    // Ticks for a while: the states a monitor would see meanwhile.
    std::vector<int> Durante(std::chrono::milliseconds tiempo) {
        std::vector<int> vistos;
        for (auto fin = std::chrono::steady_clock::now() + tiempo;
             std::chrono::steady_clock::now() < fin; std::this_thread::sleep_for(10ms)) {
            l = plataforma.conexiones->Leer();
            const int e = l.IntState;
            if (vistos.empty() || vistos.back() != e) {
                vistos.push_back(e);
            }
        }
        return vistos;
    }
    std::string UnicaActiva() {
        const auto activas = Activas();
        return activas.size() == 1 ? std::string(activas.front()) : std::string();
    }

    std::string conexion;
    std::string modem;
    Plataforma plataforma;
    LecturaConexion l;                             // the last reading
    std::vector<std::vector<std::string>> ordenes; // pon and poff, noted only
};

using Estados = std::vector<int>;

TEST_F(NetworkManagerSimulado, ListaLasConexionesQueMarcanEnSuOrdenYSigueLosCambios) {
    AñadirConexion("Casa", "802-11-wireless", "uuid-wifi");
    const std::string adsl = AñadirConexion("ADSL", "pppoe", "uuid-adsl");
    AñadirConexion("Cable", "802-3-ethernet", "uuid-eth");
    AñadirConexion("Modem QMI", "generic", "uuid-wwan", "wwan0");
    // A phone over Bluetooth dials as a modem (DUN), not as a network (PANU).
    prueba::BusSimulado::Ajustes dun;
    dun["bluetooth"]["type"] = sdbus::Variant(std::string("dun"));
    AñadirConexion("Telefono", "bluetooth", "uuid-dun", {}, dun);
    dun["bluetooth"]["type"] = sdbus::Variant(std::string("panu"));
    AñadirConexion("Red del telefono", "bluetooth", "uuid-panu", {}, dun);
    EXPECT_EQ(plataforma.entradas->Entradas(),
              (std::vector<std::string>{"Movistar 3G", "ADSL", "Modem QMI", "Telefono"}));
    EXPECT_NE(plataforma.origen.find("NetworkManager"), std::string::npos) << plataforma.origen;

    Borrar(adsl);
    EXPECT_EQ(plataforma.entradas->Entradas(),
              (std::vector<std::string>{"Movistar 3G", "Modem QMI", "Telefono"}));
}

TEST_F(NetworkManagerSimulado, ModemsDeModemManagerYLosPuertosSerieQueNoUsa) {
    AñadirModemMM("0", "Huawei", "E3372", {"ttyUSB0", "cdc-wdm0", "wwan0"});
    auto cliente = std::make_shared<ClienteNM>();
    const auto modems = ModemsMM(cliente, std::make_shared<SerieFija>(), "/log").Modems();
    ASSERT_EQ(modems.size(), 2u);
    EXPECT_EQ(modems[0].modelo, "Huawei E3372");
    EXPECT_EQ(modems[0].clave, "mm:id0");
    EXPECT_EQ(modems[1].clave, "ttyS0");
}

TEST_F(NetworkManagerSimulado, UnaLlamadaEnteraMarcadaYColgadaDesdeElContador) {
    EXPECT_EQ(Hasta(-1), Estados{-1});

    plataforma.marcador->Marcar(" Movistar 3G ");
    EXPECT_EQ(plataforma.marcador->UltimoResultado(), 0);
    const std::string activa = UnicaActiva();
    ASSERT_FALSE(activa.empty());
    Fijar(activa, kActiva, "State", sdbus::Variant(std::uint32_t{1}));
    EXPECT_EQ(Hasta(3).back(), 3);
    EXPECT_EQ(l.EntryName, "Movistar 3G");

    Fijar(activa, kActiva, "State", sdbus::Variant(std::uint32_t{2}));
    EXPECT_EQ(Hasta(2).back(), 2);
    EXPECT_EQ(l.Count, 1);
    EXPECT_EQ(l.Interfaz, "wwan0");
    EXPECT_FALSE(l.ConDiario);
    EXPECT_EQ(Propiedad(modem, kEstadisticas, "RefreshRateMs").get<std::uint32_t>(), 1000u);

    Fijar(modem, kEstadisticas, "RxBytes", sdbus::Variant(std::uint64_t{52000}));
    Fijar(modem, kEstadisticas, "TxBytes", sdbus::Variant(std::uint64_t{8100}));
    for (int i = 0; i < 200 && (l.Recibidos != 52000u || l.Enviados != 8100u); ++i) {
        std::this_thread::sleep_for(10ms);
        l = plataforma.conexiones->Leer();
    }
    EXPECT_EQ(l.Recibidos, 52000u);
    EXPECT_EQ(l.Enviados, 8100u);

    EXPECT_EQ(plataforma.marcador->Colgar("Movistar 3G"), 1);
    EXPECT_EQ(Hasta(0), Estados{0});
    EXPECT_EQ(Durante(100ms), Estados{0}); // kept until a new link starts
    EXPECT_EQ(l.EntryName, "Movistar 3G");
    EXPECT_EQ(l.Recibidos, 52000u);
    EXPECT_EQ(l.Enviados, 8100u);
    EXPECT_EQ(l.Count, 0);
    EXPECT_EQ(Propiedad(modem, kEstadisticas, "RefreshRateMs").get<std::uint32_t>(), 0u);
}

TEST_F(NetworkManagerSimulado, ElEstadoLlegaTambienPorLaSenalStateChanged) {
    const std::string activa = Activar(conexion, modem);
    Fijar(activa, kActiva, "State", sdbus::Variant(std::uint32_t{1}));
    EXPECT_EQ(Hasta(3).back(), 3);
    // Only the signal, with no property change behind it to read again.
    Proxy(kNM, activa)
        ->callMethod("EmitSignal")
        .onInterface(kMock)
        .withArguments(std::string(kActiva), std::string("StateChanged"), std::string("uu"),
                       std::vector<sdbus::Variant>{sdbus::Variant(std::uint32_t{2}),
                                                   sdbus::Variant(std::uint32_t{0})});
    EXPECT_EQ(Hasta(2).back(), 2);
}

TEST_F(NetworkManagerSimulado, UnaMarcacionFallidaNoEsUnaLlamadaYUnRechazoSeExplica) {
    const std::string activa = Activar(conexion, modem);
    Fijar(activa, kActiva, "State", sdbus::Variant(std::uint32_t{1}));
    EXPECT_EQ(Hasta(3).back(), 3);
    Proxy(kNM, kGestor)
        ->callMethod("DeactivateConnection")
        .onInterface(kNM)
        .withArguments(sdbus::ObjectPath(activa));
    EXPECT_EQ(Hasta(-1), Estados{-1}); // from 3 straight to -1

    // An entry NetworkManager does not know is a pppd peer.
    plataforma.marcador->Marcar("casa");
    EXPECT_EQ(ordenes, (std::vector<std::vector<std::string>>{{"pon", "casa"}}));

    Proxy(kNM, kGestor)
        ->callMethod("AddMethod")
        .onInterface(kMock)
        .withArguments(std::string(kNM), std::string("ActivateConnection"), std::string("ooo"),
                       std::string("o"),
                       std::string("raise dbus.exceptions.DBusException('No suitable device', "
                                   "name='org.freedesktop.NetworkManager.UnknownDevice')"));
    plataforma.marcador->Marcar("Movistar 3G");
    EXPECT_EQ(plataforma.marcador->UltimoResultado(), -1);
    EXPECT_EQ(Hasta(-1), Estados{-1});
    EXPECT_EQ(l.Aviso, "NetworkManager no ha podido activar \"Movistar 3G\": no hay ningun modem o "
                       "dispositivo que pueda usarla.");
}

TEST_F(NetworkManagerSimulado, UnReinicioDeNetworkManagerNoCortaNiDuplicaLaLlamada) {
    Activar(conexion, modem);
    EXPECT_EQ(Hasta(2).back(), 2);

    PararNetworkManager();
    EXPECT_EQ(Durante(100ms), Estados{2});
    ArrancarNetworkManager();
    // NetworkManager takes the links that are still up over again, under
    // new objects: the call's is no longer the first one.
    Activar(AñadirConexion("Casa", "802-11-wireless", "uuid-wifi"), "/");
    const std::string otra = AñadirConexion("Movistar 3G", "gsm", "uuid-movistar");
    Activar(otra, AñadirModem("wwan0", "wwan0", {sdbus::ObjectPath(otra)}));
    EXPECT_EQ(Durante(200ms), Estados{2});
    EXPECT_EQ(l.EntryName, "Movistar 3G");

    EXPECT_EQ(plataforma.marcador->Colgar("Movistar 3G"), 1);
    EXPECT_EQ(Hasta(0), Estados{0});
}

TEST_F(NetworkManagerSimulado, LaLlamadaTerminaSiTrasElReinicioElEnlaceYaNoEsta) {
    Activar(conexion, modem);
    EXPECT_EQ(Hasta(2).back(), 2);
    PararNetworkManager();
    EXPECT_EQ(Durante(50ms), Estados{2});
    ArrancarNetworkManager();
    EXPECT_EQ(Hasta(0), Estados{0});
    EXPECT_EQ(l.EntryName, "Movistar 3G");
}

TEST_F(NetworkManagerSimulado, SinNetworkManagerLaLlamadaAcabaCuandoCaeSuInterfaz) {
    Activar(conexion, modem);
    EXPECT_EQ(Hasta(2).back(), 2);
    PararNetworkManager();
    EXPECT_EQ(Durante(50ms), Estados{2});
    std::filesystem::remove_all(dir / "sys" / "class" / "net" / "wwan0");
    EXPECT_EQ(Hasta(0), Estados{0});
    EXPECT_EQ(l.EntryName, "Movistar 3G");
    // Back without the link: the call has ended already, once.
    ArrancarNetworkManager();
    EXPECT_EQ(Durante(100ms), Estados{0});
}

} // namespace
