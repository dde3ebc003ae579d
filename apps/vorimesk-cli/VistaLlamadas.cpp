#include "VistaLlamadas.h"

#include "core/Errores.h"
#include "core/Flotante.h"
#include "core/Texto1252.h"
#include "register/Importe.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ostream>
#include <vector>

namespace vorimesk::cli {
namespace {

std::string HoraTexto(Fecha f) {
    char b[16];
    std::snprintf(b, sizeof b, "%02d:%02d:%02d", f.Hora(), f.Minuto(), f.Segundo());
    return b;
}

// The cost as a plain number: the float the register's text reads as,
// written by its shortest form so 0.1 stays 0.1 in the JSON.
double ImporteNumero(const std::string& texto) {
    const std::string corto = TextoFlotante(LeerImporte(texto));
    double v = 0.0;
    std::from_chars(corto.data(), corto.data() + corto.size(), v);
    return v;
}

std::string CampoCsv(const std::string& t) {
    if (t.find_first_of(";\"\r\n") == std::string::npos) {
        return t;
    }
    std::string s = "\"";
    for (char c : t) {
        s += c;
        if (c == '"') {
            s += '"';
        }
    }
    return s + "\"";
}

// Characters, not bytes, for lining up columns of UTF-8 text.
std::size_t Ancho(const std::string& t) {
    return static_cast<std::size_t>(
        std::count_if(t.begin(), t.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

void Fila(std::ostream& salida, const std::vector<std::string>& celdas,
          const std::vector<std::size_t>& anchos) {
    std::string linea;
    for (std::size_t c = 0; c < celdas.size(); ++c) {
        const std::string relleno(anchos[c] - Ancho(celdas[c]), ' ');
        // Numbers to the right, text to the left.
        const bool numero = c == 3 || c >= 8;
        linea += numero ? relleno + celdas[c] : celdas[c] + relleno;
        if (c + 1 < celdas.size()) {
            linea += "  ";
        }
    }
    while (!linea.empty() && linea.back() == ' ') {
        linea.pop_back();
    }
    salida << linea << "\n";
}

} // namespace

std::string Visible(std::string texto) {
    texto.erase(std::remove(texto.begin(), texto.end(), '\0'), texto.end());
    return Recortar(texto);
}

nlohmann::json LlamadaJson(const Log& log, int i, bool importeNumero) {
    nlohmann::json j;
    j["Dia"] = log.Dia(i).TextoIsoFecha();
    j["Hora"] = HoraTexto(log.Hora(i));
    j["Duracion"] = Visible(log.Duracion(i));
    if (importeNumero) {
        j["importe"] = ImporteNumero(log.importe(i));
    } else {
        j["importe"] = Visible(log.importe(i));
    }
    j["Tipo"] = log.Banda(i);
    j["Tarifa"] = Visible(log.Tarifa(i));
    j["Conexion"] = Visible(log.Conexion(i));
    j["Reservada"] = Visible(log.Reservada(i));
    j["Bono"] = log.Bono(i);
    j["Recibidos"] = log.Recibidos(i);
    j["Enviados"] = log.Enviados(i);
    return j;
}

nlohmann::json LlamadasJson(const Log& log, const FiltroFechas& filtro, bool importeNumero) {
    nlohmann::json llamadas = nlohmann::json::array();
    for (int i = 0; i < log.Count(); ++i) {
        if (filtro.Incluye(log.Dia(i))) {
            llamadas.push_back(LlamadaJson(log, i, importeNumero));
        }
    }
    return {{"llamadas", std::move(llamadas)}};
}

std::string LlamadasCsv(const Log& log, const FiltroFechas& filtro) {
    std::string csv = "Dia;Hora;Duracion;Importe;Tipo;Tarifa;Conexion;Reservada;Bono;Recibidos;"
                      "Enviados\r\n";
    for (int i = 0; i < log.Count(); ++i) {
        if (!filtro.Incluye(log.Dia(i))) {
            continue;
        }
        std::string importe = TextoFlotante(LeerImporte(log.importe(i)));
        std::replace(importe.begin(), importe.end(), '.', ',');
        const std::vector<std::string> campos = {
            log.Dia(i).TextoIsoFecha(),     HoraTexto(log.Hora(i)),
            Visible(log.Duracion(i)),       importe,
            std::to_string(log.Banda(i)),   Visible(log.Tarifa(i)),
            Visible(log.Conexion(i)),       Visible(log.Reservada(i)),
            std::to_string(log.Bono(i)),    std::to_string(log.Recibidos(i)),
            std::to_string(log.Enviados(i))};
        for (std::size_t c = 0; c < campos.size(); ++c) {
            csv += CampoCsv(campos[c]);
            csv += c + 1 < campos.size() ? ";" : "\r\n";
        }
    }
    return csv;
}

void ImprimirLlamadas(std::ostream& salida, const Log& log) {
    if (log.Count() == 0) {
        salida << "El registro no tiene llamadas.\n";
        return;
    }
    std::vector<std::vector<std::string>> filas = {{"Dia", "Hora", "Duracion", "Coste", "Tarifa",
                                                    "Tipo", "Bono", "Conexion", "Kbs Recibidos",
                                                    "Kbs Enviados"}};
    for (int i = 0; i < log.Count(); ++i) {
        filas.push_back({log.Dia(i).TextoCorto(), HoraTexto(log.Hora(i)), Visible(log.Duracion(i)),
                         Visible(log.importe(i)), Visible(log.Tarifa(i)),
                         log.Banda(i) == 1 ? "Reducida" : "Normal", log.Bono(i) != 0 ? "Si" : "No",
                         Visible(log.Conexion(i)), std::to_string(log.Recibidos(i)),
                         std::to_string(log.Enviados(i))});
    }
    std::vector<std::size_t> anchos(filas[0].size(), 0);
    for (const auto& f : filas) {
        for (std::size_t c = 0; c < f.size(); ++c) {
            anchos[c] = std::max(anchos[c], Ancho(f[c]));
        }
    }
    for (const auto& f : filas) {
        Fila(salida, f, anchos);
    }
    salida << "\nLlamadas: " << log.Count() << "   Duracion total: " << log.TotalDuracion() << "\n";
}

CLI::Validator FechaValida() {
    return CLI::Validator(
        [](std::string& texto) -> std::string {
            return Fecha::LeerIso(texto) ? std::string()
                                         : "\"" + texto + "\" no es una fecha AAAA-MM-DD";
        },
        "AAAA-MM-DD");
}

Fecha LeerFechaArgumento(const std::string& texto) {
    const auto f = Fecha::LeerIso(texto);
    if (!f) {
        throw ErrorTipo("\"" + texto + "\" no es una fecha AAAA-MM-DD");
    }
    return *f;
}

} // namespace vorimesk::cli
