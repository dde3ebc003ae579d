#pragma once
// A connection profile: from `fecha` on, calls of the dial-up connection
// `Conexion` are priced with the tariff `Tarifa` and the discount `Descuento`.

#include "core/Fecha.h"

#include <string>

namespace vorimesk {

class cConexion {
public:
    const std::string& Conexion() const { return conexion_; }
    void Conexion(std::string valor) { conexion_ = std::move(valor); }
    // Stored as given; the displays of totals decide how it applies.
    const std::string& Descuento() const { return descuento_; }
    void Descuento(std::string valor) { descuento_ = std::move(valor); }
    const std::string& Tarifa() const { return tarifa_; }
    void Tarifa(std::string valor) { tarifa_ = std::move(valor); }
    Fecha fecha() const { return fecha_; }
    void fecha(Fecha valor) { fecha_ = valor; }

private:
    std::string conexion_;
    std::string descuento_;
    std::string tarifa_;
    Fecha fecha_;
};

} // namespace vorimesk
