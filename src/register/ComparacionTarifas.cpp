#include "ComparacionTarifas.h"

#include "Importe.h"
#include "PrecioRegistro.h"
#include "VolumenRegistro.h"
#include "core/Errores.h"
#include "tariff/cLlamada.h"

#include <algorithm>
#include <charconv>

namespace fs = std::filesystem;

namespace vorimesk {
namespace {

// The amount as the register stores it, read as the decimal number its text
// says, so a total is the very sum of the amounts the register lists.
double ImporteGuardado(const RegistroLlamada& r) {
    std::string texto = r.importe.Recortado();
    std::replace(texto.begin(), texto.end(), ',', '.');
    double importe = 0.0;
    const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), importe);
    if (leido.ec != std::errc() || leido.ptr != texto.data() + texto.size()) {
        return static_cast<double>(LeerImporte(texto));
    }
    return importe;
}

std::vector<std::string> NombresDelLibro(const cLlamada& libro) {
    std::vector<std::string> nombres;
    for (std::int16_t i = 0; i < libro.Count(); ++i) {
        nombres.push_back(libro.Tarifa(i).Nombre());
    }
    return nombres;
}

// The chosen calls' total under `tarifa`. `elegidas` flags the chosen calls;
// `hasta` is one past the last of them.
double Total(const Log& registro, const std::vector<bool>& elegidas, int hasta,
             const std::string& tarifa, const cLlamada& libro, const fs::path& carpeta,
             const cBono& bono, const std::vector<Fecha>& festivos) {
    PrecioRegistro precio(libro, festivos, bono);
    const std::vector<float> volumen =
        VolumenDeLlamadas(carpeta, festivos, bono, registro.Registros(), tarifa);
    // With no bundle to draw from, one call's price does not depend on the
    // calls before it: only the chosen ones need pricing.
    const bool encadenadas = bono.Count() > 0;
    double total = 0.0;
    for (int i = 0; i < hasta; ++i) {
        const bool elegida = elegidas[static_cast<std::size_t>(i)];
        if (!elegida && !encadenadas) {
            continue;
        }
        RegistroLlamada r = registro.Registro(i);
        precio.Preciar(r, tarifa, volumen.empty() ? 0.0f : volumen[static_cast<std::size_t>(i)]);
        if (elegida) {
            total += ImporteGuardado(r);
        }
    }
    return total;
}

void ElegirMasBarata(ComparacionTarifas& c) {
    double mejor = 0.0;
    for (std::size_t i = 0; i < c.Tarifas.size(); ++i) {
        const TotalTarifa& t = c.Tarifas[i];
        for (const bool conBono : {false, true}) {
            const double total = conBono ? t.ConBono : t.SinBono;
            if (c.MasBarata < 0 || total < mejor) {
                mejor = total;
                c.MasBarata = static_cast<int>(i);
                c.MasBarataConBono = conBono;
            }
        }
    }
}

} // namespace

ComparacionTarifas CompararTarifas(const Log& registro, std::vector<int> indices,
                                   const fs::path& carpeta, const cBono& bono,
                                   const std::vector<Fecha>& festivos) {
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    ComparacionTarifas c;
    std::vector<bool> elegidas(static_cast<std::size_t>(registro.Count()), false);
    for (const int i : indices) {
        if (i < 0 || i >= registro.Count()) {
            throw ErrorIndice("llamada " + std::to_string(i) + " de " +
                              std::to_string(registro.Count()));
        }
        elegidas[static_cast<std::size_t>(i)] = true;
        c.Cobrado += ImporteGuardado(registro.Registro(i));
        ++c.Llamadas;
    }
    const int hasta = indices.empty() ? 0 : indices.back() + 1;
    cBono sinBonos(bono);
    sinBonos.Limpiar();
    // One book for every tariff's total, even if the editor saves meanwhile.
    const cLlamada libro = registro.Libro().Actual();
    for (const std::string& nombre : NombresDelLibro(libro)) {
        TotalTarifa t;
        t.Tarifa = nombre;
        t.SinBono = Total(registro, elegidas, hasta, nombre, libro, carpeta, sinBonos, festivos);
        t.ConBono = bono.Count() > 0
                        ? Total(registro, elegidas, hasta, nombre, libro, carpeta, bono, festivos)
                        : t.SinBono;
        t.DiferenciaSinBono = t.SinBono - c.Cobrado;
        t.DiferenciaConBono = t.ConBono - c.Cobrado;
        c.Tarifas.push_back(std::move(t));
    }
    ElegirMasBarata(c);
    return c;
}

} // namespace vorimesk
