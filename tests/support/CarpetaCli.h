#pragma once
// vorimesk-cli run inside the test program, with every command, on a data
// folder of the test's own: the exit status and what it wrote.

#include "AplicacionCli.h"
#include "CarpetaTemporal.h"

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace vorimesk::prueba {

struct ResultadoCli {
    int estado;
    std::string salida;
    std::string errores;
};

class CarpetaCli : public CarpetaTemporal {
protected:
    ResultadoCli Ejecutar(std::vector<std::string> args) const {
        args.insert(args.begin(), {"vorimesk-cli", "--datos", datos.string()});
        std::vector<const char*> argv;
        for (const std::string& a : args) {
            argv.push_back(a.c_str());
        }
        cli::AplicacionCli app;
        cli::RegistrarOrdenes(app);
        std::ostringstream salida, errores;
        const int e = app.Ejecutar(static_cast<int>(argv.size()), argv.data(), salida, errores);
        return {e, salida.str(), errores.str()};
    }
    // What a command printed with --json; its failure fails the test.
    nlohmann::json Json(std::vector<std::string> args) const {
        const ResultadoCli r = Ejecutar(std::move(args));
        EXPECT_EQ(r.estado, 0) << r.errores;
        return nlohmann::json::parse(r.salida.empty() ? "null" : r.salida);
    }

    // Made by the first command that needs it, unless the test writes there.
    std::filesystem::path datos = dir / "datos";
};

} // namespace vorimesk::prueba
