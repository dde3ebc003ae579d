// tarifas: the tariff book of the data folder; also its JSON export and the
// import that replaces it.

#include "ArgumentosCli.h"
#include "Ordenes.h"
#include "core/Archivo.h"
#include "tariff/LibroJson.h"
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

struct OpcionesTarifas {
    bool json = false;
    std::string importar;
    std::string exportar;
    CLI::Option* conImportar = nullptr;
    CLI::Option* conExportar = nullptr;
};

std::string SinSaltoFinal(std::string texto) {
    while (!texto.empty() && texto.back() == '\n') {
        texto.pop_back();
    }
    return texto;
}

// Nothing is written unless the whole document is a valid book; warnings do
// not stop it but are shown.
void Importar(const std::filesystem::path& carpeta, const std::string& ruta, std::ostream& salida,
              std::ostream& errores) {
    const Importacion r = ImportarJson(LeerArchivo(ruta));
    if (HayErrores(r.problemas)) {
        throw ErrorOrden("No se importa " + ruta + "; el libro de tarifas queda como estaba.\n" +
                         SinSaltoFinal(TextoProblemas(r.problemas)));
    }
    for (const Problema& p : r.problemas) {
        errores << "vorimesk-cli: " << p.Texto() << "\n";
    }
    cLlamada libro(carpeta);
    r.libro.AplicarA(libro);
    libro.Save();
    salida << "Importadas " << libro.Count() << " tarifas en " << libro.Ruta().string() << ".\n";
}

void Exportar(const cLlamada& libro, const OpcionesTarifas& op, std::ostream& salida) {
    const std::string json = ExportarJson(LibroEditable::DesdeLibro(libro));
    if (op.exportar.empty()) {
        salida << json;
        return;
    }
    EscribirArchivoSeguro(op.exportar, json);
    salida << "Exportadas " << libro.Count() << " tarifas a " << op.exportar << ".\n";
}

int Tarifas(ContextoCli& contexto, const OpcionesTarifas& op, std::ostream& salida,
            std::ostream& errores) {
    const bool importar = op.conImportar->count() > 0;
    const bool exportar = op.conExportar->count() > 0;
    if (int(importar) + int(exportar) + int(op.json) > 1) {
        errores << "vorimesk-cli: Use solo una de las opciones --json, --importar y --exportar.\n";
        return kSalidaErrorUso;
    }
    if (importar) {
        Importar(contexto.Carpeta(), op.importar, salida, errores);
        return kSalidaBien;
    }
    cLlamada libro(contexto.Carpeta());
    libro.Load();
    if (exportar) {
        Exportar(libro, op, salida);
    } else if (op.json) {
        Json(salida, libro);
    } else {
        Texto(salida, libro);
    }
    return kSalidaBien;
}

} // namespace

void RegistrarTarifas(AplicacionCli& aplicacion) {
    auto op = std::make_shared<OpcionesTarifas>();
    ContextoCli& contexto = aplicacion.Contexto();
    CLI::App* orden =
        aplicacion.Orden("tarifas", "Lista el libro de tarifas, o lo exporta o importa en JSON",
                         [op, &contexto](std::ostream& salida, std::ostream& errores) {
                             return Tarifas(contexto, *op, salida, errores);
                         });
    orden->add_flag("--json", op->json, "Resultado como documento JSON");
    op->conImportar = orden
                          ->add_option("--importar", op->importar,
                                       "Sustituye el libro por el de un archivo JSON, si es valido")
                          ->type_name("FICHERO.json");
    op->conExportar =
        orden
            ->add_option("--exportar", op->exportar,
                         "Escribe el libro en JSON en el archivo, o en la salida sin el")
            ->expected(0, 1)
            ->type_name("[FICHERO.json]");
}

} // namespace vorimesk::cli
