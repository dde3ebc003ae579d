#pragma once
// A quick way to write a tariff with the bands a test needs, field by field
// through the book's own keys.

#include "tariff/cLlamada.h"

#include <string>

namespace vorimesk::prueba {

// Price per minute and first and last second of one band.
struct Franja {
    std::string importe, inicio, fin;
};
struct Dia {
    Franja normal, reducida;
};

// The usual weekday: normal 08:00:00-17:59:59, reduced 18:00:00-07:59:59.
inline Dia Laborable(std::string normal, std::string reducida) {
    return {{std::move(normal), "08:00:00", "17:59:59"},
            {std::move(reducida), "18:00:00", "07:59:59"}};
}
inline Dia TodoReducido(std::string reducida) {
    return {{"0", "00:00:00", "00:00:00"}, {std::move(reducida), "00:00:00", "23:59:59"}};
}

// Appends a tariff and returns its index.
inline std::int16_t PonerTarifa(cLlamada& libro, const std::string& nombre,
                                const std::string& conexion, const std::string& incluido,
                                const Dia& semana, const Dia& sabado, const Dia& festivo) {
    libro.Add();
    const auto i = static_cast<std::int16_t>(libro.Count() - 1);
    libro.Valor(i, "Nombre", nombre);
    libro.Valor(i, "Conexion.Importe", conexion);
    libro.Valor(i, "Conexion.Tiempo", incluido);
    const std::pair<const char*, const Dia*> dias[] = {
        {"Semana", &semana}, {"Sabado", &sabado}, {"Festivo", &festivo}};
    for (const auto& [dia, bandas] : dias) {
        for (const auto& [banda, f] :
             {std::pair(".Normal", &bandas->normal), std::pair(".Reducida", &bandas->reducida)}) {
            const std::string clave = dia + std::string(banda);
            libro.Valor(i, clave + ".Importe", f->importe);
            libro.Valor(i, clave + ".Inicio", f->inicio);
            libro.Valor(i, clave + ".Fin", f->fin);
        }
    }
    return i;
}

} // namespace vorimesk::prueba
