// The Linux source on a real kernel interface: a veth pair whose one end is
// named ppp0, in network namespaces of its own. Needs root and iproute2.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

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
    if (::geteuid() != 0) {
        GTEST_SKIP() << "hace falta ser root para crear un espacio de red con una interfaz ppp0";
    }
    if (Sh("ip -V") != 0) {
        GTEST_SKIP() << "no esta la orden ip (iproute2)";
    }
    BorrarRestos();
    const std::string sufijo = std::to_string(::getpid());
    Espacios e{"vorimesk-ppp-" + sufijo, "vorimesk-modem-" + sufijo};
    if (Sh("ip netns add " + e.lado) != 0 || Sh("ip netns add " + e.modem) != 0) {
        GTEST_SKIP() << "no se permite crear espacios de red aqui (ip netns add)";
    }
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

} // namespace
