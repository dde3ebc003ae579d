#include "CargaAlIniciarXdg.h"

#include "core/Archivo.h"
#include "core/Errores.h"

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// Exec takes a command line: an argument with blanks or shell characters
// goes in double quotes with " ` $ \ escaped, and since the value is also a
// desktop-file string every backslash is then doubled. "%" starts a field
// code, so a literal one is written "%%".
std::string CitarExec(const std::string& ruta) {
    constexpr std::string_view kReservados = " \t\n\"'\\><~|&;$*?#()`";
    std::string argumento;
    if (ruta.find_first_of(kReservados) == std::string::npos) {
        argumento = ruta;
    } else {
        argumento = "\"";
        for (const char c : ruta) {
            if (c == '"' || c == '`' || c == '$' || c == '\\') {
                argumento += '\\';
            }
            argumento += c;
        }
        argumento += '"';
    }
    std::string valor;
    for (const char c : argumento) {
        if (c == '\\') {
            valor += "\\\\";
        } else if (c == '%') {
            valor += "%%";
        } else {
            valor += c;
        }
    }
    return valor;
}

} // namespace

CargaAlIniciarXdg::CargaAlIniciarXdg(fs::path carpetaAutostart)
    : carpeta_(std::move(carpetaAutostart)) {}

fs::path CargaAlIniciarXdg::Carpeta(const std::optional<std::string>& xdgConfigHome,
                                    const std::optional<std::string>& home) {
    if (xdgConfigHome && fs::path(*xdgConfigHome).is_absolute()) {
        return fs::path(*xdgConfigHome) / "autostart";
    }
    if (home && !home->empty()) {
        return fs::path(*home) / ".config" / "autostart";
    }
    return {};
}

std::string CargaAlIniciarXdg::Contenido(const fs::path& ejecutable,
                                         const std::vector<std::string>& argumentos) {
    std::string exec = CitarExec(ejecutable.string());
    for (const std::string& a : argumentos) {
        exec += " " + CitarExec(a);
    }
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Vorimesk\n"
           "GenericName=Contador de llamadas\n"
           "Comment=Cuenta el tiempo y el coste de las conexiones a Internet por módem\n"
           "Exec=" +
           exec +
           "\n"
           "Icon=vorimesk\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n";
}

void CargaAlIniciarXdg::Activar(const fs::path& ejecutable,
                                const std::vector<std::string>& argumentos) {
    if (carpeta_.empty()) {
        throw ErrorArchivo("~/.config/autostart",
                           "no se sabe cual es la carpeta personal (HOME no esta definida)");
    }
    std::error_code ec;
    fs::create_directories(carpeta_, ec);
    if (ec) {
        throw ErrorArchivo(carpeta_.string(), "no se pudo crear la carpeta: " + ec.message());
    }
    EscribirArchivoSeguro(Archivo(), Contenido(ejecutable, argumentos));
}

void CargaAlIniciarXdg::Desactivar() {
    if (!carpeta_.empty()) {
        BorrarArchivo(Archivo());
    }
}

bool CargaAlIniciarXdg::Activada() const {
    return !carpeta_.empty() && ExisteArchivo(Archivo());
}

} // namespace vorimesk
