// The Linux source on a real kernel interface: a veth pair whose one end is
// named ppp0, in network namespaces of its own. Skipped, with the reason,
// where the rig probe says the machine does not allow it.

#include "CarpetaTemporal.h"
#include "GanchoPpp.h"
#include "SondaRig.h"
#include "settings/ArchivoVariables.h"
#include "settings/Settings.h"
#include "tariff/LibroPorDefecto.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

int Sh(const std::string& orden) {
    const int r = std::system((orden + " >/dev/null 2>&1").c_str());
    return WIFEXITED(r) ? WEXITSTATUS(r) : -1;
}

std::vector<std::string> Lineas(const std::string& orden) {
    std::vector<std::string> lineas;
    if (FILE* f = ::popen(orden.c_str(), "r")) {
        char buf[256];
        while (std::fgets(buf, sizeof buf, f)) {
            lineas.emplace_back(buf, std::strlen(buf) - 1);
        }
        ::pclose(f);
    }
    return lineas;
}

// Namespaces left by a run that was killed (their pid no longer runs).
void BorrarRestos() {
    for (const auto& linea : Lineas("ip netns list")) {
        const std::string nombre = linea.substr(0, linea.find(' '));
        const auto guion = nombre.rfind('-');
        if (nombre.rfind("vorimesk-", 0) == 0 && guion != std::string::npos &&
            ::kill(std::atoi(nombre.c_str() + guion + 1), 0) != 0) {
            Sh("ip netns del " + nombre);
        }
    }
}

// The namespaces go whatever the test's outcome.
struct Espacios {
    std::string lado, modem;
    ~Espacios() {
        Sh("ip netns del " + lado);
        Sh("ip netns del " + modem);
    }
};

struct Visto {
    int estado = -9, count = -9;
    std::string entrada, bytes;
    long long rx = -1, tx = -1;
};

Visto Leer(const std::string& linea) {
    Visto v;
    std::istringstream(linea) >> v.estado >> v.count >> v.entrada >> v.rx >> v.tx;
    const auto corte = linea.find(' ', linea.find(' ', linea.find(' ') + 1) + 1);
    v.bytes = corte == std::string::npos ? "" : linea.substr(corte + 1);
    return v;
}

TEST(EnlaceReal, Veth_ppp0_da_2_mientras_esta_arriba_y_0_al_caer_con_sus_bytes) {
    if (const auto motivo = vorimesk::prueba::SinRig()) {
        GTEST_SKIP() << *motivo;
    }
    BorrarRestos();
    const std::string sufijo = std::to_string(::getpid());
    Espacios e{"vorimesk-ppp-" + sufijo, "vorimesk-modem-" + sufijo};
    ASSERT_EQ(Sh("ip netns add " + e.lado), 0);
    ASSERT_EQ(Sh("ip netns add " + e.modem), 0);
    ASSERT_EQ(Sh("ip -n " + e.lado + " link add ppp0 type veth peer name modem0 netns " + e.modem),
              0);
    ASSERT_EQ(Sh("ip -n " + e.lado + " addr add 10.213.0.1/30 dev ppp0"), 0);
    ASSERT_EQ(Sh("ip -n " + e.modem + " addr add 10.213.0.2/30 dev modem0"), 0);
    ASSERT_EQ(Sh("ip -n " + e.modem + " link set modem0 up"), 0);

    // Five datagrams of 1000 bytes to the far end, which answers with ARP
    // and ICMP; then the link is taken down.
    std::string pasos = "mirar 'orden:ip link set ppp0 up' mirar";
    for (int i = 0; i < 5; ++i) {
        pasos += " enviar:10.213.0.2:9:1000";
    }
    pasos += " hasta-tx:5000 'orden:ip link set ppp0 down' mirar contadores:ppp0 mirar";
    // A /proc of its own: pppd processes of other rigs running at the same
    // time are not this link's.
    const auto l = Lineas("ip netns exec " + e.lado +
                          " unshare -p -f --mount-proc " VORIMESK_SONDA " " + pasos);
    ASSERT_EQ(l.size(), 6u) << (l.empty() ? "" : l.back());

    EXPECT_EQ(l[0], "-1 0 - - -") << "ppp0 existe pero esta abajo";
    const Visto arriba = Leer(l[1]);
    EXPECT_EQ(arriba.estado, 2);
    EXPECT_EQ(arriba.count, 1);
    EXPECT_EQ(arriba.entrada, "ppp0");
    const Visto movido = Leer(l[2]);
    EXPECT_EQ(movido.estado, 2);
    EXPECT_GE(movido.tx, arriba.tx + 5000);
    EXPECT_GT(movido.rx, 0);
    const Visto caida = Leer(l[3]);
    EXPECT_EQ(caida.estado, 0);
    EXPECT_EQ(caida.count, 0);
    EXPECT_EQ(caida.entrada, "ppp0");
    EXPECT_EQ(caida.bytes, l[4]) << "los bytes finales, leidos al caer";
    EXPECT_GE(caida.tx, movido.tx);
    EXPECT_EQ(l[5], "-1 0 - - -") << "tras el 0, la linea en reposo";
}

