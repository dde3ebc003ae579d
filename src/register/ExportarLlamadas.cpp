#include "ExportarLlamadas.h"

#include "Importe.h"
#include "core/Flotante.h"
#include "core/Texto1252.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace vorimesk {
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

} // namespace

std::string Visible(std::string texto) {
    texto.erase(std::remove(texto.begin(), texto.end(), '\0'), texto.end());
    return Recortar(texto);
}

std::vector<int> IndicesEntre(const Log& log, const FiltroFechas& filtro) {
    std::vector<int> indices;
    for (int i = 0; i < log.Count(); ++i) {
        if (filtro.Incluye(log.Dia(i))) {
            indices.push_back(i);
        }
    }
    return indices;
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

nlohmann::json LlamadasJson(const Log& log, const std::vector<int>& indices, bool importeNumero) {
    nlohmann::json llamadas = nlohmann::json::array();
    for (const int i : indices) {
        llamadas.push_back(LlamadaJson(log, i, importeNumero));
    }
    return {{"llamadas", std::move(llamadas)}};
}

std::string LlamadasCsv(const Log& log, const std::vector<int>& indices) {
    std::string csv = "Dia;Hora;Duracion;Importe;Tipo;Tarifa;Conexion;Reservada;Bono;Recibidos;"
                      "Enviados\r\n";
    for (const int i : indices) {
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

FormatoExportacion FormatoDeArchivo(const std::filesystem::path& ruta) {
    std::string extension = ruta.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".json" ? FormatoExportacion::Json : FormatoExportacion::Csv;
}

std::string TextoExportado(const Log& log, const std::vector<int>& indices,
                           FormatoExportacion formato) {
    // In JSON the cost is a number, ready for other programs.
    return formato == FormatoExportacion::Csv ? LlamadasCsv(log, indices)
                                              : LlamadasJson(log, indices, true).dump(2) + "\n";
}

} // namespace vorimesk
