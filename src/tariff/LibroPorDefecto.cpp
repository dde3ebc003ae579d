#include "LibroPorDefecto.h"

#include "cLlamada.h"

#include <array>
#include <string>

namespace vorimesk {
namespace {

// One band: price per minute in pesetas, first and last second (inclusive).
// A band whose start equals its end is empty.
struct Franja {
    const char* importe;
    const char* inicio;
    const char* fin;
};

struct Dia {
    Franja normal;
    Franja reducida;
};

struct TarifaPorDefecto {
    const char* nombre;
    const char* conexion;    // charged once per call
    const char* incluido;    // stored as hh:mm, read as minutes:seconds
    std::array<Dia, 3> dias; // "Semana", "Sabado", "Festivo"
};

constexpr Dia Laborable(const char* normal, const char* reducida) {
    return {{normal, "08:00:00", "17:59:59"}, {reducida, "18:00:00", "07:59:59"}};
}

constexpr Dia Sabado(const char* normal, const char* reducida) {
    return {{normal, "08:00:00", "13:59:59"}, {reducida, "14:00:00", "07:59:59"}};
}

constexpr Dia TodoReducido(const char* normal, const char* reducida) {
    return {{normal, "00:00:00", "00:00:00"}, {reducida, "00:00:00", "23:59:59"}};
}

constexpr std::array<TarifaPorDefecto, 5> kTarifas = {{
    {"Metropolitana",
     "11.72",
     "00:00:00",
     {Laborable("2.5", "1.04"), Sabado("2.5", "1.04"), TodoReducido("2.5", "1.04")}},
    {"BonoNet",
     "11.72",
     "00:00:00",
     {Laborable("2.5", "1.04"), TodoReducido("2.5", "1.04"), TodoReducido("2.5", "1.04")}},
    {"Provincial",
     "11.72",
     "00:00:00",
     {Laborable("13.71", "5.94"), Sabado("13.71", "5.94"), TodoReducido("13.71", "5.94")}},
    {"Interprovincial",
     "11.72",
     "00:00:00",
     {Laborable("29.75", "13.04"), Sabado("29.75", "13.04"), TodoReducido("29.75", "13.04")}},
    {"Infovia",
     "11.72",
     "00:00:00",
     {Laborable("2.5", "1.04"), Sabado("2.5", "1.04"), TodoReducido("2.5", "1.04")}},
}};

void PonerFranja(cLlamada& libro, std::int16_t i, const std::string& clave, const Franja& f) {
    libro.Valor(i, clave + ".Importe", f.importe);
    libro.Valor(i, clave + ".Inicio", f.inicio);
    libro.Valor(i, clave + ".Fin", f.fin);
}

} // namespace

void RellenarLibroPorDefecto(cLlamada& libro) {
    const char* dias[] = {"Semana", "Sabado", "Festivo"};
    for (const TarifaPorDefecto& t : kTarifas) {
        libro.Add();
        const auto i = static_cast<std::int16_t>(libro.Count() - 1);
        libro.Valor(i, "Nombre", t.nombre);
        libro.Valor(i, "Conexion.Importe", t.conexion);
        libro.Valor(i, "Conexion.Tiempo", t.incluido);
        for (std::size_t d = 0; d < 3; ++d) {
            PonerFranja(libro, i, std::string(dias[d]) + ".Normal", t.dias[d].normal);
            PonerFranja(libro, i, std::string(dias[d]) + ".Reducida", t.dias[d].reducida);
        }
    }
}

void InstalarLibroPorDefecto(const std::filesystem::path& carpeta) {
    cLlamada libro(carpeta);
    std::error_code ec;
    if (std::filesystem::exists(libro.Ruta(), ec)) {
        return;
    }
    RellenarLibroPorDefecto(libro);
    libro.Save();
}

} // namespace vorimesk
