// The Linux backend against a fake /sys, /proc, /run and /etc/ppp/peers.

#include "CarpetaTemporal.h"
#include "platform/linux/EntradasLinux.h"
#include "platform/linux/FuenteConexionesLinux.h"
#include "platform/linux/MarcadorLinux.h"
#include "platform/linux/ModemsLinux.h"

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

class SistemaFalso : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        raices = {dir / "sys", dir / "proc", dir / "run", dir / "peers", dir / "marcas"};
        for (const auto& d : {raices.sys / "class" / "net", raices.proc, raices.run}) {
            fs::create_directories(d);
        }
        // Something that is not a link must never count as one.
        Interfaz("lo", "0x9", 100, 100);
        Interfaz("eth0", "0x1003", 5000, 7000);
        Proceso(1, "systemd", {"/sbin/init"});
        Proceso(77, "pon", {"/bin/sh", "/usr/bin/pon", "call", "casa"});
    }

    void Interfaz(const std::string& nombre, const std::string& flags, std::uint64_t rx,
                  std::uint64_t tx) {
        const fs::path d = raices.sys / "class" / "net" / nombre;
        Escribir(d / "flags", flags + "\n");
        Escribir(d / "statistics" / "rx_bytes", std::to_string(rx) + "\n");
        Escribir(d / "statistics" / "tx_bytes", std::to_string(tx) + "\n");
    }
    void QuitarInterfaz(const std::string& nombre) {
        fs::remove_all(raices.sys / "class" / "net" / nombre);
    }
    void Proceso(int pid, const std::string& comm, const std::vector<std::string>& argv) {
        std::string cmdline;
        for (const auto& a : argv) {
            cmdline += a + '\0';
        }
        Escribir(raices.proc / std::to_string(pid) / "cmdline", cmdline);
        Escribir(raices.proc / std::to_string(pid) / "comm", comm + "\n");
    }
    void Pppd(int pid, const std::string& peer) {
        Proceso(pid, "pppd", {"/usr/sbin/pppd", "call", peer});
    }
    void QuitarProceso(int pid) { fs::remove_all(raices.proc / std::to_string(pid)); }

    struct Visto {
        int estado;
        int count;
        std::string entrada;
        std::optional<Trafico> bytes;
        bool operator==(const Visto&) const = default;
        friend std::ostream& operator<<(std::ostream& o, const Visto& v) {
            o << "{" << v.estado << ", " << v.count << ", \"" << v.entrada << "\", ";
            return v.bytes ? o << v.bytes->recibidos << "/" << v.bytes->enviados << "}" : o << "-}";
        }
    };
    // Keeps the reading for the checks on its link session.
    Visto Mirar(FuenteConexiones& f) {
        l = f.Leer();
        std::optional<Trafico> bytes;
        if (l.Recibidos && l.Enviados) {
            bytes = Trafico{*l.Recibidos, *l.Enviados};
        }
        return {l.IntState, l.Count, l.EntryName, bytes};
    }

    RaicesLinux raices;
    LecturaConexion l;
};

using FuenteLinux = SistemaFalso;

TEST_F(FuenteLinux, UnaLlamadaCompletaPasaPorLosCuatroEstados) {
    FuenteConexionesLinux f(raices);
    EXPECT_EQ(Mirar(f), (Visto{-1, 0, "", std::nullopt}));

    Pppd(4242, "casa"); // pon casa: pppd dials, no interface yet
    EXPECT_EQ(Mirar(f), (Visto{3, 1, "casa", std::nullopt}));

    // pppd made the interface but LCP/IPCP are not done: still connecting.
    Interfaz("ppp0", "0x1090", 0, 0);
    Escribir(raices.run / "ppp0.pid", "4242\n");
    EXPECT_EQ(Mirar(f), (Visto{3, 1, "casa", std::nullopt}));

    Interfaz("ppp0", "0x10d1", 1500, 300);
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{1500, 300}}));
    Interfaz("ppp0", "0x10d1", 153600, 20480);
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{153600, 20480}}));

    // pppd ends and takes the interface with it: the last bytes seen stand.
    QuitarInterfaz("ppp0");
    QuitarProceso(4242);
    EXPECT_EQ(Mirar(f), (Visto{0, 0, "casa", Trafico{153600, 20480}}));
    // Then the line is idle, so the display goes back to 4 and dials again.
    EXPECT_EQ(Mirar(f), (Visto{-1, 0, "", std::nullopt}));

    // The next dial clears the memory of the call; when it fails it is -1.
    Pppd(5000, "trabajo");
    EXPECT_EQ(Mirar(f), (Visto{3, 1, "trabajo", std::nullopt}));
    QuitarProceso(5000);
    EXPECT_EQ(Mirar(f), (Visto{-1, 0, "", std::nullopt}));
}

