#include "AplicacionCli.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

using namespace vorimesk::cli;

namespace {
struct Resultado {
    int estado;
    std::string salida;
    std::string errores;
};

Resultado Ejecutar(std::vector<const char*> args) {
    args.insert(args.begin(), "vorimesk-cli");
    AplicacionCli app;
    app.Orden("eco", "Orden de prueba", [](std::ostream& o, std::ostream&) {
        o << "hecho";
        return 0;
    });
    std::ostringstream salida, errores;
    const int e = app.Ejecutar(static_cast<int>(args.size()), args.data(), salida, errores);
    return {e, salida.str(), errores.str()};
}
} // namespace

TEST(AplicacionCli, AyudaYVersionEnEspañol) {
    auto r = Ejecutar({"--help"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_NE(r.salida.find("Uso:"), std::string::npos) << r.salida;
    EXPECT_NE(r.salida.find("--datos"), std::string::npos);
    EXPECT_NE(r.salida.find("Ordenes"), std::string::npos);
    r = Ejecutar({"--version"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.salida.rfind("vorimesk-cli ", 0), 0u);
}

TEST(AplicacionCli, ErroresDeUsoSalenConDos) {
    auto r = Ejecutar({});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("Falta la orden"), std::string::npos) << r.errores;
    r = Ejecutar({"inventada"});
    EXPECT_EQ(r.estado, 2);
    r = Ejecutar({"eco", "--sobra"});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("no esperados"), std::string::npos) << r.errores;
    r = Ejecutar({"eco"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.salida, "hecho");
}
