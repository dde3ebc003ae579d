#include "platform/OrdenPrograma.h"

#include "core/Archivo.h"
#include "core/Errores.h"
#include "core/Lineas.h"

#include <algorithm>
#include <cctype>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

bool EsEntradaEscritorio(const fs::path& ruta) {
    std::string extension = ruta.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension == ".desktop";
}

// A desktop-file string value: \s, \n, \t, \r and \\ stand for their
// characters.
std::string ValorCadena(std::string_view v) {
    std::string s;
    for (std::size_t i = 0; i < v.size(); ++i) {
        if (v[i] == '\\' && i + 1 < v.size()) {
            const char c = v[++i];
            s += c == 's' ? ' ' : c == 'n' ? '\n' : c == 't' ? '\t' : c == 'r' ? '\r' : c;
        } else {
            s += v[i];
        }
    }
    return s;
}

// Splits the command line at blanks outside double quotes; inside them a
// backslash keeps the next character. A word that is only a field code
// goes; "%%" is a percent sign and other codes inside a word go.
std::vector<std::string> Palabras(const std::string& linea) {
    std::vector<std::string> palabras;
    std::string actual;
    bool hay = false, comillas = false, soloCodigo = false;
    auto cerrar = [&] {
        if (hay && !soloCodigo) {
            palabras.push_back(actual);
        }
        actual.clear();
        hay = soloCodigo = false;
    };
    for (std::size_t i = 0; i < linea.size(); ++i) {
        const char c = linea[i];
        if (comillas) {
            if (c == '"') {
                comillas = false;
            } else if (c == '\\' && i + 1 < linea.size()) {
                actual += linea[++i];
            } else {
                actual += c;
            }
        } else if (c == ' ' || c == '\t') {
            cerrar();
        } else if (c == '"') {
            comillas = hay = true;
        } else if (c == '%' && i + 1 < linea.size()) {
            const char codigo = linea[++i];
            if (codigo == '%') {
                actual += '%';
                hay = true;
            } else if (!hay) {
                hay = soloCodigo = true;
            }
        } else {
            actual += c;
            hay = true;
            soloCodigo = false;
        }
    }
    cerrar();
    return palabras;
}

} // namespace

std::vector<std::string> ExecDeEscritorio(std::string_view contenido) {
    bool enGrupo = false;
    for (std::string_view linea : DividirLineas(contenido)) {
        if (linea.starts_with("[")) {
            enGrupo = linea.starts_with("[Desktop Entry]");
        } else if (enGrupo && linea.starts_with("Exec=")) {
            return Palabras(ValorCadena(linea.substr(5)));
        }
    }
    return {};
}

OrdenPrograma OrdenParaPrograma(const fs::path& ruta, const HayOrden& hayOrden) {
    const std::string texto = ruta.string();
    if (EsEntradaEscritorio(ruta)) {
        if (hayOrden("gio")) {
            return {{"gio", "launch", texto}, true};
        }
        std::vector<std::string> argv =
            ExisteArchivo(ruta) ? ExecDeEscritorio(LeerArchivo(ruta)) : std::vector<std::string>{};
        if (argv.empty()) {
            throw Error("El acceso directo \"" + texto +
                        "\" no dice que programa arrancar (no tiene linea Exec).");
        }
        return {std::move(argv), false};
    }
    std::error_code ec;
    const bool ejecutable = fs::is_directory(ruta, ec) || ::access(texto.c_str(), X_OK) == 0;
    if (!ejecutable && fs::exists(ruta, ec) && hayOrden("xdg-open")) {
        return {{"xdg-open", texto}, true};
    }
    return {{texto}, false};
}

} // namespace vorimesk
