#include "PlanesJson.h"

#include <cmath>
#include <initializer_list>
#include <nlohmann/json.hpp>

namespace vorimesk {
namespace {

using Json = nlohmann::ordered_json;

[[noreturn]] void Falla(const std::string& campo, const std::string& que) {
    throw ErrorPlanes("El campo \"" + campo + "\" " + que + ".");
}

bool Conocida(const std::string& clave, std::initializer_list<const char*> claves) {
    for (const char* c : claves) {
        if (clave == c) {
            return true;
        }
    }
    return false;
}

OtrosCampos Otros(const Json& j, std::initializer_list<const char*> claves) {
    OtrosCampos otros;
    for (const auto& [clave, valor] : j.items()) {
        if (!Conocida(clave, claves)) {
            otros.emplace_back(clave, valor.dump());
        }
    }
    return otros;
}

const Json& Objeto(const Json& j, const std::string& campo) {
    if (!j.is_object()) {
        Falla(campo, "debe ser un objeto JSON ({...})");
    }
    return j;
}

std::string Texto(const Json& j, const char* clave, const std::string& campo) {
    if (!j.contains(clave)) {
        Falla(campo + "." + clave, "falta");
    }
    const Json& v = j.at(clave);
    if (!v.is_string() || v.get<std::string>().empty()) {
        Falla(campo + "." + clave, "debe ser un texto no vacio");
    }
    return v.get<std::string>();
}

double Numero(const Json& j, const char* clave, const std::string& campo, double siFalta) {
    if (!j.contains(clave)) {
        return siFalta;
    }
    const Json& v = j.at(clave);
    if (!v.is_number() || !std::isfinite(v.get<double>()) || v.get<double>() < 0) {
        Falla(campo + "." + clave, "debe ser un numero mayor o igual que 0");
    }
    return v.get<double>();
}

std::int64_t Entero(const Json& j, const char* clave, const std::string& campo, std::int64_t minimo,
                    std::int64_t maximo) {
    const Json& v = j.at(clave);
    if (!v.is_number_integer() || v.get<std::int64_t>() < minimo ||
        v.get<std::int64_t>() > maximo) {
        Falla(campo + "." + clave, "debe ser un numero entero de " + std::to_string(minimo) +
                                       " a " + std::to_string(maximo));
    }
    return v.get<std::int64_t>();
}

Fecha Dia(const Json& j, const char* clave, const std::string& campo) {
    const std::string texto = Texto(j, clave, campo);
    const auto f = texto.size() == 10 ? Fecha::LeerIso(texto) : std::nullopt;
    if (!f) {
        Falla(campo + "." + clave, "debe ser una fecha AAAA-MM-DD");
    }
    return *f;
}

std::string Uno(const Json& j, const char* clave, const std::string& campo,
                std::initializer_list<const char*> validos) {
    const std::string v = Texto(j, clave, campo);
    if (!Conocida(v, validos)) {
        std::string lista;
        for (const char* c : validos) {
            lista += (lista.empty() ? "\"" : ", \"") + std::string(c) + "\"";
        }
        Falla(campo + "." + clave, "debe ser uno de " + lista);
    }
    return v;
}

const Json* Lista(const Json& j, const char* clave, const std::string& campo) {
    if (!j.contains(clave)) {
        return nullptr;
    }
    if (!j.at(clave).is_array()) {
        Falla(campo + clave, "debe ser una lista ([...])");
    }
    return &j.at(clave);
}

PlanDatos LeerPlan(const Json& j, const std::string& campo) {
    Objeto(j, campo);
    PlanDatos p;
    p.Tarifa = Texto(j, "Tarifa", campo);
    p.IncluidoMB = Numero(j, "IncluidoMB", campo, 0.0);
    p.PrecioMB = Numero(j, "PrecioMB", campo, 0.0);
    p.PasoKB = j.contains("PasoKB") ? Entero(j, "PasoKB", campo, 1, 1 << 30) : 1;
    p.MinimoSesion = Numero(j, "MinimoSesion", campo, 0.0);
    if (j.contains("ReducidaGratis")) {
        if (!j.at("ReducidaGratis").is_boolean()) {
            Falla(campo + ".ReducidaGratis", "debe ser true o false");
        }
        p.ReducidaGratis = j.at("ReducidaGratis").get<bool>();
    }
    p.CuotaPeriodo = Numero(j, "CuotaPeriodo", campo, 0.0);
    p.Otros = Otros(j, {"Tarifa", "IncluidoMB", "PrecioMB", "PasoKB", "MinimoSesion",
                        "ReducidaGratis", "CuotaPeriodo"});
    return p;
}

CicloConexion LeerCiclo(const Json& j, const std::string& campo) {
    Objeto(j, campo);
    CicloConexion c;
    if (j.contains("Dia")) {
        if (j.contains("CadaDias") || j.contains("Desde")) {
            Falla(campo, "lleva \"Dia\" o bien \"CadaDias\" y \"Desde\", no ambos");
        }
        c.Tipo = CicloConexion::Forma::Mensual;
        c.Dia = static_cast<int>(Entero(j, "Dia", campo, 1, 31));
    } else if (j.contains("CadaDias")) {
        c.Tipo = CicloConexion::Forma::CadaDias;
        c.CadaDias = static_cast<int>(Entero(j, "CadaDias", campo, 1, 3660));
        c.Desde = Dia(j, "Desde", campo);
    } else if (j.contains("Desde")) {
        c.Tipo = CicloConexion::Forma::Bolsa;
        c.Desde = Dia(j, "Desde", campo);
    } else {
        Falla(campo, "necesita \"Dia\", \"CadaDias\" con \"Desde\", o \"Desde\"");
    }
    c.Otros = Otros(j, {"Dia", "CadaDias", "Desde"});
    return c;
}

LimiteConexion LeerLimite(const Json& j, const std::string& campo) {
    Objeto(j, campo);
    LimiteConexion l;
    if (!j.contains("Porcentaje")) {
        Falla(campo + ".Porcentaje", "falta");
    }
    l.Porcentaje = Numero(j, "Porcentaje", campo, 0.0);
    if (l.Porcentaje <= 0) {
        Falla(campo + ".Porcentaje", "debe ser mayor que 0");
    }
    l.De = Uno(j, "De", campo, {"volumen", "presupuesto"});
    l.Accion = Uno(j, "Accion", campo, {"avisar", "no-marcar", "colgar"});
    l.Otros = Otros(j, {"Porcentaje", "De", "Accion"});
    return l;
}

ConexionPlan LeerConexion(const Json& j, const std::string& campo) {
    Objeto(j, campo);
    ConexionPlan c;
    c.Conexion = Texto(j, "Conexion", campo);
    if (j.contains("Ciclo")) {
        c.Ciclo = LeerCiclo(j.at("Ciclo"), campo + ".Ciclo");
    }
    if (const Json* limites = Lista(j, "Limites", campo + ".")) {
        for (std::size_t i = 0; i < limites->size(); ++i) {
            c.Limites.push_back(
                LeerLimite((*limites)[i], campo + ".Limites[" + std::to_string(i) + "]"));
        }
    }
    c.Otros = Otros(j, {"Conexion", "Ciclo", "Limites"});
    return c;
}

void Cabecera(const Json& j) {
    Objeto(j, "(documento)");
    if (!j.contains("formato") || j.at("formato") != std::string(kFormatoPlanes)) {
        Falla("formato", "debe ser \"" + std::string(kFormatoPlanes) + "\"");
    }
    if (!j.contains("version") || j.at("version") != 1) {
        Falla("version", "debe ser 1 (la unica version que se conoce)");
    }
}

// Whole amounts as integers ("10240", not "10240.0").
Json NumeroJson(double v) {
    if (std::floor(v) == v && std::fabs(v) < 1e15) {
        return static_cast<std::int64_t>(v);
    }
    return v;
}

void PonerOtros(Json& j, const OtrosCampos& otros) {
    for (const auto& [clave, texto] : otros) {
        j[clave] = Json::parse(texto);
    }
}

Json JsonCiclo(const CicloConexion& c) {
    Json j = Json::object();
    switch (c.Tipo) {
    case CicloConexion::Forma::Mensual:
        j["Dia"] = c.Dia;
        break;
    case CicloConexion::Forma::CadaDias:
        j["CadaDias"] = c.CadaDias;
        j["Desde"] = c.Desde.TextoIsoFecha();
        break;
    case CicloConexion::Forma::Bolsa:
        j["Desde"] = c.Desde.TextoIsoFecha();
        break;
    }
    PonerOtros(j, c.Otros);
    return j;
}

} // namespace

Planes LeerPlanes(std::string_view texto) {
    Json j;
    try {
        j = Json::parse(texto);
    } catch (const Json::parse_error& e) {
        throw ErrorPlanes("No es un documento JSON valido (byte " + std::to_string(e.byte) + ").");
    }
    Cabecera(j);
    Planes p;
    if (const Json* planes = Lista(j, "planes", "")) {
        for (std::size_t i = 0; i < planes->size(); ++i) {
            const std::string campo = "planes[" + std::to_string(i) + "]";
            PlanDatos plan = LeerPlan((*planes)[i], campo);
            if (p.Plan(plan.Tarifa) != nullptr) {
                Falla(campo + ".Tarifa", "repite la tarifa \"" + plan.Tarifa + "\"");
            }
            p.planes.push_back(std::move(plan));
        }
    }
    if (const Json* conexiones = Lista(j, "conexiones", "")) {
        for (std::size_t i = 0; i < conexiones->size(); ++i) {
            const std::string campo = "conexiones[" + std::to_string(i) + "]";
            ConexionPlan c = LeerConexion((*conexiones)[i], campo);
            if (p.Conexion(c.Conexion) != nullptr) {
                Falla(campo + ".Conexion", "repite la conexion \"" + c.Conexion + "\"");
            }
            p.conexiones.push_back(std::move(c));
        }
    }
    p.Otros = Otros(j, {"formato", "version", "planes", "conexiones"});
    return p;
}

std::string EscribirPlanes(const Planes& p) {
    Json j;
    j["formato"] = kFormatoPlanes;
    j["version"] = 1;
    j["planes"] = Json::array();
    for (const PlanDatos& plan : p.planes) {
        Json o;
        o["Tarifa"] = plan.Tarifa;
        o["IncluidoMB"] = NumeroJson(plan.IncluidoMB);
        o["PrecioMB"] = NumeroJson(plan.PrecioMB);
        o["PasoKB"] = plan.PasoKB;
        o["MinimoSesion"] = NumeroJson(plan.MinimoSesion);
        o["ReducidaGratis"] = plan.ReducidaGratis;
        o["CuotaPeriodo"] = NumeroJson(plan.CuotaPeriodo);
        PonerOtros(o, plan.Otros);
        j["planes"].push_back(std::move(o));
    }
    j["conexiones"] = Json::array();
    for (const ConexionPlan& c : p.conexiones) {
        Json o;
        o["Conexion"] = c.Conexion;
        if (c.Ciclo) {
            o["Ciclo"] = JsonCiclo(*c.Ciclo);
        }
        if (!c.Limites.empty()) {
            o["Limites"] = Json::array();
            for (const LimiteConexion& l : c.Limites) {
                Json lj{
                    {"Porcentaje", NumeroJson(l.Porcentaje)}, {"De", l.De}, {"Accion", l.Accion}};
                PonerOtros(lj, l.Otros);
                o["Limites"].push_back(std::move(lj));
            }
        }
        PonerOtros(o, c.Otros);
        j["conexiones"].push_back(std::move(o));
    }
    PonerOtros(j, p.Otros);
    return j.dump(2) + "\n";
}

} // namespace vorimesk
