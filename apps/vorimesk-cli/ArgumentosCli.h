#pragma once
// Pieces the commands share: argument checks with Spanish messages, the user
// error they throw, and the way amounts are written.

#include "core/Errores.h"
#include "core/Fecha.h"

#include <CLI/CLI.hpp>
#include <string>

namespace vorimesk::cli {

// A request the data cannot satisfy (a tariff that is not in the book, an
// end before the start): exit status 1.
class ErrorOrden : public Error {
public:
    using Error::Error;
};

// "AAAA-MM-DD hh:mm:ss" or "AAAA-MM-DD"; anything else is a usage error.
CLI::Validator FechaHoraValida();
// A whole number from minimo to maximo.
CLI::Validator EnteroEntre(long minimo, long maximo);
// An argument that FechaHoraValida accepted.
Fecha LeerFechaHora(const std::string& texto);

// The shortest decimal that reads back as the same single-precision amount,
// so 15.26f is written 15.26 and not 15.260000228881836.
std::string TextoImporte(float importe);
double NumeroJson(float importe);

} // namespace vorimesk::cli
