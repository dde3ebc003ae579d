// Helper of the real-link test, run inside a network namespace (ip netns exec)
// so that /sys shows that namespace's interfaces. One Linux connection source
// lives through the steps given as arguments, in order:
//   mirar                  prints "ESTADO COUNT ENTRADA RX TX" ("-" when unknown)
//   orden:TEXTO            runs TEXTO with the shell (ip link set ppp0 up...)
//   enviar:IP:PUERTO:N     sends one UDP datagram of N bytes
//   hasta-tx:N             waits (2 s at most) until the link has sent N bytes
//                          more than at the last "mirar", then does "mirar"
//   contadores:IFACE       prints "RX TX" straight from sysfs

#include "platform/linux/FuenteConexionesLinux.h"

#include <arpa/inet.h>
#include <chrono>
#include <fstream>
#include <iostream>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

using namespace vorimesk;

namespace {

void Enviar(const std::string& destino) {
    const auto a = destino.find(':'), b = destino.find(':', a + 1);
    sockaddr_in dir{};
    dir.sin_family = AF_INET;
    dir.sin_port = htons(static_cast<std::uint16_t>(std::stoi(destino.substr(a + 1, b - a - 1))));
    ::inet_pton(AF_INET, destino.substr(0, a).c_str(), &dir.sin_addr);
    const std::string datos(std::stoul(destino.substr(b + 1)), 'v');
    const int s = ::socket(AF_INET, SOCK_DGRAM, 0);
    if (::sendto(s, datos.data(), datos.size(), 0, reinterpret_cast<const sockaddr*>(&dir),
                 sizeof dir) != static_cast<ssize_t>(datos.size())) {
        std::cout << "error al enviar" << std::endl;
    }
    ::close(s);
}

std::string Texto(const std::optional<std::uint64_t>& bytes) {
    return bytes ? std::to_string(*bytes) : "-";
}

} // namespace

int main(int argc, char** argv) {
    FuenteConexionesLinux fuente{RaicesLinux{}};
    std::uint64_t enviados = 0;
    auto mirar = [&] {
        const LecturaConexion l = fuente.Leer();
        enviados = l.Enviados.value_or(0);
        std::cout << l.IntState << ' ' << l.Count << ' '
                  << (l.EntryName.empty() ? "-" : l.EntryName) << ' ' << Texto(l.Recibidos) << ' '
                  << Texto(l.Enviados) << std::endl;
    };
    for (int i = 1; i < argc; ++i) {
        const std::string paso = argv[i];
        const std::string valor = paso.substr(paso.find(':') + 1);
        if (paso == "mirar") {
            mirar();
        } else if (paso.rfind("orden:", 0) == 0) {
            std::cout.flush();
            std::system(valor.c_str());
        } else if (paso.rfind("enviar:", 0) == 0) {
            Enviar(valor);
        } else if (paso.rfind("hasta-tx:", 0) == 0) {
            const std::uint64_t meta = enviados + std::stoull(valor);
            for (int n = 0; n < 40; ++n) {
                const auto tx = fuente.Leer().Enviados;
                if (tx && *tx >= meta) {
                    break;
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(50));
            }
            mirar();
        } else if (paso.rfind("contadores:", 0) == 0) {
            const std::string d = "/sys/class/net/" + valor + "/statistics/";
            std::string rx, tx;
            std::ifstream(d + "rx_bytes") >> rx;
            std::ifstream(d + "tx_bytes") >> tx;
            std::cout << rx << ' ' << tx << std::endl;
        }
    }
    return 0;
}
