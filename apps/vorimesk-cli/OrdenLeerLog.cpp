// leer-log: takes the finished calls of a modem session log into the
// register, as the meter does when a connection ends.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "OrdenesRegistro.h"
#include "core/Reloj.h"
#include "register/Log.h"
#include "tariff/colConexion.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <vector>

namespace vorimesk::cli {
namespace {

struct OpcionesLeerLog {
    std::string log;
    std::vector<std::string> pendientes;
    bool json = false;
};

// "T|conexion|tarifa|descuento", the connection the meter saw come up at T.
struct Pendiente {
    Fecha fecha;
    std::string conexion, tarifa, descuento;
};

std::optional<Pendiente> LeerPendiente(const std::string& texto) {
    std::vector<std::string> partes{""};
    for (const char c : texto) {
        if (c == '|') {
            partes.emplace_back();
        } else {
            partes.back() += c;
        }
    }
    const auto fecha = partes.size() == 4 ? Fecha::LeerIso(partes[0]) : std::nullopt;
    if (!fecha) {
        return std::nullopt;
    }
    return Pendiente{*fecha, partes[1], partes[2], partes[3]};
}

CLI::Validator PendienteValida() {
    return CLI::Validator(
        [](std::string& texto) -> std::string {
            if (LeerPendiente(texto)) {
                return {};
            }
            return "\"" + texto + "\" no es \"AAAA-MM-DD hh:mm:ss|conexion|tarifa|descuento\"";
        },
        "", "pendiente");
}

void Informar(std::ostream& o, const OpcionesLeerLog& op, bool resultado, int añadidas) {
    if (op.json) {
        nlohmann::ordered_json j;
        j["resultado"] = resultado;
        j["añadidas"] = añadidas;
        o << j.dump() << "\n";
        return;
    }
    if (resultado) {
        o << "Llamadas añadidas al registro: " << añadidas << ". El log \"" << op.log
          << "\" se ha borrado.\n";
    } else {
        o << "El log \"" << op.log
          << "\" no tiene sesiones terminadas; no se ha añadido nada y se conserva.\n";
    }
}

int LeerLog(ContextoCli& contexto, const OpcionesLeerLog& op, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    colConexion pendientes;
    for (const std::string& texto : op.pendientes) {
        const Pendiente p = *LeerPendiente(texto);
        pendientes.Add(p.fecha, p.tarifa, p.descuento, p.conexion);
    }
    const int antes = sesion.Registro().Count();
    const bool resultado = sesion.AñadirModemLog(op.log, pendientes);
    sesion.GuardarBonoSiCambio();
    Informar(salida, op, resultado, sesion.Registro().Count() - antes);
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenLeerLog(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesLeerLog>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden(
        "leer-log", "Añade al registro las llamadas terminadas del log del modem y lo borra",
        [op, &contexto](std::ostream& salida, std::ostream&) {
            return LeerLog(contexto, *op, salida);
        });
    orden->add_option("--log", op->log, "Log de sesiones del modem")
        ->required()
        ->type_name("FICHERO");
    orden
        ->add_option("--pendiente", op->pendientes,
                     "Conexion vista al subir el enlace: \"AAAA-MM-DD hh:mm:ss|conexion|tarifa|"
                     "descuento\" (se puede repetir)")
        ->type_name("PENDIENTE")
        ->check(PendienteValida());
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
