#include "ValidacionTarifas.h"

#include "core/Texto1252.h"

#include <cstdio>
#include <map>

namespace vorimesk {
namespace {

constexpr std::size_t kAnchoNombre = 15;
constexpr std::size_t kAnchoImporte = 7;

std::string Comillas(const std::string& texto) {
    return "\"" + texto + "\"";
}

std::string Hora(std::int32_t s) {
    char texto[16];
    std::snprintf(texto, sizeof texto, "%02d:%02d:%02d", s / 3600, s / 60 % 60, s % 60);
    return texto;
}

// Characters of UTF-8 text one by one (a malformed byte counts as one).
std::vector<std::string> Caracteres(const std::string& texto) {
    std::vector<std::string> c;
    for (std::size_t i = 0; i < texto.size();) {
        std::size_t n = 1;
        while (i + n < texto.size() && (static_cast<unsigned char>(texto[i + n]) & 0xC0) == 0x80) {
            ++n;
        }
        c.push_back(texto.substr(i, n));
        i += n;
    }
    return c;
}

std::string NoRepresentables(const std::string& texto) {
    std::string malos;
    for (const std::string& c : Caracteres(texto)) {
        if (De1252(A1252(c)) != c && malos.find(c) == std::string::npos) {
            malos += c;
        }
    }
    return malos;
}

bool EsDigito(char c) {
    return c >= '0' && c <= '9';
}

// Digits with at most one "." among or after them: what the numeric-prefix
// reading takes whole.
bool EsImporte(const std::string& t) {
    bool digitos = false, punto = false;
    for (char c : t) {
        if (EsDigito(c)) {
            digitos = true;
        } else if (c == '.' && !punto) {
            punto = true;
        } else {
            return false;
        }
    }
    return digitos;
}

// "de 07:00:00 a 07:59:59 y de ...": band ends are inclusive.
void AñadirTramo(std::string& lista, const TramoDia& t) {
    lista += (lista.empty() ? "de " : " y de ") + Hora(t.desde) + " a " + Hora(t.hasta - 1);
}

class Revision {
public:
    Revision(const TarifaEditable& t, int indice) : t_(t), indice_(indice) {}

    std::vector<Problema> Hacer() {
        Nombre();
        for (const std::string& clave : RegistroTarifa::Claves()) {
            if (clave.ends_with(".Importe")) {
                Importe(clave);
            } else if (RegistroTarifa::EsClaveDeHora(clave)) {
                HoraValida(clave);
            }
        }
        TiempoIncluido();
        for (int d = 0; d < 3; ++d) {
            Dia(d);
        }
        return std::move(problemas_);
    }

private:
    void Poner(Gravedad g, std::string clave, std::string mensaje) {
        problemas_.push_back({g, indice_, t_.Nombre(), std::move(clave), std::move(mensaje)});
    }

    void Nombre() {
        const std::string& escrito = t_.Valor("Nombre");
        const std::string nombre = t_.Nombre();
        if (nombre.empty()) {
            Poner(Gravedad::Error, "Nombre", "El nombre esta vacio.");
            return;
        }
        if (const std::string malos = NoRepresentables(nombre); !malos.empty()) {
            Poner(Gravedad::Error, "Nombre",
                  "El nombre " + Comillas(nombre) +
                      " lleva caracteres que el archivo de tarifas no puede guardar: " +
                      Comillas(malos) + ".");
            return;
        }
        const std::string bytes = A1252(nombre);
        if (bytes.size() > kAnchoNombre) {
            Poner(Gravedad::Error, "Nombre",
                  "El nombre " + Comillas(nombre) + " tiene " + std::to_string(bytes.size()) +
                      " caracteres y en el archivo caben 15.");
        }
        const auto primero = static_cast<unsigned char>(bytes[0]);
        if (primero < 32 || primero > 126) {
            Poner(Gravedad::Error, "Nombre",
                  "El nombre " + Comillas(nombre) + " empieza por " +
                      Comillas(Caracteres(nombre)[0]) +
                      ": al leer el archivo, esta tarifa y las que la siguen se perderian. "
                      "Empiecelo por una letra sin acento, una cifra o un signo.");
        }
        if (nombre != escrito) {
            Poner(Gravedad::Aviso, "Nombre",
                  "Los espacios al principio y al final del nombre no se guardan.");
        }
    }