TEST_F(FuenteLinux, EnlaceQueBajaSinDesaparecerDaCeroConSusBytesFinales) {
    FuenteConexionesLinux f(raices);
    Interfaz("ppp0", "0x1003", 10, 20); // no pppd: the interface names the entry
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "ppp0", Trafico{10, 20}}));
    Interfaz("ppp0", "0x1002", 900, 800);
    EXPECT_EQ(Mirar(f), (Visto{0, 0, "ppp0", Trafico{900, 800}}));
    EXPECT_EQ(Mirar(f).estado, -1) << "una interfaz caida no es una llamada que empieza";
    Interfaz("ppp0", "0x1003", 900, 800);
    EXPECT_EQ(Mirar(f).estado, 2);
}

TEST_F(FuenteLinux, UnPppdQueRemarcaEnSeguidaDejaVerElFinDeLaLlamada) {
    FuenteConexionesLinux f(raices);
    Pppd(300, "casa");
    Interfaz("ppp0", "0x10d1", 1, 2);
    Escribir(raices.run / "ppp0.pid", "300\n");
    EXPECT_EQ(Mirar(f).estado, 2);
    // "persist": the link drops and the same pppd dials again at once.
    QuitarInterfaz("ppp0");
    EXPECT_EQ(Mirar(f), (Visto{0, 1, "casa", Trafico{1, 2}}));
    EXPECT_EQ(Mirar(f), (Visto{3, 1, "casa", std::nullopt}));
}

// A drop and redial between two looks, under the same interface name: the
// kernel gave the new interface another index (and pppd may be another one),
// so the source tells the end of one session and the start of the next.
TEST_F(FuenteLinux, UnaInterfazRehechaEntreDosMiradasEsOtraSesion) {
    FuenteConexionesLinux f(raices);
    Pppd(300, "casa");
    Interfaz("ppp0", "0x10d1", 700, 70);
    Escribir(raices.sys / "class" / "net" / "ppp0" / "ifindex", "5\n");
    Escribir(raices.run / "ppp0.pid", "300\n");
    EXPECT_EQ(Mirar(f).estado, 2);
    EXPECT_EQ(l.Enlace, "ppp0#5#300");

    // Same pppd (persist), new interface: its counters start again.
    QuitarInterfaz("ppp0");
    Interfaz("ppp0", "0x10d1", 10, 1);
    Escribir(raices.sys / "class" / "net" / "ppp0" / "ifindex", "6\n");
    EXPECT_EQ(Mirar(f), (Visto{0, 1, "casa", Trafico{700, 70}}));
    EXPECT_EQ(l.Enlace, "ppp0#5#300") << "el 0 nombra la sesion que acabo";
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{10, 1}}));
    EXPECT_EQ(l.Enlace, "ppp0#6#300");

    // Same index would not be seen again, but another pppd is another session.
    QuitarProceso(300);
    Pppd(301, "casa");
    Escribir(raices.run / "ppp0.pid", "301\n");
    EXPECT_EQ(Mirar(f).estado, 0);
    EXPECT_EQ(Mirar(f).estado, 2);
    EXPECT_EQ(l.Pid, 301);
}

