#include "LectorPpp.h"

#include "platform/linux/TextoSistema.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

constexpr unsigned long kIffUp = 0x1;
constexpr const char* kTipoPpp = "512"; // ARPHRD_PPP, for interfaces renamed with "ifname"

std::optional<int> Pid(std::string_view texto) {
    int pid = 0;
    const auto [fin, ec] = std::from_chars(texto.data(), texto.data() + texto.size(), pid);
    if (ec != std::errc() || fin != texto.data() + texto.size() || pid <= 0) {
        return std::nullopt;
    }
    return pid;
}

std::optional<std::uint64_t> Contador(const std::optional<std::string>& texto) {
    if (!texto) {
        return std::nullopt;
    }
    std::uint64_t n = 0;
    const auto [fin, ec] = std::from_chars(texto->data(), texto->data() + texto->size(), n);
    if (ec != std::errc() || fin != texto->data() + texto->size()) {
        return std::nullopt;
    }
    return n;
}

std::string Entrada(const std::string& peer, const std::string& linkname,
                    const std::string& porDefecto) {
    if (!peer.empty()) {
        return peer;
    }
    return linkname.empty() ? porDefecto : linkname;
}

std::vector<std::string> Lineas(const std::string& texto) {
    std::vector<std::string> lineas;
    std::size_t inicio = 0;
    while (inicio <= texto.size()) {
        auto fin = texto.find('\n', inicio);
        if (fin == std::string::npos) {
            fin = texto.size();
        }
        std::string linea = texto.substr(inicio, fin - inicio);
        const auto ultimo = linea.find_last_not_of(" \t\r");
        linea.erase(ultimo == std::string::npos ? 0 : ultimo + 1);
        lineas.push_back(linea);
        inicio = fin + 1;
    }
    return lineas;
}

} // namespace

LectorPpp::LectorPpp(RaicesLinux raices) : raices_(std::move(raices)) {}

bool LectorPpp::EsPpp(const std::string& nombre) const {
    return nombre.rfind("ppp", 0) == 0 ||
           LeerTextoSistema(raices_.sys / "class" / "net" / nombre / "type") == kTipoPpp;
}

bool LectorPpp::EstaArriba(const std::string& nombre) const {
    const fs::path dir = raices_.sys / "class" / "net" / nombre;
    if (const auto flags = LeerTextoSistema(dir / "flags")) {
        return (std::strtoul(flags->c_str(), nullptr, 0) & kIffUp) != 0;
    }
    // ppp links carry no carrier, so the kernel calls them "unknown" while up.
    const auto estado = LeerTextoSistema(dir / "operstate");
    return estado == "up" || estado == "unknown";
}

std::vector<std::string> LectorPpp::InterfacesArriba() const {
    std::vector<std::string> nombres;
    std::error_code ec;
    for (fs::directory_iterator it(raices_.sys / "class" / "net", ec), fin; !ec && it != fin;
         it.increment(ec)) {
        const std::string nombre = it->path().filename().string();
        if (EsPpp(nombre) && EstaArriba(nombre)) {
            nombres.push_back(nombre);
        }
    }
    std::sort(nombres.begin(), nombres.end(), OrdenNatural);
    return nombres;
}

// The peer of a live pppd; nothing when the pid is not a pppd (a stale pid
// file whose number now belongs to another program).
std::optional<LectorPpp::Proceso> LectorPpp::PeerDe(int pid) const {
    const auto argv = LeerListaNul(raices_.proc / std::to_string(pid) / "cmdline");
    if (argv.empty() || fs::path(argv[0]).filename() != "pppd") {
        return std::nullopt;
    }
    Proceso p;
    for (std::size_t i = 1; i < argv.size(); ++i) {
        if (argv[i] == "call" && i + 1 < argv.size()) {
            p.peer = argv[i + 1];
        }
        p.demanda = p.demanda || argv[i] == "demand";
    }
    p.demanda = p.demanda || PeerConDemanda(p.peer);
    return p;
}

// An option line "demand" in the peer's file (comments and blanks aside).
bool LectorPpp::PeerConDemanda(const std::string& peer) const {
    if (peer.empty() || peer.find('/') != std::string::npos) {
        return false;
    }
    for (std::string linea : Lineas(LeerTextoSistema(raices_.peers / peer).value_or(""))) {
        linea.erase(std::min(linea.find('#'), linea.size()));
        const auto inicio = linea.find_first_not_of(" \t");
        const auto fin = linea.find_last_not_of(" \t");
        if (inicio != std::string::npos && linea.substr(inicio, fin + 1 - inicio) == "demand") {
            return true;
        }
    }
    return false;
}

