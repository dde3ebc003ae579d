#include "LlamadaVista.h"

#include "core/Lineas.h"

#include <charconv>
#include <map>

namespace vorimesk {
namespace {

template <typename Entero> std::optional<Entero> Numero(const std::string& texto) {
    Entero n{};
    const auto [fin, ec] = std::from_chars(texto.data(), texto.data() + texto.size(), n);
    if (ec != std::errc() || fin != texto.data() + texto.size()) {
        return std::nullopt;
    }
    return n;
}

std::string Dos(int n) {
    return (n < 10 ? "0" : "") + std::to_string(n);
}

// "mm-dd-yyyy hh:mm:ss.00 - mensaje" with CR LF, the columns the reader uses.
std::string Linea(Fecha f, std::string_view mensaje) {
    std::string a = std::to_string(f.Año());
    a.insert(0, a.size() < 4 ? 4 - a.size() : 0, '0');
    return Dos(f.Mes()) + "-" + Dos(f.Dia()) + "-" + a + " " + Dos(f.Hora()) + ":" +
           Dos(f.Minuto()) + ":" + Dos(f.Segundo()) + ".00 - " + std::string(mensaje) + "\r\n";
}

} // namespace

std::string LlamadaVista::Texto() const {
    std::string t;
    const auto campo = [&](const char* clave, const std::string& valor) {
        t += std::string(clave) + "=" + UnaLinea(valor) + "\n";
    };
    campo("llamada", "1");
    campo("inicio", Inicio.TextoIso());
    campo("fin", Fin.TextoIso());
    campo("entrada", Entrada);
    campo("tarifa", Tarifa);
    campo("descuento", Descuento);
    campo("interfaz", Interfaz);
    campo("pid", std::to_string(Pid));
    campo("sesion", Enlace);
    campo("fechaSesion", FechaSesion ? FechaSesion->TextoIso() : "");
    campo("recibidos", std::to_string(Recibidos));
    campo("enviados", std::to_string(Enviados));
    campo("abierta", Abierta ? "1" : "0");
    campo("diario", ConDiario ? "1" : "0");
    return t;
}

std::optional<LlamadaVista> LlamadaVista::Leer(std::string_view texto) {
    std::map<std::string, std::string> campos;
    while (!texto.empty()) {
        const auto fin = texto.find('\n');
        const std::string_view linea = texto.substr(0, fin);
        texto.remove_prefix(fin == std::string_view::npos ? texto.size() : fin + 1);
        const auto igual = linea.find('=');
        if (igual != std::string_view::npos) {
            campos[std::string(linea.substr(0, igual))] = std::string(linea.substr(igual + 1));
        }
    }
    if (campos["llamada"] != "1") {
        return std::nullopt;
    }
    LlamadaVista v;
    const auto inicio = Fecha::LeerIso(campos["inicio"]);
    const auto finVisto = Fecha::LeerIso(campos["fin"]);
    const auto pid = Numero<int>(campos["pid"]);
    const auto rx = Numero<std::uint64_t>(campos["recibidos"]);
    const auto tx = Numero<std::uint64_t>(campos["enviados"]);
    if (!inicio || !finVisto || !pid || !rx || !tx || *finVisto < *inicio) {
        return std::nullopt;
    }
    v.Inicio = *inicio;
    v.Fin = *finVisto;
    v.Entrada = campos["entrada"];
    v.Tarifa = campos["tarifa"];
    v.Descuento = campos["descuento"];
    v.Interfaz = campos["interfaz"];
    v.Pid = *pid;
    v.Enlace = campos["sesion"];
    if (!campos["fechaSesion"].empty()) {
        v.FechaSesion = Fecha::LeerIso(campos["fechaSesion"]);
        if (!v.FechaSesion) {
            return std::nullopt;
        }
    }
    v.Recibidos = *rx;
    v.Enviados = *tx;
    v.Abierta = campos["abierta"] != "0";
    v.ConDiario = campos["diario"] != "0";
    return v;
}

std::string LlamadaVista::TextoModemLog() const {
    const std::string nombres = UnaLinea(Interfaz + " " + Entrada);
    return Linea(Inicio, "Modem in use: " + nombres) + Linea(Inicio, "CONNECT") +
           Linea(Fin, "Reads : " + std::to_string(Recibidos) + " bytes") +
           Linea(Fin, "Writes: " + std::to_string(Enviados) + " bytes") +
           Linea(Fin, "Modem closed.");
}

} // namespace vorimesk
