// prevision: what the current billing period has cost so far, where it is
// heading at the same pace and what each day left may cost to stay within
// the budget kept in the data folder.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "OrdenesComparacion.h"
#include "core/ErrorFormato.h"
#include "core/Reloj.h"
#include "register/PrevisionPeriodo.h"

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace vorimesk::cli {
namespace {

struct OpcionesPrevision {
    std::optional<std::string> hoy;
    bool json = false;
};

std::optional<double> Presupuesto(const Sesion& sesion) {
    try {
        return sesion.Presupuesto().Actual();
    } catch (const ErrorFormato& e) {
        throw ErrorOrden("El archivo de presupuesto \"" + e.Ruta() +
                         "\" esta dañado: " + e.Detalle() + ". No se ha cambiado nada.");
    }
}

std::string Cantidad(double v) {
    char texto[32];
    std::snprintf(texto, sizeof texto, "%.2f", v);
    return texto;
}

template <typename T> nlohmann::ordered_json Opcional(const std::optional<T>& v) {
    return v ? nlohmann::ordered_json(*v) : nlohmann::ordered_json(nullptr);
}

nlohmann::ordered_json Json(const PrevisionPeriodo& p, Fecha hoy) {
    nlohmann::ordered_json j;
    j["desde"] = p.Inicio.TextoIsoFecha();
    j["hasta"] = p.Fin.TextoIsoFecha();
    j["hoy"] = hoy.TextoIsoFecha();
    j["diasPeriodo"] = p.DiasPeriodo;
    j["diasTranscurridos"] = p.DiasTranscurridos;
    j["diasQuedan"] = p.DiasQuedan;
    j["llamadas"] = p.Llamadas;
    j["gastado"] = p.Gastado;
    j["proyeccion"] = p.Proyeccion;
    j["regla"] = kReglaPrevision;
    j["presupuesto"] = Opcional(p.Presupuesto);
    j["porDiaRestante"] = Opcional(p.PorDiaRestante);
    j["superaPresupuesto"] = p.SuperaPresupuesto;
    return j;
}

void Imprimir(std::ostream& salida, const PrevisionPeriodo& p) {
    salida << "Periodo: " << p.Inicio.TextoCorto() << " - " << p.Fin.TextoCorto() << " (dia "
           << p.DiasTranscurridos << " de " << p.DiasPeriodo << ")\n"
           << "Gastado hasta hoy: " << Cantidad(p.Gastado) << " en " << p.Llamadas
           << " llamada(s)\n"
           << "Prevision al final del periodo: " << Cantidad(p.Proyeccion) << "\n"
           << "Regla: " << kReglaPrevision << "\n";
    if (!p.Presupuesto) {
        salida << "Sin presupuesto.\n";
        return;
    }
    salida << "Presupuesto: " << Cantidad(*p.Presupuesto) << "\n";
    if (p.PorDiaRestante) {
        salida << "Para no pasarlo, como mucho " << Cantidad(*p.PorDiaRestante)
               << " por dia en los " << p.DiasQuedan << " dia(s) que quedan.\n";
    }
    if (p.SuperaPresupuesto) {
        salida << "Aviso: a este ritmo se pasara del presupuesto.\n";
    }
}

int Prevision(ContextoCli& contexto, const OpcionesPrevision& op, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    const Log& log = sesion.Registro();
    const cBono& bono = sesion.Bono();
    const Fecha hoy = op.hoy ? LeerFechaHora(*op.hoy).SoloFecha() : RelojSistema().Hoy();
    DatosPrevision datos;
    datos.DiaFactura = bono.DiaFactura();
    datos.perFactura = bono.perFactura();
    datos.Coste = {sesion.Ajustes().AnadirImpuestos, sesion.Ajustes().Impuestos};
    datos.Presupuesto = Presupuesto(sesion);
    const PrevisionPeriodo p = Prever(log, datos, hoy);
    if (op.json) {
        salida << Json(p, hoy).dump() << "\n";
    } else {
        Imprimir(salida, p);
    }
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenPrevision(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesPrevision>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden(
        "prevision", "Gasto del periodo de facturacion actual y prevision a su final",
        [op, &contexto](std::ostream& salida, std::ostream&) {
            return Prevision(contexto, *op, salida);
        });
    orden->add_option("--hoy", op->hoy, "Dia tomado como hoy (AAAA-MM-DD)")
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