// The start the hook marked for this interface and pppd, when it did.
std::optional<std::string> LectorPpp::Marca(const std::string& interfaz, int pid) const {
    const auto texto = LeerTextoSistema(raices_.marcas / interfaz);
    if (!texto) {
        return std::nullopt;
    }
    const auto espacio = texto->find(' ');
    const auto suyo = Pid(std::string_view(*texto).substr(0, espacio));
    if (!suyo || *suyo != pid || espacio == std::string::npos) {
        return std::nullopt;
    }
    return texto->substr(espacio + 1);
}

std::vector<LectorPpp::Pppd> LectorPpp::Procesos() const {
    std::vector<Pppd> procesos;
    std::error_code ec;
    for (fs::directory_iterator it(raices_.proc, ec), fin; !ec && it != fin; it.increment(ec)) {
        const auto pid = Pid(it->path().filename().string());
        if (!pid) {
            continue;
        }
        // comm is a cheap first filter among hundreds of processes.
        const auto comm = LeerTextoSistema(it->path() / "comm");
        if (comm && *comm != "pppd") {
            continue;
        }
        if (const auto p = PeerDe(*pid)) {
            procesos.push_back({*pid, p->peer, {}, {}, p->demanda});
        }
    }
    std::sort(procesos.begin(), procesos.end(),
              [](const Pppd& a, const Pppd& b) { return a.pid < b.pid; });
    LeerPidfiles(procesos);
    return procesos;
}

// pppd writes /run/pppN.pid (its pid) for the interface it made, and with
// "linkname NAME" also /run/ppp-NAME.pid (its pid, then the interface).
void LectorPpp::LeerPidfiles(std::vector<Pppd>& procesos) const {
    std::error_code ec;
    for (fs::directory_iterator it(raices_.run, ec), fin; !ec && it != fin; it.increment(ec)) {
        const std::string archivo = it->path().filename().string();
        if (archivo.rfind("ppp", 0) != 0 || it->path().extension() != ".pid") {
            continue;
        }
        const auto texto = LeerTextoSistema(it->path());
        const auto lineas = Lineas(texto.value_or(""));
        const auto pid = Pid(lineas.front());
        const auto p = std::find_if(procesos.begin(), procesos.end(),
                                    [&](const Pppd& x) { return pid && x.pid == *pid; });
        if (p == procesos.end()) {
            continue;
        }
        const std::string nombre = it->path().stem().string();
        if (nombre.rfind("ppp-", 0) == 0) {
            p->linkname = nombre.substr(4);
            if (lineas.size() > 1 && !lineas[1].empty()) {
                p->interfaz = lineas[1];
            }
        } else {
            p->interfaz = nombre;
        }
    }
}

std::vector<EnlacePpp> LectorPpp::Enlaces() const {
    auto procesos = Procesos();
    std::vector<EnlacePpp> enlaces;
    for (const auto& interfaz : InterfacesArriba()) {
        const auto p = std::find_if(procesos.begin(), procesos.end(),
                                    [&](const Pppd& x) { return x.interfaz == interfaz; });
        if (p == procesos.end()) {
            enlaces.push_back({interfaz, interfaz, 0, true, Indice(interfaz)});
            continue;
        }
        std::string marca;
        if (p->demanda) {
            const auto m = Marca(interfaz, p->pid);
            if (!m) {
                procesos.erase(p); // demand idle: no call and no dial
                continue;
            }
            marca = *m;
        }
        enlaces.push_back({interfaz, Entrada(p->peer, p->linkname, interfaz), p->pid, true,
                           Indice(interfaz), marca});
        procesos.erase(p);
    }
    for (const auto& p : procesos) {
        if (p.demanda && !p.interfaz.empty()) {
            continue; // its interface is there but down: idle, not dialling
        }
        enlaces.push_back({p.interfaz, Entrada(p.peer, p.linkname, ""), p.pid, false});
    }
    return enlaces;
}

long LectorPpp::Indice(const std::string& interfaz) const {
    const auto texto = LeerTextoSistema(raices_.sys / "class" / "net" / interfaz / "ifindex");
    const auto n = Contador(texto);
    return n ? static_cast<long>(*n) : 0;
}

std::optional<Trafico> LectorPpp::Bytes(const std::string& interfaz) const {
    const fs::path estadisticas = raices_.sys / "class" / "net" / interfaz / "statistics";
    const auto rx = Contador(LeerTextoSistema(estadisticas / "rx_bytes"));
    const auto tx = Contador(LeerTextoSistema(estadisticas / "tx_bytes"));
    if (!rx || !tx) {
        return std::nullopt;
    }
    return Trafico{*rx, *tx};
}

} // namespace vorimesk
