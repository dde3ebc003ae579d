// tarifas: the tariff book of the data folder.

#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "tariff/cLlamada.h"

#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

namespace vorimesk::cli {
namespace {

void Json(std::ostream& o, const cLlamada& libro) {
    nlohmann::ordered_json lista = nlohmann::ordered_json::array();
    for (std::int16_t i = 0; i < libro.Count(); ++i) {
        nlohmann::ordered_json t;
        for (const std::string& clave : RegistroTarifa::Claves()) {
            t[clave] = libro.ValorTexto(i, clave);
        }
        lista.push_back(std::move(t));
    }
    nlohmann::ordered_json j;
    j["tarifas"] = std::move(lista);
    o << j.dump() << "\n";
}

void Franja(std::ostream& o, const cLlamada& l, std::int16_t i, const std::string& clave) {
    o << l.ValorTexto(i, clave + ".Importe") << " de " << l.ValorTexto(i, clave + ".Inicio")
      << " a " << l.ValorTexto(i, clave + ".Fin");
}

void Texto(std::ostream& o, const cLlamada& l) {
    if (l.Count() == 0) {
        o << "No hay tarifas en " << l.Ruta().string() << ".\n";
        return;
    }
    for (std::int16_t i = 0; i < l.Count(); ++i) {
        o << l.ValorTexto(i, "Nombre") << "\n  Conexion: " << l.ValorTexto(i, "Conexion.Importe")
          << " (tiempo incluido " << l.ValorTexto(i, "Conexion.Tiempo") << ")\n";
        for (const char* dia : {"Semana", "Sabado", "Festivo"}) {
            o << "  " << dia << ": normal ";
            Franja(o, l, i, std::string(dia) + ".Normal");
            o << "; reducida ";
            Franja(o, l, i, std::string(dia) + ".Reducida");
            o << "\n";
        }
    }
}

} // namespace

void RegistrarTarifas(AplicacionCli& aplicacion) {
    auto json = std::make_shared<bool>(false);
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden = aplicacion.Orden("tarifas", "Lista el libro de tarifas",
                                       [json, &contexto](std::ostream& salida, std::ostream&) {
                                           cLlamada libro(contexto.Carpeta());
                                           libro.Load();
                                           if (*json) {
                                               Json(salida, libro);
                                           } else {
                                               Texto(salida, libro);
                                           }
                                           return kSalidaBien;
                                       });
    orden->add_flag("--json", *json, "Resultado como documento JSON");
}

} // namespace vorimesk::cli
