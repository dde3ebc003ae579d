#pragma once
// vorimesk-cli: the command-line face of the meter. Exit status 0 on success,
// 1 on a user error (a Spanish message on stderr, no file changed), 2 on a
// usage error.

#include "ContextoCli.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <iosfwd>
#include <vector>

namespace vorimesk::cli {

constexpr int kSalidaBien = 0;
constexpr int kSalidaErrorUsuario = 1;
constexpr int kSalidaErrorUso = 2;

class AplicacionCli {
public:
    AplicacionCli();
    int Ejecutar(int argc, const char* const* argv, std::ostream& salida, std::ostream& errores);

    CLI::App& App() { return app_; }
    ContextoCli& Contexto() { return contexto_; }

    // A command registers the work to run once its options are parsed.
    CLI::App* Orden(const std::string& nombre, const std::string& descripcion,
                    std::function<int(std::ostream&, std::ostream&)> accion);

private:
    CLI::App app_;
    ContextoCli contexto_;
    std::function<int(std::ostream&, std::ostream&)> accion_;
};

// Adds every command of the tool; each lives in a file of its own.
void RegistrarOrdenes(AplicacionCli& aplicacion);

} // namespace vorimesk::cli
