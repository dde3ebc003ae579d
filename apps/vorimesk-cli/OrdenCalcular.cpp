// calcular: prices one call with the tariff book of the data folder.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "core/Reloj.h"
#include "tariff/ArchivoPlanes.h"
#include "tariff/PrecioVolumen.h"
#include "tariff/cBono.h"
#include "tariff/cLlamada.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
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
    // The call's traffic, for its volume cost under the tariff's data plan.
    std::optional<std::int64_t> recibidos;
    std::optional<std::int64_t> enviados;
    std::int64_t usado = 0;
    bool ConVolumen() const { return recibidos || enviados; }
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
             Fecha fin, float volumen) {
    o << "Tarifa:              " << op.tarifa << "\n"
      << "Inicio:              " << inicio.TextoCorto() << "\n"
      << "Fin:                 " << fin.TextoCorto() << "\n"
      << "Duracion:            " << l.Duracion() << "\n"
      << "Importe:             " << TextoImporte(l.importe()) << "\n"
      << "Franja al empezar:   " << NombreFranja(l.TipoActual()) << "\n"
      << "Franja al acabar:    " << NombreFranja(l.Tipo()) << "\n"
      << "BonoNet al empezar:  " << SiNo(l.BonoNetActual()) << "\n"
      << "BonoNet al acabar:   " << SiNo(l.BonoNet()) << "\n";
    if (op.ConVolumen()) {
        o << "Importe volumen:     " << TextoImporte(volumen) << "\n"
          << "Importe total:       " << TextoImporte(l.importe() + volumen) << "\n";
    }
}

void Json(std::ostream& o, const cLlamada& l, const OpcionesCalcular& op, float volumen) {
    nlohmann::ordered_json j;
    j["importe"] = NumeroJson(l.importe());
    j["duracion"] = l.Duracion();
    j["tipo"] = l.Tipo();
    j["tipoActual"] = l.TipoActual();
    j["bonoNet"] = l.BonoNet();
    j["bonoNetActual"] = l.BonoNetActual();
    if (op.ConVolumen()) {
        j["importeVolumen"] = NumeroJson(volumen);
    }
    o << j.dump() << "\n";
}

// The volume cost under the tariff's plan; 0 when it has none.
float Volumen(ContextoCli& contexto, const cLlamada& libro, const OpcionesCalcular& op,
              Fecha inicio, Fecha fin) {
    const std::optional<Planes> planes = CargarPlanes(contexto.Carpeta());
    const PlanDatos* plan = planes ? planes->Plan(op.tarifa) : nullptr;
    if (plan == nullptr) {
        return 0.0f;
    }
    const std::int64_t reducida =
        plan->ReducidaGratis ? SegundosReducida(libro, libro.Find(op.tarifa), inicio, fin) : 0;
    const std::int64_t contado =
        VolumenContado(*plan, op.recibidos.value_or(0) + op.enviados.value_or(0),
                       fin.Segundos() - inicio.Segundos(), reducida);
    return static_cast<float>(ImporteVolumen(*plan, contado, op.usado));
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
    const float volumen = op.ConVolumen() ? Volumen(contexto, libro, op, inicio, fin) : 0.0f;
    if (op.json) {
        Json(salida, libro, op, volumen);
    } else {
        Resumen(salida, libro, op, inicio, fin, volumen);
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
    orden->add_option("--recibidos", op->recibidos, "KB recibidos (para el coste del volumen)")
        ->type_name("KB")
        ->check(CLI::NonNegativeNumber);
    orden->add_option("--enviados", op->enviados, "KB enviados (para el coste del volumen)")
        ->type_name("KB")
        ->check(CLI::NonNegativeNumber);
    orden->add_option("--usado", op->usado, "KB del ciclo ya gastados antes de la llamada")
        ->type_name("KB")
        ->check(CLI::NonNegativeNumber);
    orden->add_flag("--bono", op->bono, "Descuenta el tiempo de los bonos BonoNet");
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
