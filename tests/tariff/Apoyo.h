#pragma once
// Shared by the tariff tests: a temporary data folder and a quick way to
// write a tariff with the bands each test needs.

#include "tariff/cLlamada.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace prueba {

// The folder exists from construction on, so members can be built on it.
class CarpetaTemporal : public ::testing::Test {
protected:
    CarpetaTemporal();
    ~CarpetaTemporal() override;
    std::filesystem::path dir;
};

// Price per minute and first and last second of one band.
struct Franja {
    std::string importe, inicio, fin;
};
struct Dia {
    Franja normal, reducida;
};

// The usual weekday: normal 08:00:00-17:59:59, reduced 18:00:00-07:59:59.
Dia Laborable(std::string normal, std::string reducida);
Dia TodoReducido(std::string reducida);

// Appends a tariff and returns its index.
std::int16_t PonerTarifa(vorimesk::cLlamada& libro, const std::string& nombre,
                         const std::string& conexion, const std::string& incluido,
                         const Dia& semana, const Dia& sabado, const Dia& festivo);

// The cost of n seconds at a price per minute, as pricing computes it.
inline float Tramo(float precio, int n) {
    return precio / 60.0f * static_cast<float>(n);
}

} // namespace prueba