// ---------------------------------------------------------------------------
// From a real link to the register: links ppp0 and ppp1 come up and go down
// in the namespace while a stand-in for pppd runs the hook as Debian does
// (ip-up/ip-down wrapper, run-parts, pppd's environment; pppd's own byte
// counters and CONNECT_TIME are the stand-in's), and the meter
// (vorimesk-cli vigilar) watches the namespace's interfaces.

namespace fs = std::filesystem;
using namespace vorimesk;
using namespace vorimesk::prueba;

long long Ahora() {
    return static_cast<long long>(std::time(nullptr));
}

void Dormir(int segundos) {
    std::this_thread::sleep_for(std::chrono::seconds(segundos));
}

// The local time text of a moment, as the register lists it.
std::string HoraLocal(long long t) {
    const std::time_t tt = static_cast<std::time_t>(t);
    std::tm l{};
    localtime_r(&tt, &l);
    char texto[16];
    std::strftime(texto, sizeof texto, "%H:%M:%S", &l);
    return texto;
}

std::string Duracion(long long s) {
    char texto[64];
    std::snprintf(texto, sizeof texto, "%02lld:%02lld:%02lld", s / 3600, s / 60 % 60, s % 60);
    return texto;
}

class EnlaceRealDiario : public CarpetaTemporal {
protected:
    void SetUp() override {
        if (const auto motivo = SinRig()) {
            GTEST_SKIP() << *motivo;
        }
        BorrarRestos();
        const std::string sufijo = std::to_string(::getpid());
        e = {"vorimesk-diario-" + sufijo, "vorimesk-central-" + sufijo};
        ASSERT_EQ(Sh("ip netns add " + e.lado), 0);
        ASSERT_EQ(Sh("ip netns add " + e.modem), 0);
        for (const char* n : {"0", "1"}) {
            ASSERT_EQ(Sh("ip -n " + e.lado + " link add ppp" + n + " type veth peer name modem" +
                         n + " netns " + e.modem),
                      0);
            ASSERT_EQ(Sh("ip -n " + e.modem + " link set modem" + std::string(n) + " up"), 0);
        }
        InstalarGancho(dir, diario);
        fs::create_directories(datos);
        InstalarLibroPorDefecto(datos);
        Settings ajustes = ValoresPorDefecto();
        ajustes.EntradasConexion = {{"casa", "Provincial", "Ninguno"},
                                    {"trabajo", "Interprovincial", "Ninguno"}};
        ASSERT_FALSE(GuardarVariables(datos / Settings::kNombreArchivo, ajustes).has_value());
    }
    void TearDown() override { Parar(); }