    void Importe(const std::string& clave) {
        const std::string texto = Recortar(t_.Valor(clave));
        const std::string que = DescribirClave(clave);
        if (texto.empty()) {
            Poner(Gravedad::Error, clave, "Falta el " + que + ".");
            return;
        }
        const std::string de = "El " + que + " (" + texto + ")";
        if (texto[0] == '-' && EsImporte(texto.substr(1))) {
            Poner(Gravedad::Error, clave, de + " no puede ser negativo.");
            return;
        }
        if (!EsImporte(texto)) {
            Poner(Gravedad::Error, clave, de + " no es un numero (se escribe 2,5 o 1.500,25).");
            return;
        }
        if (texto.size() > kAnchoImporte) {
            Poner(Gravedad::Error, clave,
                  de + " tiene " + std::to_string(texto.size()) +
                      " caracteres y en el archivo caben 7.");
        }
    }

    void HoraValida(const std::string& clave) {
        if (!TarifaEditable::LeerHora(t_.Valor(clave))) {
            Poner(Gravedad::Error, clave,
                  "El " + DescribirClave(clave) + " (" + t_.Valor(clave) +
                      ") no es una hora valida (hh:mm:ss, de 00:00:00 a 23:59:59).");
        }
    }

    void TiempoIncluido() {
        const auto s = TarifaEditable::LeerHora(t_.Valor("Conexion.Tiempo"));
        if (s && *s % 60 != 0) {
            Poner(Gravedad::Aviso, "Conexion.Tiempo",
                  "Los segundos del tiempo incluido (" + t_.Valor("Conexion.Tiempo") +
                      ") no cuentan: sus horas se leen como minutos y sus minutos como "
                      "segundos.");
        }
    }

    void Dia(int d) {
        const auto f = t_.Franjas(d);
        if (!f) {
            return;
        }
        const std::string dia = TarifaEditable::kDias[d];
        if (f->normalInicio > f->normalFin) {
            Poner(Gravedad::Error, TarifaEditable::Clave(d, 0, "Fin"),
                  "La franja normal de " + dia + " empieza (" + Hora(f->normalInicio) +
                      ") despues de acabar (" + Hora(f->normalFin) +
                      "): no puede pasar de medianoche; las horas de la noche van en la "
                      "reducida.");
            return;
        }
        std::string solapes, huecos;
        for (const TramoDia& t : MapaDia(*f)) {
            if (t.cobertura == Cobertura::Solape) {
                AñadirTramo(solapes, t);
            } else if (t.cobertura == Cobertura::SinFranja) {
                AñadirTramo(huecos, t);
            }
        }
        if (!solapes.empty()) {
            Poner(Gravedad::Aviso, dia,
                  "En " + dia + " las franjas normal y reducida se solapan " + solapes +
                      ": una llamada que entra en esas horas desde la reducida sigue a precio "
                      "reducido.");
        }
        if (!huecos.empty()) {
            Poner(Gravedad::Aviso, dia,
                  "En " + dia + " no hay franja " + huecos +
                      ": esas horas se cobran como "
                      "reducida.");
        }
    }