// `demand`: pppd pone la interfaz arriba al arrancar y la deja entre
// llamadas. Solo la marca que el gancho deja en ip-up (y quita en ip-down)
// dice que hay llamada; sin ella no hay nada, ni siquiera marcacion.
TEST_F(FuenteLinux, ConDemandSoloLaMarcaDelGanchoEsUnaLlamada) {
    FuenteConexionesLinux f(raices);
    Escribir(raices.peers / "casa", "# por demanda\n/dev/ttyS0\n  demand   # marca\nidle 60\n");
    Pppd(500, "casa");
    Interfaz("ppp0", "0x10d1", 100, 50); // lo que paso antes de esta llamada
    Escribir(raices.run / "ppp0.pid", "500\n");
    EXPECT_EQ(Mirar(f), (Visto{-1, 0, "", std::nullopt})) << "en espera de trafico";

    Escribir(raices.marcas / "ppp0", "500 1700000000\n");
    Interfaz("ppp0", "0x10d1", 1100, 250);
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{0, 0}}));
    EXPECT_EQ(l.Enlace, "ppp0#0#500#1700000000");
    Interfaz("ppp0", "0x10d1", 3100, 450);
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{2000, 200}})) << "solo los de esta llamada";

    // ip-down quita la marca; la interfaz sigue arriba.
    fs::remove(raices.marcas / "ppp0");
    EXPECT_EQ(Mirar(f), (Visto{0, 0, "casa", Trafico{2000, 200}}));
    EXPECT_EQ(Mirar(f).estado, -1);

    // Otra llamada entre dos miradas: otra marca, otra sesion.
    Escribir(raices.marcas / "ppp0", "500 1700000100\n");
    EXPECT_EQ(Mirar(f).estado, 2);
    Escribir(raices.marcas / "ppp0", "500 1700000200\n");
    EXPECT_EQ(Mirar(f).estado, 0);
    EXPECT_EQ(Mirar(f).estado, 2);
    // Una marca de otro pppd no vale para este.
    Escribir(raices.marcas / "ppp0", "499 1700000300\n");
    EXPECT_EQ(Mirar(f).estado, 0);
    EXPECT_EQ(Mirar(f).estado, -1);

    // "demand" en la linea de ordenes tambien cuenta; sin demand, la interfaz
    // arriba basta, con gancho o sin el.
    Proceso(600, "pppd", {"/usr/sbin/pppd", "call", "otra", "demand"});
    Interfaz("ppp1", "0x10d1", 0, 0);
    Escribir(raices.run / "ppp1.pid", "600\n");
    EXPECT_EQ(Mirar(f).estado, -1);
    Pppd(700, "trabajo");
    Interfaz("ppp2", "0x10d1", 0, 0);
    Escribir(raices.run / "ppp2.pid", "700\n");
    EXPECT_EQ(Mirar(f).entrada, "trabajo");
}

TEST_F(FuenteLinux, LaLlamadaVigiladaSigueDelanteYSuCaidaSeVeAunqueHayaOtra) {
    FuenteConexionesLinux f(raices);
    Interfaz("ppp1", "0x10d1", 5, 5);
    Pppd(20, "trabajo");
    Escribir(raices.run / "ppp1.pid", "20\n");
    EXPECT_EQ(Mirar(f).entrada, "trabajo");
    // A second link on a lower interface number comes up later: the call
    // already watched stays first.
    Interfaz("ppp0", "0x10d1", 1, 1);
    Pppd(10, "casa");
    Escribir(raices.run / "ppp0.pid", "10\n");
    EXPECT_EQ(Mirar(f), (Visto{2, 2, "trabajo", Trafico{5, 5}}));
    QuitarInterfaz("ppp1");
    QuitarProceso(20);
    EXPECT_EQ(Mirar(f), (Visto{0, 1, "trabajo", Trafico{5, 5}}));
    EXPECT_EQ(Mirar(f), (Visto{2, 1, "casa", Trafico{1, 1}}));
}

TEST_F(FuenteLinux, EncuentraElPeerPorPidfileLinknameOSoloPorProc) {
    LectorPpp lector(raices);
    // linkname: /run/ppp-NAME.pid holds the pid and the interface; this pppd
    // was started with options only, so the linkname names the entry.
    Proceso(10, "pppd", {"/usr/sbin/pppd", "/dev/ttyUSB0", "115200", "linkname", "movil"});
    Escribir(raices.run / "ppp-movil.pid", "10\nppp3\n");
    Interfaz("ppp3", "0x10d1", 0, 0);
    // A stale pid file whose number now belongs to another program.
    Escribir(raices.run / "ppp7.pid", "1\n");
    Interfaz("ppp7", "0x10d1", 0, 0);
    // A pppd with no pid file yet, found by scanning /proc alone.
    Pppd(11, "casa");
    // An interface renamed with "ifname" is still a ppp link by its type.
    Interfaz("dsl", "0x10d1", 0, 0);
    Escribir(raices.sys / "class" / "net" / "dsl" / "type", "512\n");
    EXPECT_EQ(lector.Enlaces(), (std::vector<EnlacePpp>{{"dsl", "dsl", 0, true},
                                                        {"ppp3", "movil", 10, true},
                                                        {"ppp7", "ppp7", 0, true},
                                                        {"", "casa", 11, false}}));
}

using MarcadorPpp = SistemaFalso;

TEST_F(MarcadorPpp, ColgarCuelgaTodasLasDeEsaEntradaYNadaMas) {
    std::vector<std::vector<std::string>> ordenes;
    MarcadorLinux m(raices, [&](const std::vector<std::string>& argv) {
        ordenes.push_back(argv);
        return 0;
    });
    EXPECT_EQ(m.Colgar("casa"), 0);
    EXPECT_TRUE(ordenes.empty()) << "sin conexiones no se cuelga nada";

    Pppd(30, "casa");
    Pppd(31, "casa");
    Pppd(32, "trabajo");
    Interfaz("ppp0", "0x10d1", 0, 0);
    Escribir(raices.run / "ppp0.pid", "30\n");
    EXPECT_EQ(m.Colgar("  casa "), 2);
    EXPECT_EQ(ordenes, (std::vector<std::vector<std::string>>{{"poff", "casa"}}));

    ordenes.clear();
    EXPECT_EQ(m.Colgar("otra"), 0);
    EXPECT_TRUE(ordenes.empty());
    m.Marcar("trabajo");
    EXPECT_EQ(ordenes, (std::vector<std::vector<std::string>>{{"pon", "trabajo"}}));
}

