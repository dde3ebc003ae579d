#include "VistaLlamadas.h"

#include "core/Errores.h"

#include <algorithm>
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

nlohmann::json LlamadasJson(const Log& log, const FiltroFechas& filtro, bool importeNumero) {
    return vorimesk::LlamadasJson(log, IndicesEntre(log, filtro), importeNumero);
}

std::string LlamadasCsv(const Log& log, const FiltroFechas& filtro) {
    return vorimesk::LlamadasCsv(log, IndicesEntre(log, filtro));
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
