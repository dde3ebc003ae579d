#include "PropiasAnotadas.h"

#include "core/Archivo.h"
#include "core/Lineas.h"

#include <algorithm>
#include <charconv>

namespace vorimesk {
namespace {

constexpr std::int64_t kHolgura = 2;

std::optional<PropiaAnotada> LeerNota(std::string_view linea) {
    std::vector<std::string> c;
    while (true) {
        const auto tab = linea.find('\t');
        c.emplace_back(linea.substr(0, tab));
        if (tab == std::string_view::npos) {
            break;
        }
        linea.remove_prefix(tab + 1);
    }
    if (c.size() != 5) {
        return std::nullopt;
    }
    PropiaAnotada n;
    n.Interfaz = c[0];
    const auto [fin, ec] = std::from_chars(c[1].data(), c[1].data() + c[1].size(), n.Pid);
    const auto inicio = Fecha::LeerIso(c[2]);
    const auto final = Fecha::LeerIso(c[3]);
    if (ec != std::errc() || fin != c[1].data() + c[1].size() || !inicio || !final) {
        return std::nullopt;
    }
    n.Inicio = *inicio;
    n.Fin = *final;
    n.Entrada = c[4];
    return n;
}

std::string TextoNota(const PropiaAnotada& n) {
    const auto limpio = [](const std::string& s) {
        std::string t = UnaLinea(s);
        std::replace(t.begin(), t.end(), '\t', ' ');
        return t;
    };
    return limpio(n.Interfaz) + "\t" + std::to_string(n.Pid) + "\t" + n.Inicio.TextoIso() + "\t" +
           n.Fin.TextoIso() + "\t" + limpio(n.Entrada) + "\n";
}

} // namespace

PropiasAnotadas::PropiasAnotadas(std::filesystem::path carpetaDatos)
    : ruta_(std::move(carpetaDatos) / kArchivo) {}

std::vector<PropiaAnotada> PropiasAnotadas::Leer() const {
    std::vector<PropiaAnotada> notas;
    if (!ExisteArchivo(ruta_)) {
        return notas;
    }
    const std::string texto = LeerArchivo(ruta_);
    for (const std::string_view linea : DividirLineas(texto)) {
        if (auto n = LeerNota(linea)) {
            notas.push_back(std::move(*n));
        }
    }
    return notas;
}

void PropiasAnotadas::Añadir(const PropiaAnotada& nota) const {
    std::vector<PropiaAnotada> notas = Leer();
    notas.push_back(nota);
    Guardar(notas);
}

void PropiasAnotadas::Guardar(const std::vector<PropiaAnotada>& notas) const {
    if (notas.empty()) {
        BorrarArchivo(ruta_);
        return;
    }
    std::string texto;
    const std::size_t desde = notas.size() > kMaximo ? notas.size() - kMaximo : 0;
    for (std::size_t i = desde; i < notas.size(); ++i) {
        texto += TextoNota(notas[i]);
    }
    std::filesystem::create_directories(ruta_.parent_path());
    EscribirArchivoSeguro(ruta_, texto, kSoloUsuario);
}

std::optional<std::size_t> PropiasAnotadas::Buscar(const std::vector<PropiaAnotada>& notas,
                                                   const std::string& interfaz, int pid,
                                                   Fecha inicio, Fecha fin) {
    std::optional<std::size_t> mejor;
    std::int64_t comun = -1;
    for (std::size_t i = 0; i < notas.size(); ++i) {
        const PropiaAnotada& n = notas[i];
        if (interfaz.empty() || n.Interfaz != interfaz ||
            (n.Pid != 0 && pid != 0 && n.Pid != pid)) {
            continue;
        }
        const std::int64_t desde = std::max(n.Inicio.Segundos(), inicio.Segundos() - kHolgura);
        const std::int64_t hasta = std::min(n.Fin.Segundos(), fin.Segundos() + kHolgura);
        if (hasta >= desde && hasta - desde > comun) {
            comun = hasta - desde;
            mejor = i;
        }
    }
    return mejor;
}

} // namespace vorimesk
