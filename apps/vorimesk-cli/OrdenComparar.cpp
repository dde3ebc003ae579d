// comparar: what the calls of a billing period or of a date range would have
// cost under every tariff of the book, with the user's bonos and without.

#include "AjustesCli.h"
#include "ArgumentosCli.h"
#include "OrdenesComparacion.h"
#include "core/Reloj.h"
#include "register/ComparacionTarifas.h"
#include "register/ListadoRegistro.h"
#include "tariff/PeriodosFacturacion.h"
#include "tariff/cLlamada.h"

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>

namespace vorimesk::cli {
namespace {

struct OpcionesComparar {
    std::optional<std::string> desde;
    std::optional<std::string> hasta;
    std::optional<int> periodo;
    std::optional<std::string> hoy;
    bool json = false;
};

// Billing period N counting back from the current one (0).
PeriodoFacturacion PeriodoPedido(const Log& log, const cBono& bono, int atras, Fecha hoy) {
    const Fecha primera = log.Count() > 0 ? log.Dia(0) : hoy;
    const std::vector<PeriodoFacturacion> periodos =
        PeriodosFacturacion(bono.DiaFactura(), bono.perFactura(), primera, hoy);
    if (periodos.empty()) {
        return {hoy, hoy};
    }
    if (atras >= static_cast<int>(periodos.size())) {
        throw ErrorOrden("No hay periodo " + std::to_string(atras) + ": el registro tiene " +
                         std::to_string(periodos.size()) +
                         " periodo(s) de facturacion, del 0 (el " + "actual) al " +
                         std::to_string(periodos.size() - 1) + ".");
    }
    return periodos[periodos.size() - 1 - static_cast<std::size_t>(atras)];
}

PeriodoFacturacion Intervalo(const OpcionesComparar& op, const Log& log, const cBono& bono) {
    const Fecha hoy = op.hoy ? LeerFechaHora(*op.hoy).SoloFecha() : RelojSistema().Hoy();
    if (op.desde) {
        const PeriodoFacturacion p{LeerFechaHora(*op.desde).SoloFecha(),
                                   LeerFechaHora(*op.hasta).SoloFecha()};
        if (p.fin < p.inicio) {
            throw ErrorOrden("La fecha --hasta es anterior a --desde.");
        }
        return p;
    }
    return PeriodoPedido(log, bono, op.periodo.value_or(0), hoy);
}

std::string Cantidad(double v) {
    char texto[32];
    std::snprintf(texto, sizeof texto, "%.2f", v);
    return texto;
}

void Imprimir(std::ostream& salida, const ComparacionTarifas& c, const PeriodoFacturacion& p) {
    salida << "Periodo: " << p.inicio.TextoCorto() << " - " << p.fin.TextoCorto() << "\n"
           << "Llamadas: " << c.Llamadas << "\n"
           << "Cobrado: " << Cantidad(c.Cobrado) << "\n\n";
    char linea[160];
    std::snprintf(linea, sizeof linea, "%-16s %12s %12s %12s %12s\n", "Tarifa", "Con bonos",
                  "Diferencia", "Sin bonos", "Diferencia");
    salida << linea;
    for (const TotalTarifa& t : c.Tarifas) {
        std::snprintf(linea, sizeof linea, "%-16s %12s %12s %12s %12s\n", t.Tarifa.c_str(),
                      Cantidad(t.ConBono).c_str(), Cantidad(t.DiferenciaConBono).c_str(),
                      Cantidad(t.SinBono).c_str(), Cantidad(t.DiferenciaSinBono).c_str());
        salida << linea;
    }
    if (c.MasBarata >= 0 && c.Llamadas > 0) {
        const TotalTarifa& t = c.Tarifas[static_cast<std::size_t>(c.MasBarata)];
        salida << "\nLa mas barata: " << t.Tarifa << (c.MasBarataConBono ? " con" : " sin")
               << " bonos (" << Cantidad(c.MasBarataConBono ? t.ConBono : t.SinBono) << ").\n";
    }
}

nlohmann::ordered_json Json(const ComparacionTarifas& c, const PeriodoFacturacion& p) {
    nlohmann::ordered_json j;
    j["desde"] = p.inicio.TextoIsoFecha();
    j["hasta"] = p.fin.TextoIsoFecha();
    j["llamadas"] = c.Llamadas;
    j["cobrado"] = c.Cobrado;
    j["tarifas"] = nlohmann::ordered_json::array();
    for (const TotalTarifa& t : c.Tarifas) {
        j["tarifas"].push_back({{"tarifa", t.Tarifa},
                                {"conBono", t.ConBono},
                                {"diferenciaConBono", t.DiferenciaConBono},
                                {"sinBono", t.SinBono},
                                {"diferenciaSinBono", t.DiferenciaSinBono}});
    }
    if (c.MasBarata >= 0 && c.Llamadas > 0) {
        const TotalTarifa& t = c.Tarifas[static_cast<std::size_t>(c.MasBarata)];
        j["masBarata"] = {{"tarifa", t.Tarifa},
                          {"conBono", c.MasBarataConBono},
                          {"importe", c.MasBarataConBono ? t.ConBono : t.SinBono}};
    } else {
        j["masBarata"] = nullptr;
    }
    return j;
}

int Comparar(ContextoCli& contexto, const OpcionesComparar& op, std::ostream& salida) {
    const RelojSistema reloj;
    Sesion sesion(contexto.Carpeta(), reloj);
    LeerAjustes(sesion);
    sesion.CargarRegistro();
    const Log& log = sesion.Registro();
    const cBono& bono = sesion.Bono();
    const PeriodoFacturacion p = Intervalo(op, log, bono);
    const std::vector<Fecha> festivos = sesion.Festivos();
    const Listado listado = ListarRegistro(
        log, CriteriosFiltro::Periodo(p.inicio, p.fin),
        [&festivos](Fecha dia) { return cLlamada::TipoDiaCalendario(dia, festivos); }, {}, p.fin);
    const ComparacionTarifas c =
        CompararTarifas(log, listado.indices, contexto.Carpeta(), bono, festivos);
    if (op.json) {
        salida << Json(c, p).dump() << "\n";
    } else {
        Imprimir(salida, c, p);
    }
    return kSalidaBien;
}

} // namespace

void RegistrarOrdenComparar(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesComparar>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden(
        "comparar",
        "Lo que habrian costado las llamadas de un periodo con cada tarifa, con bonos y sin ellos",
        [op, &contexto](std::ostream& salida, std::ostream&) {
            return Comparar(contexto, *op, salida);
        });
    CLI::Option* desde = orden->add_option("--desde", op->desde, "Primer dia (AAAA-MM-DD)")
                             ->type_name("FECHA")
                             ->check(FechaHoraValida());
    CLI::Option* hasta = orden->add_option("--hasta", op->hasta, "Ultimo dia (AAAA-MM-DD)")
                             ->type_name("FECHA")
                             ->check(FechaHoraValida());
    desde->needs(hasta);
    hasta->needs(desde);
    orden
        ->add_option("--periodo", op->periodo,
                     "Periodo de facturacion: 0 el actual (por omision), 1 el anterior...")
        ->type_name("N")
        ->check(EnteroEntre(0, 32767))
        ->excludes(desde)
        ->excludes(hasta);
    orden->add_option("--hoy", op->hoy, "Dia tomado como hoy (AAAA-MM-DD)")
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
