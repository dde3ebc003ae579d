// planes: the data plans of the data folder ("Planes.json"), shown,
// imported whole or exported; uso: where each connection with a plan stands
// in its cycle.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "OrdenesPlanes.h"
#include "core/Archivo.h"
#include "core/Reloj.h"
#include "register/UsoPlanes.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/PlanesJson.h"

#include <charconv>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace vorimesk::cli {
namespace {

struct OpcionesPlanes {
    std::optional<std::string> importar;
    std::optional<std::string> exportar;
    bool json = false;
};

std::string Cifra(double v) {
    char texto[32];
    std::snprintf(texto, sizeof texto, "%.2f", v);
    return texto;
}

// A plan's figure as the file holds it (0.02, 10240).
std::string Exacta(double v) {
    char texto[32];
    const auto r = std::to_chars(texto, texto + sizeof texto, v);
    return std::string(texto, r.ptr);
}

std::string TextoCiclo(const ConexionPlan& c) {
    if (!c.Ciclo) {
        return "el periodo de facturacion";
    }
    switch (c.Ciclo->Tipo) {
    case CicloConexion::Forma::Mensual:
        return "mensual desde el dia " + std::to_string(c.Ciclo->Dia);
    case CicloConexion::Forma::CadaDias:
        return "cada " + std::to_string(c.Ciclo->CadaDias) + " dias desde el " +
               c.Ciclo->Desde.TextoCorto();
    case CicloConexion::Forma::Bolsa:
        return "bolsa sin renovar desde el " + c.Ciclo->Desde.TextoCorto();
    }
    return {};
}

void Listar(std::ostream& o, const Planes& p) {
    if (p.planes.empty()) {
        o << "No hay planes de datos.\n";
    }
    for (const PlanDatos& plan : p.planes) {
        o << plan.Tarifa << ": " << Exacta(plan.IncluidoMB) << " MB incluidos, "
          << Exacta(plan.PrecioMB) << " por MB de mas, paso " << plan.PasoKB << " KB, minimo "
          << Exacta(plan.MinimoSesion) << " por sesion, cuota " << Exacta(plan.CuotaPeriodo)
          << (plan.ReducidaGratis ? ", franja reducida gratis" : "") << "\n";
    }
    for (const ConexionPlan& c : p.conexiones) {
        o << "Conexion " << c.Conexion << ": ciclo " << TextoCiclo(c);
        if (!c.Limites.empty()) {
            o << ", " << c.Limites.size() << " limite(s)";
        }
        o << "\n";
    }
}

int OrdenPlanes(ContextoCli& contexto, const OpcionesPlanes& op, std::ostream& salida) {
    const std::filesystem::path carpeta = contexto.Carpeta();
    if (op.importar) {
        // Only a whole valid file is taken; a bad one changes nothing.
        Planes nuevos;
        try {
            nuevos = LeerPlanes(LeerArchivo(*op.importar));
        } catch (const ErrorPlanes& e) {
            throw ErrorOrden("\"" + *op.importar + "\" no se ha importado: " + e.what() +
                             " No se ha cambiado nada.");
        }
        GuardarPlanes(carpeta, nuevos);
        salida << "Planes importados: " << nuevos.planes.size() << " plan(es) y "
               << nuevos.conexiones.size() << " conexion(es).\n";
        return kSalidaBien;
    }
    const Planes planes = CargarPlanes(carpeta).value_or(Planes{});
    if (op.exportar) {
        if (op.exportar->empty()) {
            salida << EscribirPlanes(planes);
        } else {
            EscribirArchivoSeguro(*op.exportar, EscribirPlanes(planes));
            salida << "Planes exportados a " << *op.exportar << ".\n";
        }
        return kSalidaBien;
    }
    if (op.json) {
        salida << nlohmann::ordered_json::parse(EscribirPlanes(planes)).dump() << "\n";
    } else {
        Listar(salida, planes);
    }
    return kSalidaBien;
}

struct OpcionesUso {
    std::optional<std::string> hoy;
    bool json = false;
};

template <typename T> nlohmann::ordered_json Opcional(const std::optional<T>& v) {
    return v ? nlohmann::ordered_json(*v) : nlohmann::ordered_json(nullptr);
}

nlohmann::ordered_json Json(const UsoConexion& u) {
    nlohmann::ordered_json j;
    j["conexion"] = u.Conexion;
    j["tarifa"] = u.Tarifa;
    j["desde"] = u.Ciclo.inicio.TextoIsoFecha();
    j["hasta"] = u.Renueva ? nlohmann::ordered_json(u.Ciclo.fin.TextoIsoFecha())
                           : nlohmann::ordered_json(nullptr);
    j["usadoMB"] = u.UsadoMB;
    j["incluidoMB"] = u.IncluidoMB;
    j["restanteMB"] = u.RestanteMB;
    j["porDiaMB"] = Opcional(u.PorDiaMB);
    j["previsionMB"] = Opcional(u.PrevisionMB);
    j["importeVolumen"] = u.ImporteVolumen;
    j["cuota"] = u.Cuota;
    return j;
}

void Imprimir(std::ostream& o, const UsoConexion& u) {
    o << u.Conexion << " (" << u.Tarifa << "): ciclo " << u.Ciclo.inicio.TextoCorto() << " - "
      << (u.Renueva ? u.Ciclo.fin.TextoCorto() : std::string("sin fin")) << "\n"
      << "  Usado " << Cifra(u.UsadoMB) << " MB de " << Cifra(u.IncluidoMB) << " MB, quedan "
      << Cifra(u.RestanteMB) << " MB\n";
    if (u.PorDiaMB) {
        o << "  Por dia: " << Cifra(*u.PorDiaMB)
          << " MB; prevision al final del ciclo: " << Cifra(*u.PrevisionMB) << " MB\n";
    }
    o << "  Importe del volumen: " << Cifra(u.ImporteVolumen) << "; cuota: " << Cifra(u.Cuota)
      << "\n";
}

int OrdenUso(ContextoCli& contexto, const OpcionesUso& op, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    const Fecha hoy = op.hoy ? LeerFechaHora(*op.hoy).SoloFecha() : reloj.Hoy();
    std::vector<std::pair<std::string, std::string>> perfiles;
    for (const EntradaConexion& e : sesion.Ajustes().EntradasConexion) {
        perfiles.emplace_back(e.Entrada, e.Tarifa);
    }
    const auto usos = UsoDeCarpeta(contexto.Carpeta(), sesion.Festivos(), sesion.Bono(),
                                   sesion.Registro().Registros(), perfiles, hoy);
    if (op.json) {
        nlohmann::ordered_json j;
        j["hoy"] = hoy.TextoIsoFecha();
        j["conexiones"] = nlohmann::ordered_json::array();
        for (const UsoConexion& u : usos.value_or(std::vector<UsoConexion>{})) {
            j["conexiones"].push_back(Json(u));
        }
        salida << j.dump() << "\n";
        return kSalidaBien;
    }
    if (!usos || usos->empty()) {
        salida << "Ninguna conexion tiene un plan de datos.\n";
    }
    for (const UsoConexion& u : usos.value_or(std::vector<UsoConexion>{})) {
        Imprimir(salida, u);
    }
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenesPlanes(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesPlanes>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* planes =
        aplicacion.Orden("planes", "Planes de datos (Planes.json): los muestra, importa o exporta",
                         [op, &contexto](std::ostream& salida, std::ostream&) {
                             return OrdenPlanes(contexto, *op, salida);
                         });
    auto* importar = planes
                         ->add_option("--importar", op->importar,
                                      "Toma un archivo de planes entero (solo si es valido)")
                         ->type_name("ARCHIVO");
    planes
        ->add_option("--exportar", op->exportar,
                     "Escribe los planes en ARCHIVO (o en la salida si no se da)")
        ->type_name("ARCHIVO")
        ->expected(0, 1)
        ->default_str("")
        ->excludes(importar);
    planes->add_flag("--json", op->json, "Resultado como documento JSON");

    auto uso = std::make_shared<OpcionesUso>();
    CLI::App* orden =
        aplicacion.Orden("uso", "Volumen usado por cada conexion con plan de datos en su ciclo",
                         [uso, &contexto](std::ostream& salida, std::ostream&) {
                             return OrdenUso(contexto, *uso, salida);
                         });
    orden->add_option("--hoy", uso->hoy, "Dia tomado como hoy (AAAA-MM-DD)")
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_flag("--json", uso->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