    const TarifaEditable& t_;
    int indice_;
    std::vector<Problema> problemas_;
};

void Repetidos(const LibroEditable& libro, std::vector<Problema>& p) {
    std::map<std::string, int> vistos;
    for (int i = 0; i < libro.Count(); ++i) {
        const std::string nombre = libro.Tarifa(i).Nombre();
        if (nombre.empty()) {
            continue;
        }
        const auto [donde, nuevo] = vistos.emplace(nombre, i);
        if (!nuevo) {
            p.push_back({Gravedad::Error, i, nombre, "Nombre",
                         "El nombre " + Comillas(nombre) + " ya lo lleva la tarifa " +
                             std::to_string(donde->second + 1) +
                             "; cada tarifa necesita un nombre distinto."});
        }
    }
}

// The BonoNet day and night are read from the second tariff whatever its
// name; the shipped book keeps "BonoNet" there.
void PuestoBonoNet(const LibroEditable& libro, std::vector<Problema>& p) {
    for (int i = 0; i < libro.Count(); ++i) {
        if (libro.Tarifa(i).Nombre() != "BonoNet" || i == 1) {
            continue;
        }
        const std::string ahora =
            libro.Count() > 1 ? "ahora " + Comillas(libro.Tarifa(1).Nombre()) : "ahora ninguna";
        p.push_back({Gravedad::Aviso, i, "BonoNet", "",
                     "La tarifa \"BonoNet\" no esta en el segundo puesto de la lista: el dia y la "
                     "noche de los bonos BonoNet se toman siempre de la tarifa de ese puesto (" +
                         ahora + ")."});
        return;
    }
}

} // namespace

std::string Problema::Texto() const {
    std::string t = gravedad == Gravedad::Error ? "Error" : "Aviso";
    if (tarifa >= 0) {
        t += " en la tarifa " + std::to_string(tarifa + 1) +
             (nombre.empty() ? std::string(" (sin nombre)") : " (" + nombre + ")");
    }
    return t + ": " + mensaje;
}

std::vector<Problema> ValidarTarifa(const TarifaEditable& tarifa, int indice) {
    return Revision(tarifa, indice).Hacer();
}

std::vector<Problema> ValidarLibro(const LibroEditable& libro) {
    std::vector<Problema> p;
    if (libro.Count() == 0) {
        p.push_back({Gravedad::Error, -1, "", "",
                     "El libro no tiene ninguna tarifa; hace falta al menos una."});
    }
    for (int i = 0; i < libro.Count(); ++i) {
        auto de = ValidarTarifa(libro.Tarifa(i), i);
        p.insert(p.end(), de.begin(), de.end());
    }
    Repetidos(libro, p);
    PuestoBonoNet(libro, p);
    return p;
}

bool HayErrores(const std::vector<Problema>& problemas) {
    for (const Problema& p : problemas) {
        if (p.gravedad == Gravedad::Error) {
            return true;
        }
    }
    return false;
}

std::string TextoProblemas(const std::vector<Problema>& problemas) {
    std::string t;
    for (Gravedad g : {Gravedad::Error, Gravedad::Aviso}) {
        for (const Problema& p : problemas) {
            if (p.gravedad == g) {
                t += p.Texto() + "\n";
            }
        }
    }
    return t;
}

std::string DescribirClave(const std::string& clave) {
    if (clave == "Nombre") {
        return "nombre";
    }
    if (clave == "Conexion.Importe") {
        return "importe de conexion";
    }
    if (clave == "Conexion.Tiempo") {
        return "tiempo incluido";
    }
    for (int d = 0; d < 3; ++d) {
        for (int f = 0; f < 2; ++f) {
            const std::string franja =
                std::string(f == 0 ? "normal" : "reducida") + " de " + TarifaEditable::kDias[d];
            if (clave == TarifaEditable::Clave(d, f, "Importe")) {
                return "precio de la franja " + franja;
            }
            if (clave == TarifaEditable::Clave(d, f, "Inicio")) {
                return "inicio de la franja " + franja;
            }
            if (clave == TarifaEditable::Clave(d, f, "Fin")) {
                return "fin de la franja " + franja;
            }
        }
    }
    return clave;
}

} // namespace vorimesk
