#include "LibroJson.h"

#include "core/Errores.h"

#include <algorithm>
#include <charconv>
#include <nlohmann/json.hpp>

namespace vorimesk {
namespace {

using Json = nlohmann::ordered_json;

constexpr const char* kNota =
    "Importes como texto con punto decimal (7 caracteres como mucho); horas hh:mm:ss. "
    "Conexion.Tiempo es el tiempo incluido: sus horas son minutos y sus minutos segundos.";

// A document that is JSON but not a tariff book; it stops the reading.
class ErrorFormato : public Error {
public:
    using Error::Error;
};

Problema Fallo(std::string mensaje) {
    return {Gravedad::Error, -1, "", "", std::move(mensaje)};
}

std::string Posicion(std::string_view texto, std::size_t byte) {
    byte = std::min(byte, texto.size());
    const auto antes = texto.substr(0, byte);
    const auto linea = std::count(antes.begin(), antes.end(), '\n') + 1;
    const auto inicio = antes.rfind('\n');
    const auto columna = byte - (inicio == std::string_view::npos ? 0 : inicio + 1);
    return "linea " + std::to_string(linea) + ", columna " + std::to_string(columna);
}

std::string TextoDeNumero(double numero) {
    char texto[32];
    const auto r = std::to_chars(texto, texto + sizeof texto, numero);
    return std::string(texto, r.ptr);
}

std::string Nombre(int i) {
    return "La tarifa " + std::to_string(i + 1);
}

TarifaEditable LeerTarifa(const Json& j, int i) {
    if (!j.is_object()) {
        throw ErrorFormato(Nombre(i) + " no es un objeto JSON ({...}).");
    }
    for (const auto& [clave, valor] : j.items()) {
        const auto& claves = RegistroTarifa::Claves();
        if (std::find(claves.begin(), claves.end(), clave) == claves.end()) {
            throw ErrorFormato(Nombre(i) + " tiene el campo desconocido \"" + clave + "\".");
        }
    }
    TarifaEditable t;
    for (const std::string& clave : RegistroTarifa::Claves()) {
        if (!j.contains(clave)) {
            throw ErrorFormato(Nombre(i) + " no tiene el campo \"" + clave + "\".");
        }
        const Json& v = j[clave];
        if (v.is_string()) {
            t.Valor(clave, v.get<std::string>());
        } else if (v.is_number() && clave.ends_with(".Importe")) {
            t.Valor(clave, TextoDeNumero(v.get<double>()));
        } else {
            throw ErrorFormato("El campo \"" + clave + "\" de la tarifa " + std::to_string(i + 1) +
                               " debe ser un texto entre comillas.");
        }
    }
    return t;
}

void ComprobarCabecera(const Json& j) {
    if (!j.is_object() || !j.contains("formato") || j["formato"] != kFormatoJson) {
        throw ErrorFormato(std::string("No es un libro de tarifas: falta \"formato\": \"") +
                           kFormatoJson + "\".");
    }
    if (!j.contains("version") || !j["version"].is_number_integer()) {
        throw ErrorFormato("Falta el numero de \"version\" del formato.");
    }
    if (j["version"] != kVersionJson) {
        throw ErrorFormato("La version " + j["version"].dump() +
                           " del formato no se puede leer; esta version del programa lee la " +
                           std::to_string(kVersionJson) + ".");
    }
    if (!j.contains("tarifas") || !j["tarifas"].is_array()) {
        throw ErrorFormato("Falta la lista \"tarifas\": [...].");
    }
}

} // namespace

std::string ExportarJson(const LibroEditable& libro) {
    Json lista = Json::array();
    for (int i = 0; i < libro.Count(); ++i) {
        Json t = Json::object();
        for (const std::string& clave : RegistroTarifa::Claves()) {
            t[clave] = libro.Tarifa(i).Valor(clave);
        }
        lista.push_back(std::move(t));
    }
    Json j;
    j["formato"] = kFormatoJson;
    j["version"] = kVersionJson;
    j["nota"] = kNota;
    j["tarifas"] = std::move(lista);
    return j.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

Importacion ImportarJson(std::string_view texto) {
    Importacion r;
    Json j;
    try {
        j = Json::parse(texto);
    } catch (const Json::parse_error& e) {
        r.problemas.push_back(Fallo("El archivo no es un JSON valido (" +
                                    Posicion(texto, e.byte > 0 ? e.byte - 1 : 0) + ")."));
        return r;
    }
    try {
        ComprobarCabecera(j);
        const Json& tarifas = j["tarifas"];
        for (std::size_t i = 0; i < tarifas.size(); ++i) {
            r.libro.Agregar(LeerTarifa(tarifas[i], static_cast<int>(i)));
        }
    } catch (const ErrorFormato& e) {
        r.libro = LibroEditable();
        r.problemas.push_back(Fallo(e.what()));
        return r;
    }
    r.problemas = ValidarLibro(r.libro);
    return r;
}

} // namespace vorimesk
