#include "Guion.h"

#include "core/Archivo.h"
#include "core/Errores.h"

#include <algorithm>
#include <charconv>

namespace vorimesk {
namespace {

// Words of a line: blanks separate them, double quotes group them, and "#"
// outside quotes ends the line.
std::vector<std::string> Palabras(std::string_view linea, const std::string& donde) {
    std::vector<std::string> palabras;
    std::size_t i = 0;
    while (i < linea.size()) {
        const char c = linea[i];
        if (c == ' ' || c == '\t' || c == '\r') {
            ++i;
        } else if (c == '#') {
            break;
        } else if (c == '"') {
            const auto cierre = linea.find('"', i + 1);
            if (cierre == std::string_view::npos) {
                throw Error(donde + ": falta la comilla que cierra el nombre");
            }
            palabras.emplace_back(linea.substr(i + 1, cierre - i - 1));
            i = cierre + 1;
        } else {
            const auto fin = linea.find_first_of(" \t\r", i);
            palabras.emplace_back(linea.substr(i, fin == std::string_view::npos ? fin : fin - i));
            i = fin == std::string_view::npos ? linea.size() : fin;
        }
    }
    return palabras;
}

std::uint64_t Natural(const std::string& texto, const std::string& que, const std::string& donde) {
    std::uint64_t n = 0;
    const auto [fin, ec] = std::from_chars(texto.data(), texto.data() + texto.size(), n);
    if (texto.empty() || ec != std::errc() || fin != texto.data() + texto.size() ||
        n > static_cast<std::uint64_t>(INT64_MAX / 2)) {
        throw Error(donde + ": \"" + texto + "\" no es un numero valido para " + que);
    }
    return n;
}

std::int64_t Segundos(const std::string& texto, const std::string& que, const std::string& donde) {
    const auto n = Natural(texto, que, donde);
    if (n > 100LL * 365 * 86400) {
        throw Error(donde + ": " + que + " es demasiado largo");
    }
    return static_cast<std::int64_t>(n);
}

// Reads the "clave=valor" words behind the entry name into the step.
void Parametros(const std::vector<std::string>& palabras, PasoGuion& paso,
                const std::string& donde) {
    bool hayMarcar = false;
    bool hayConectado = false;
    for (std::size_t i = 2; i < palabras.size(); ++i) {
        const auto igual = palabras[i].find('=');
        const std::string clave = palabras[i].substr(0, igual);
        const std::string valor = igual == std::string::npos ? "" : palabras[i].substr(igual + 1);
        const bool deLlamada = paso.tipo == PasoGuion::Tipo::Llamada;
        if (clave == "marcar") {
            paso.marcar = Segundos(valor, clave, donde);
            hayMarcar = true;
        } else if (clave == "conectado" && deLlamada) {
            paso.conectado = Segundos(valor, clave, donde);
            hayConectado = true;
        } else if (clave == "recibidos" && deLlamada) {
            paso.trafico.recibidos = Natural(valor, clave, donde);
        } else if (clave == "enviados" && deLlamada) {
            paso.trafico.enviados = Natural(valor, clave, donde);
        } else if (clave == "velocidad" && deLlamada && !valor.empty()) {
            paso.velocidad = valor;
        } else if (clave == "interfaz" && deLlamada && !valor.empty()) {
            paso.interfaz = valor;
        } else {
            throw Error(donde + ": no se entiende \"" + palabras[i] + "\"");
        }
    }
    if (paso.tipo == PasoGuion::Tipo::Fallo && !hayMarcar) {
        throw Error(donde + ": un fallo necesita marcar=SEGUNDOS");
    }
    if (paso.tipo == PasoGuion::Tipo::Llamada && (!hayConectado || paso.conectado == 0)) {
        throw Error(donde + ": una llamada necesita conectado=SEGUNDOS, mayor que cero");
    }
}

} // namespace

Guion Guion::Analizar(std::string_view texto, const std::string& nombre) {
    Guion guion;
    int numero = 0;
    std::size_t inicio = 0;
    while (inicio < texto.size()) {
        auto fin = texto.find('\n', inicio);
        if (fin == std::string_view::npos) {
            fin = texto.size();
        }
        const std::string donde = nombre + ", linea " + std::to_string(++numero);
        const auto palabras = Palabras(texto.substr(inicio, fin - inicio), donde);
        if (!palabras.empty()) {
            guion.AnalizarLinea(palabras, donde);
        }
        inicio = fin + 1;
    }
    return guion;
}

Guion Guion::Leer(const std::filesystem::path& ruta) {
    return Analizar(LeerArchivo(ruta), ruta.filename().string());
}

void Guion::AñadirEntrada(const std::string& entrada) {
    if (std::find(entradas_.begin(), entradas_.end(), entrada) == entradas_.end()) {
        entradas_.push_back(entrada);
    }
}

void Guion::AnalizarLinea(const std::vector<std::string>& palabras, const std::string& donde) {
    const std::string& orden = palabras[0];
    if (orden == "modem") {
        std::string modelo;
        for (std::size_t i = 1; i < palabras.size(); ++i) {
            modelo += (i > 1 ? " " : "") + palabras[i];
        }
        if (modelo.empty()) {
            throw Error(donde + ": falta el modelo del modem");
        }
        modems_.push_back(modelo);
        return;
    }
    if (orden != "espera" && orden != "llamada" && orden != "fallo" && orden != "entrada") {
        throw Error(donde + ": orden desconocida \"" + orden + "\"");
    }
    if (palabras.size() < 2 || palabras[1].empty()) {
        throw Error(donde + ": falta " +
                    (orden == "espera" ? std::string("el numero de segundos")
                                       : std::string("el nombre de la entrada")));
    }
    if (orden == "espera") {
        if (palabras.size() > 2) {
            throw Error(donde + ": sobra \"" + palabras[2] + "\"");
        }
        PasoGuion paso;
        paso.espera = Segundos(palabras[1], "espera", donde);
        pasos_.push_back(paso);
        return;
    }
    AñadirEntrada(palabras[1]);
    if (orden == "entrada") {
        if (palabras.size() > 2) {
            throw Error(donde + ": sobra \"" + palabras[2] + "\"");
        }
        return;
    }
    PasoGuion paso;
    paso.tipo = orden == "llamada" ? PasoGuion::Tipo::Llamada : PasoGuion::Tipo::Fallo;
    paso.entrada = palabras[1];
    Parametros(palabras, paso, donde);
    pasos_.push_back(paso);
}

} // namespace vorimesk
