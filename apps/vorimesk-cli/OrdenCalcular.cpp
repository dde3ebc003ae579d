// calcular: prices one call with the tariff book of the data folder.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "core/Reloj.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace vorimesk::cli {
namespace {

struct OpcionesCalcular {
    std::string inicio;
    std::string fin;
    std::string tarifa = "Metropolitana";
    std::vector<std::string> festivos;
    bool bono = false;
    bool json = false;
};

const char* NombreFranja(std::int16_t franja) {
    switch (franja) {
    case 0:
        return "Normal";
    case 1:
        return "Reducida";
    default:
        return "Reducida (vacia)";
    }
}

const char* SiNo(bool v) {
    return v ? "si" : "no";
}

void Resumen(std::ostream& o, const cLlamada& l, const OpcionesCalcular& op, Fecha inicio,
             Fecha fin) {
    o << "Tarifa:              " << op.tarifa << "\n"
      << "Inicio:              " << inicio.TextoCorto() << "\n"
      << "Fin:                 " << fin.TextoCorto() << "\n"
      << "Duracion:            " << l.Duracion() << "\n"
      << "Importe:             " << TextoImporte(l.importe()) << "\n"
      << "Franja al empezar:   " << NombreFranja(l.TipoActual()) << "\n"
      << "Franja al acabar:    " << NombreFranja(l.Tipo()) << "\n"
      << "BonoNet al empezar:  " << SiNo(l.BonoNetActual()) << "\n"
      << "BonoNet al acabar:   " << SiNo(l.BonoNet()) << "\n";
}

void Json(std::ostream& o, const cLlamada& l) {
    nlohmann::ordered_json j;
    j["importe"] = NumeroJson(l.importe());
    j["duracion"] = l.Duracion();
    j["tipo"] = l.Tipo();
    j["tipoActual"] = l.TipoActual();
    j["bonoNet"] = l.BonoNet();
    j["bonoNetActual"] = l.BonoNetActual();
    o << j.dump() << "\n";
}

int Calcular(ContextoCli& contexto, const OpcionesCalcular& op, std::ostream& salida) {
    const Fecha inicio = LeerFechaHora(op.inicio);
    const Fecha fin = LeerFechaHora(op.fin);
    if (fin < inicio) {
        throw ErrorOrden("El fin de la llamada (" + fin.TextoCorto() +
                         ") es anterior a su inicio (" + inicio.TextoCorto() + ").");
    }
    // Pricing takes the holidays and the BonoNet ledger of the settings file;
    // a damaged file stops the command here.
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    std::vector<Fecha> festivos = sesion.Festivos();
    for (const std::string& f : op.festivos) {
        festivos.push_back(LeerFechaHora(f).SoloFecha());
    }
    cLlamada libro(contexto.Carpeta());
    libro.Festivos(festivos);
    libro.Load();
    if (libro.Find(op.tarifa) < 0) {
        throw ErrorOrden("La tarifa \"" + op.tarifa + "\" no esta en el libro de tarifas (" +
                         libro.Ruta().string() + ").");
    }
    libro.Datos(inicio, fin, op.bono ? &sesion.Bono() : nullptr, op.tarifa);
    if (op.json) {
        Json(salida, libro);
    } else {
        Resumen(salida, libro, op, inicio, fin);
    }
    return kSalidaBien;
}

} // namespace

void RegistrarCalcular(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesCalcular>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden =
        aplicacion.Orden("calcular", "Calcula el coste de una llamada con el libro de tarifas",
                         [op, &contexto](std::ostream& salida, std::ostream&) {
                             return Calcular(contexto, *op, salida);
                         });
    orden->add_option("--inicio", op->inicio, "Comienzo de la llamada (AAAA-MM-DD hh:mm:ss)")
        ->required()
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_option("--fin", op->fin, "Final de la llamada (AAAA-MM-DD hh:mm:ss)")
        ->required()
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_option("--tarifa", op->tarifa, "Tarifa con la que se calcula (Metropolitana)");
    orden->add_option("--festivo", op->festivos, "Dia festivo AAAA-MM-DD (se puede repetir)")
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_flag("--bono", op->bono, "Descuenta el tiempo de los bonos BonoNet");
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