TEST(OrdenSistema, DevuelveElEstadoDeSalidaOMenosUno) {
    EXPECT_EQ(EjecutarEnSistema({"true"}), 0);
    EXPECT_EQ(EjecutarEnSistema({"sh", "-c", "exit 3"}), 3);
    EXPECT_EQ(EjecutarEnSistema({"vorimesk-orden-que-no-existe"}), -1);
    EXPECT_EQ(EjecutarEnSistema({"sh", "-c", "kill -9 $$"}), -1);
    EXPECT_EQ(EjecutarEnSistema({}), -1);
}

using EntradasPpp = prueba::CarpetaTemporal;

TEST_F(EntradasPpp, LosPeersSonLasEntradasSinCopiasNiOcultos) {
    EXPECT_TRUE(EntradasLinux(dir / "peers").Entradas().empty());
    for (const char* nombre : {"trabajo", "casa", "casa~", ".casa.swp", "casa.bak",
                               "provider.dpkg-old", "provider.dpkg-dist", "casa.orig"}) {
        Escribir(dir / "peers" / nombre, "/dev/ttyS0\n");
    }
    fs::create_directories(dir / "peers" / "viejos");
    EXPECT_EQ(EntradasLinux(dir / "peers").Entradas(),
              (std::vector<std::string>{"casa", "trabajo"}));
}

class ModemsTty : public prueba::CarpetaTemporal {
protected:
    // A tty in sysfs whose "device" points at `dispositivo` below sys/devices,
    // with its UART type when given.
    void Tty(const std::string& nombre, const std::string& dispositivo, const char* tipo = "") {
        const fs::path clase = dir / "sys" / "class" / "tty" / nombre;
        fs::create_directories(clase);
        if (*tipo != '\0') {
            Escribir(clase / "type", tipo);
        }
        if (!dispositivo.empty()) {
            fs::create_directories(dir / "sys" / "devices" / dispositivo);
            fs::create_directory_symlink(fs::path("../../../devices") / dispositivo,
                                         clase / "device");
        }
    }
    void Atributo(const std::string& dispositivo, const std::string& nombre,
                  const std::string& valor) {
        Escribir(dir / "sys" / "devices" / dispositivo / nombre, valor + "\n");
    }
};

TEST_F(ModemsTty, SoloPuertosConModemYSuNombreDeModelo) {
    Tty("tty0", "");
    Tty("ttyS0", "platform/serial8250/tty/ttyS0", "4\n"); // a 16550A
    Tty("ttyS1", "platform/serial8250/tty/ttyS1", "0\n"); // no UART
    Tty("ttyS10", "pci/0000:05:00.0/tty/ttyS10", "4\n");
    Tty("ttyS2", "");
    Tty("ttyAMA0", "amba/ttyAMA0");
    // usb-serial: port device, USB interface, USB device with the names.
    Tty("ttyUSB0", "usb1/1-1/1-1:1.0/ttyUSB0");
    Atributo("usb1/1-1", "manufacturer", "Acme");
    Atributo("usb1/1-1", "product", "Fax Modem 56K");
    // CDC ACM: the tty's device is the USB interface.
    Tty("ttyACM0", "usb1/1-2/1-2:1.0");
    Atributo("usb1/1-2", "manufacturer", "Conexant");
    Atributo("usb1/1-2", "product", "Conexant USB Modem");
    Tty("ttyACM1", "usb1/1-3/1-3:1.2");
    Atributo("usb1/1-3/1-3:1.2", "interface", "Modem de datos");

    const fs::path log = "/var/spool/vorimesk/modemlog.txt";
    std::string vistos;
    for (const auto& m : ModemsLinux(dir / "sys", log).Modems()) {
        vistos += m.clave + "=" + m.modelo + ";";
        EXPECT_EQ(m.rutaLog, log);
    }
    EXPECT_EQ(vistos, "ttyACM0=Conexant USB Modem;ttyACM1=Modem de datos;ttyS0=ttyS0;ttyS10=ttyS10;"
                      "ttyUSB0=Acme Fax Modem 56K;");
    EXPECT_TRUE(ModemsLinux(dir / "nada", log).Modems().empty());
}

} // namespace
