#include "EstadoContador.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "core/cTiempo.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace vorimesk {
namespace {

// Values are one line each: a line break inside an entry name would start a
// key of its own.
std::string UnaLinea(std::string v) {
    for (char& c : v) {
        if (c == '\n' || c == '\r') {
            c = ' ';
        }
    }
    return v;
}

template <typename N> void LeerNumero(std::string_view v, N& destino) {
    N n{};
    const auto [fin, error] = std::from_chars(v.data(), v.data() + v.size(), n);
    if (error == std::errc() && fin == v.data() + v.size()) {
        destino = n;
    }
}

} // namespace

std::string TextoEstadoContador(const EstadoContador& e) {
    std::ostringstream s;
    s << "pid=" << e.pid << "\n"
      << "hora=" << UnaLinea(e.hora) << "\n"
      << "estado=" << e.estado << "\n"
      << "texto=" << UnaLinea(e.texto) << "\n"
      << "conexion=" << UnaLinea(e.conexion) << "\n"
      << "inicio=" << UnaLinea(e.inicio) << "\n"
      << "tarifa=" << UnaLinea(e.tarifa) << "\n"
      << "descuento=" << UnaLinea(e.descuento) << "\n"
      << "suceso=" << UnaLinea(e.suceso) << "\n";
    return s.str();
}

EstadoContador LeerEstadoContador(std::string_view texto) {
    EstadoContador e;
    while (!texto.empty()) {
        const std::size_t fin = texto.find('\n');
        const std::string_view linea = texto.substr(0, fin);
        texto = fin == std::string_view::npos ? std::string_view() : texto.substr(fin + 1);
        const std::size_t igual = linea.find('=');
        if (igual == std::string_view::npos) {
            continue;
        }
        const std::string_view clave = linea.substr(0, igual);
        const std::string_view valor = linea.substr(igual + 1);
        if (clave == "pid") {
            LeerNumero(valor, e.pid);
        } else if (clave == "estado") {
            LeerNumero(valor, e.estado);
        } else if (clave == "hora") {
            e.hora = valor;
        } else if (clave == "texto") {
            e.texto = valor;
        } else if (clave == "conexion") {
            e.conexion = valor;
        } else if (clave == "inicio") {
            e.inicio = valor;
        } else if (clave == "tarifa") {
            e.tarifa = valor;
        } else if (clave == "descuento") {
            e.descuento = valor;
        } else if (clave == "suceso") {
            e.suceso = valor;
        }
    }
    return e;
}

void GuardarEstadoContador(const std::filesystem::path& carpeta, const EstadoContador& e) {
    EscribirArchivoSeguro(carpeta / EstadoContador::kNombreArchivo, TextoEstadoContador(e),
                          kSoloUsuario);
}

std::optional<EstadoContador> CargarEstadoContador(const std::filesystem::path& carpeta) {
    try {
        return LeerEstadoContador(LeerArchivo(carpeta / EstadoContador::kNombreArchivo));
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::string DescribirEstadoContador(const EstadoContador& e, Fecha ahora) {
    std::string texto = "Estado: " + (e.texto.empty() ? std::string("desconocido") : e.texto);
    if (!e.conexion.empty()) {
        texto += " (" + e.conexion + ")";
    }
    texto += ".";
    if (const auto inicio = Fecha::LeerIso(e.inicio)) {
        cTiempo dura;
        dura.ConvTiempo(static_cast<std::int32_t>(
            std::clamp<std::int64_t>(ahora.Segundos() - inicio->Segundos(), 0, 359999)));
        texto += "\nLlamada en curso desde " + inicio->TextoCorto() + ", dura " + dura.Valor() +
                 " (tarifa " + e.tarifa + ", descuento " + e.descuento + ").";
    }
    if (!e.suceso.empty()) {
        const auto hora = Fecha::LeerIso(e.hora);
        texto += "\nUltimo suceso" + (hora ? " (" + hora->TextoCorto() + ")" : std::string()) +
                 ": " + e.suceso;
    }
    return texto;
}

} // namespace vorimesk
