#include "AplicacionCli.h"

#include "core/Errores.h"

#include <memory>
#include <ostream>

namespace vorimesk::cli {
namespace {

std::shared_ptr<CLI::Formatter> FormatoEspañol() {
    auto f = std::make_shared<CLI::Formatter>();
    f->label("Usage", "Uso");
    f->label("OPTIONS", "OPCIONES");
    f->label("SUBCOMMAND", "ORDEN");
    f->label("SUBCOMMANDS", "ORDENES");
    f->label("Positionals", "Argumentos");
    f->label("REQUIRED", "OBLIGATORIO");
    f->label("TEXT", "TEXTO");
    f->label("INT", "ENTERO");
    f->label("UINT", "ENTERO");
    f->label("FLOAT", "NUMERO");
    f->label("Needs", "Necesita");
    f->label("Excludes", "Excluye");
    f->column_width(34);
    return f;
}

// Text after the first ": " of a CLI11 message: the offending arguments.
std::string Detalle(const std::string& mensaje) {
    const auto p = mensaje.find(": ");
    return p == std::string::npos ? std::string() : mensaje.substr(p + 2);
}

// CLI11 speaks English; its messages are recognised by their wording, since
// the error class names are not reliable across subcommands.
std::string MensajeDeUso(const CLI::ParseError& e) {
    const std::string m = e.what();
    const std::string detalle = Detalle(m);
    const auto dice = [&m](const char* texto) { return m.find(texto) != std::string::npos; };
    if (dice("subcommand is required")) {
        return "Falta la orden. Use --help para ver las ordenes disponibles.";
    }
    if (dice("missing")) {
        const auto fin = m.find(':');
        std::string opcion = m.substr(0, fin);
        if (opcion.rfind("Argument ", 0) == 0) {
            opcion = opcion.substr(9);
        }
        return "Falta el valor de la opcion " + opcion + ".";
    }
    if (dice("not expected")) {
        return "Argumentos no esperados: " + detalle;
    }
    if (dice("is required")) {
        // "--inicio is required" carries the option before the words.
        return "Falta una opcion obligatoria: " +
               (detalle.empty() ? m.substr(0, m.find(" is required")) : detalle);
    }
    if (dice("requires") || dice("excludes")) {
        // "--desde requires --hasta" has no ": "; its words are translated.
        std::string texto = detalle.empty() ? m : detalle;
        for (const auto& [en, es] :
             {std::pair<std::string, std::string>{" requires ", " necesita "},
              {" excludes ", " excluye "}}) {
            if (const auto p = texto.find(en); p != std::string::npos) {
                texto.replace(p, en.size(), es);
            }
        }
        return "Combinacion de opciones no permitida: " + texto;
    }
    if (dice("arguments") || dice("argument")) {
        return "Numero de valores incorrecto en una opcion: " + detalle;
    }
    return "Valor no valido: " + detalle;
}

} // namespace

AplicacionCli::AplicacionCli()
    : app_("vorimesk-cli: contador de coste de las llamadas de acceso a Internet por modem.",
           "vorimesk-cli") {
    app_.formatter(FormatoEspañol());
    app_.option_defaults()->group("Opciones");
    app_.set_help_flag("-h,--help", "Muestra esta ayuda y termina");
    app_.set_version_flag("--version", std::string("vorimesk-cli ") + VORIMESK_VERSION,
                          "Muestra la version y termina");
    app_.add_option("--datos", contexto_.datos, "Carpeta de datos (Tarifas.Dat, RegDat.log...)")
        ->type_name("DIR");
    app_.require_subcommand(1);
    app_.footer("Use \"vorimesk-cli ORDEN --help\" para ver las opciones de cada orden.");
}

CLI::App* AplicacionCli::Orden(const std::string& nombre, const std::string& descripcion,
                               std::function<int(std::ostream&, std::ostream&)> accion) {
    CLI::App* sub = app_.add_subcommand(nombre, descripcion);
    sub->group("Ordenes");
    sub->formatter(app_.get_formatter());
    sub->option_defaults()->group("Opciones");
    sub->set_help_flag("-h,--help", "Muestra esta ayuda y termina");
    sub->callback([this, accion = std::move(accion)] { accion_ = accion; });
    return sub;
}

int AplicacionCli::Ejecutar(int argc, const char* const* argv, std::ostream& salida,
                            std::ostream& errores) {
    try {
        app_.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        salida << app_.help();
        return kSalidaBien;
    } catch (const CLI::CallForVersion& e) {
        salida << e.what() << "\n";
        return kSalidaBien;
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == 0) {
            salida << app_.help();
            return kSalidaBien;
        }
        errores << "vorimesk-cli: " << MensajeDeUso(e) << "\n";
        return kSalidaErrorUso;
    }
    if (!accion_) {
        errores << app_.help();
        return kSalidaErrorUso;
    }
    try {
        return accion_(salida, errores);
    } catch (const Error& e) {
        errores << "vorimesk-cli: " << e.what() << "\n";
        return kSalidaErrorUsuario;
    }
}

} // namespace vorimesk::cli
