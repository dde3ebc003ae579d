// periodos: the billing periods between two dates, as the register and the
// period picker list them.

#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "tariff/cPeriodo.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

namespace vorimesk::cli {
namespace {

struct OpcionesPeriodos {
    int dia = 1;
    int intervalo = 0;
    std::string desde;
    std::string hasta;
    int filtro = cPeriodo::kSinFiltro;
    bool json = false;
};

int Periodos(const OpcionesPeriodos& op, std::ostream& salida) {
    cPeriodo periodo;
    periodo.Datos(static_cast<std::uint8_t>(op.dia), static_cast<std::uint8_t>(op.intervalo));
    periodo.Periodos(LeerFechaHora(op.desde), LeerFechaHora(op.hasta));
    periodo.Filtro(static_cast<std::int16_t>(op.filtro));
    std::vector<std::string> textos;
    for (std::string t = periodo.Periodo(); !t.empty(); t = periodo.Periodo()) {
        textos.push_back(std::move(t));
    }
    if (op.json) {
        nlohmann::ordered_json j;
        j["periodos"] = textos;
        salida << j.dump() << "\n";
    } else {
        for (const std::string& t : textos) {
            salida << t << "\n";
        }
    }
    return kSalidaBien;
}

} // namespace

void RegistrarPeriodos(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesPeriodos>();
    CLI::App* orden = aplicacion.Orden(
        "periodos", "Lista los periodos de facturacion entre dos fechas",
        [op](std::ostream& salida, std::ostream&) { return Periodos(*op, salida); });
    orden->add_option("--dia", op->dia, "Dia de factura (1-31)")
        ->required()
        ->type_name("N")
        ->check(EnteroEntre(0, 255));
    orden->add_option("--intervalo", op->intervalo, "0 Mensual, 1 Par Bimensual, 2 Impar Bimensual")
        ->required()
        ->type_name("N")
        ->check(EnteroEntre(0, 255));
    orden->add_option("--desde", op->desde, "Comienzo (AAAA-MM-DD [hh:mm:ss])")
        ->required()
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_option("--hasta", op->hasta, "Final (AAAA-MM-DD [hh:mm:ss])")
        ->required()
        ->type_name("FECHA")
        ->check(FechaHoraValida());
    orden->add_option("--filtro", op->filtro, "Año de los periodos que interesan")
        ->type_name("N")
        ->check(EnteroEntre(-32768, 32767));
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
