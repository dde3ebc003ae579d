#include "DiarioSesiones.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "platform/LineasModemLog.h"

#include <algorithm>
#include <charconv>
#include <ctime>
#include <map>
#include <sys/stat.h>
#include <tuple>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

constexpr std::string_view kExtension = ".sesion";
// A link longer than a year is no phone call: the record is damaged.
constexpr std::int64_t kSegundosMaximos = 366 * Fecha::kSegundosDia;

template <typename T> std::optional<T> Numero(const std::string& texto) {
    T n{};
    const auto [fin, ec] = std::from_chars(texto.data(), texto.data() + texto.size(), n);
    if (texto.empty() || ec != std::errc() || fin != texto.data() + texto.size() || n < 0) {
        return std::nullopt;
    }
    return n;
}

std::map<std::string, std::string> Claves(std::string_view texto) {
    std::map<std::string, std::string> claves;
    while (!texto.empty()) {
        const auto salto = texto.find('\n');
        const std::string_view linea = texto.substr(0, salto);
        texto.remove_prefix(salto == std::string_view::npos ? texto.size() : salto + 1);
        const auto igual = linea.find('=');
        if (igual != std::string_view::npos) {
            claves.emplace(linea.substr(0, igual), linea.substr(igual + 1));
        }
    }
    return claves;
}

} // namespace

std::optional<SesionPpp> LeerSesionPpp(std::string nombre, std::string_view texto) {
    auto c = Claves(texto);
    const auto pid = Numero<int>(c["pid"]);
    const auto inicio = Numero<std::int64_t>(c["inicio"]);
    const auto fin = Numero<std::int64_t>(c["fin"]);
    const auto recibidos = Numero<std::uint64_t>(c["recibidos"]);
    const auto enviados = Numero<std::uint64_t>(c["enviados"]);
    if (c["formato"] != "1" || c["interfaz"].empty() || !pid || !inicio || !fin || !recibidos ||
        !enviados || *fin < *inicio || *fin - *inicio > kSegundosMaximos) {
        return std::nullopt;
    }
    SesionPpp s;
    s.nombre = std::move(nombre);
    s.interfaz = c["interfaz"];
    s.pid = *pid;
    s.entrada = c["entrada"];
    s.tty = c["tty"];
    // Digits only: the speed stands on the log's "CONNECT" line.
    const std::string& v = c["velocidad"];
    s.velocidad = std::all_of(v.begin(), v.end(), [](char x) { return x >= '0' && x <= '9'; })
                      ? v
                      : std::string();
    s.inicio = *inicio;
    s.fin = *fin;
    s.bytes = {*recibidos, *enviados};
    return s;
}

LecturaDiario LeerDiario(const fs::path& diario, const std::set<std::string>& saltar) {
    LecturaDiario l;
    std::error_code ec;
    fs::directory_iterator it(diario, ec);
    if (ec) {
        if (ec != std::errc::no_such_file_or_directory) {
            l.error = "No se puede leer el diario de sesiones de pppd \"" + diario.string() +
                      "\": " + ec.message() +
                      ". Para leerlo, el usuario debe estar en el grupo dip.";
        }
        return l;
    }
    for (fs::directory_iterator fin; it != fin; it.increment(ec)) {
        const fs::path ruta = it->path();
        const std::string nombre = ruta.filename().string();
        struct stat s {};
        // Only plain files of root's own making count.
        if (nombre.front() == '.' || !nombre.ends_with(kExtension) ||
            ::lstat(ruta.c_str(), &s) != 0 || !S_ISREG(s.st_mode)) {
            continue;
        }
        l.nombres.insert(nombre);
        if (saltar.contains(nombre)) {
            continue;
        }
        try {
            if (auto sesion = LeerSesionPpp(nombre, LeerArchivo(ruta))) {
                l.sesiones.push_back(std::move(*sesion));
            }
        } catch (const ErrorArchivo&) {
            // removed by the hook's pruning meanwhile, or not readable
        }
    }
    std::sort(l.sesiones.begin(), l.sesiones.end(), [](const SesionPpp& a, const SesionPpp& b) {
        return std::tie(a.fin, a.inicio, a.nombre) < std::tie(b.fin, b.inicio, b.nombre);
    });
    return l;
}

Fecha FechaLocal(std::int64_t segundos) {
    const std::time_t t = static_cast<std::time_t>(segundos);
    std::tm local{};
    localtime_r(&t, &local);
    return Fecha::Crear(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                        local.tm_min, local.tm_sec > 59 ? 59 : local.tm_sec);
}

std::string ModemLogDeSesion(const SesionPpp& s) {
    return BloqueSubida(FechaLocal(s.inicio), {s.interfaz, s.tty, s.Entrada(), s.velocidad}) +
           BloqueBajada(FechaLocal(s.fin), s.bytes);
}

} // namespace vorimesk