    // The link comes up, then pppd runs ip-up; its time starts there.
    long long Subir(const EnlaceFalso& enlace) {
        EXPECT_EQ(Sh("ip -n " + e.lado + " link set " + enlace.interfaz + " up"), 0);
        const long long t = Ahora();
        EXPECT_EQ(prueba::Subir(dir, enlace), 0);
        return t;
    }
    // pppd takes the interface down, then runs ip-down with the link's time.
    long long Bajar(const EnlaceFalso& enlace, long long subida, std::uint64_t rx,
                    std::uint64_t tx) {
        EXPECT_EQ(Sh("ip -n " + e.lado + " link set " + enlace.interfaz + " down"), 0);
        const long long segundos = Ahora() - subida;
        EXPECT_EQ(prueba::Bajar(dir, enlace, std::to_string(segundos), rx, tx), 0);
        return segundos;
    }

    // The meter, inside the namespace, over the test's data folder and journal.
    void Vigilar(const std::vector<std::string>& mas = {}) {
        std::vector<std::string> args = {"ip",
                                         "netns",
                                         "exec",
                                         e.lado,
                                         "env",
                                         "VORIMESK_SESIONES=" + diario.string(),
                                         "XDG_RUNTIME_DIR=" + datos.string(),
                                         VORIMESK_CLI,
                                         "--datos",
                                         datos.string(),
                                         "vigilar"};
        args.insert(args.end(), mas.begin(), mas.end());
        std::vector<char*> argv;
        for (auto& a : args) {
            argv.push_back(a.data());
        }
        argv.push_back(nullptr);
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(),
                                         O_WRONLY | O_CREAT | O_APPEND, 0600);
        posix_spawn_file_actions_addopen(&acciones, 2, errores.c_str(),
                                         O_WRONLY | O_CREAT | O_APPEND, 0600);
        ASSERT_EQ(::posix_spawnp(&contador, "ip", &acciones, nullptr, argv.data(), environ), 0);
        posix_spawn_file_actions_destroy(&acciones);
        Dormir(2); // the meter is up and has looked at the links once
    }
    // Stops the meter as a user would, which saves what it holds.
    void Parar() {
        if (contador > 0) {
            ::kill(contador, SIGTERM);
            int estado = 0;
            ::waitpid(contador, &estado, 0);
            contador = 0;
        }
    }

    nlohmann::json Llamadas() {
        std::string texto;
        if (FILE* f = ::popen(
                (std::string(VORIMESK_CLI) + " --datos " + datos.string() + " registro --json")
                    .c_str(),
                "r")) {
            char buf[4096];
            for (std::size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) {
                texto.append(buf, n);
            }
            ::pclose(f);
        }
        return nlohmann::json::parse(texto, nullptr, false)["llamadas"];
    }
    // Waits (15 s at most) until the register holds `n` calls.
    nlohmann::json EsperarLlamadas(std::size_t n) {
        nlohmann::json ll;
        for (int i = 0; i < 30; ++i) {
            ll = Llamadas();
            if (ll.is_array() && ll.size() >= n) {
                break;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(500));
        }
        return ll;
    }
    // The journal's record of a link, by interface.
    std::map<std::string, std::string> Sesion(const std::string& interfaz) {
        for (const auto& n : Registros(diario)) {
            auto c = Campos(diario / n);
            if (n.ends_with(".sesion") && c["interfaz"] == interfaz) {
                return c;
            }
        }
        ADD_FAILURE() << "no hay sesion de " << interfaz;
        return {};
    }
    void EsLaLlamada(const nlohmann::json& ll, const std::string& interfaz,
                     const std::string& entrada, const std::string& tarifa, long long segundos,
                     int kbRecibidos, int kbEnviados) {
        auto s = Sesion(interfaz);
        SCOPED_TRACE(interfaz);
        EXPECT_EQ(ll["Hora"], HoraLocal(std::stoll(s["inicio"])));
        EXPECT_EQ(ll["Duracion"], Duracion(segundos)) << "el tiempo de pppd";
        EXPECT_EQ(ll["Conexion"], entrada);
        EXPECT_EQ(ll["Tarifa"], tarifa);
        EXPECT_EQ(ll["Recibidos"], kbRecibidos);
        EXPECT_EQ(ll["Enviados"], kbEnviados);
    }
    std::string Salida() const { return Leer(salida) + Leer(errores); }

    Espacios e;
    fs::path diario = dir / "lib" / "sesiones";
    fs::path datos = dir / "datos";
    fs::path salida = dir / "vigilar.txt";
    fs::path errores = dir / "vigilar-errores.txt";
    pid_t contador = 0;
};

TEST_F(EnlaceRealDiario, DosEnlacesQueSeSolapanDanDosLlamadasConSuTiempoBytesYTarifa) {
    Vigilar();
    EnlaceFalso casa, trabajo;
    trabajo.interfaz = "ppp1";
    trabajo.peer = "trabajo";
    trabajo.pid = 4343;
    // ppp0 up, ppp1 up, ppp0 down, ppp1 down.
    const long long t0 = Subir(casa);
    Dormir(2);
    const long long t1 = Subir(trabajo);
    Dormir(2);
    const long long s0 = Bajar(casa, t0, 153600, 20480);
    Dormir(3);
    const long long s1 = Bajar(trabajo, t1, 1048576, 2560);
    const nlohmann::json ll = EsperarLlamadas(2);
    Parar();
    const nlohmann::json fin = Llamadas();
    ASSERT_TRUE(fin.is_array()) << Salida();
    ASSERT_EQ(fin.size(), 2u) << fin.dump() << "\n" << Salida();
    EXPECT_EQ(fin, ll) << "lo anotado al acabar cada llamada ya estaba guardado";
    EsLaLlamada(fin[0], "ppp0", "casa", "Provincial", s0, 150, 20);
    EsLaLlamada(fin[1], "ppp1", "trabajo", "Interprovincial", s1, 1024, 2);
    EXPECT_EQ(Leer(errores), "");
}

TEST_F(EnlaceRealDiario, UnEnlaceConElContadorCerradoSeAnotaAlAbrirloConLaTarifaDeSuEntrada) {
    EnlaceFalso casa;
    const long long t0 = Subir(casa);
    Dormir(2);
    const long long s0 = Bajar(casa, t0, 4096, 1024);
    ASSERT_TRUE(Llamadas().empty());
    Vigilar({"--segundos", "1"});
    const nlohmann::json ll = EsperarLlamadas(1);
    Parar();
    ASSERT_EQ(ll.size(), 1u) << Salida();
    EsLaLlamada(ll[0], "ppp0", "casa", "Provincial", s0, 4, 1);
    EXPECT_NE(Salida().find("Anotada en el registro"), std::string::npos) << Salida();

    // The meter again: nothing is taken twice.
    Vigilar({"--segundos", "1"});
    Parar();
    EXPECT_EQ(Llamadas().size(), 1u);
}

TEST_F(EnlaceRealDiario, UnScriptLentoAntesDelGanchoNoCambiaLaHoraNiLaDuracion) {
    EscribirEjecutable(dir / "ip-down.d" / "00lento", "#!/bin/sh\nsleep 3\n");
    Vigilar();
    EnlaceFalso casa;
    const long long t0 = Subir(casa);
    Dormir(3);
    const long long s0 = Bajar(casa, t0, 10240, 5120);
    const nlohmann::json ll = EsperarLlamadas(1);
    Parar();
    ASSERT_EQ(ll.size(), 1u) << Salida();
    EsLaLlamada(ll[0], "ppp0", "casa", "Provincial", s0, 10, 5);
    EXPECT_LE(std::abs(std::stoll(Sesion("ppp0")["inicio"]) - t0), 1)
        << "el inicio es el de pppd, no el del gancho tres segundos despues";
}

} // namespace
