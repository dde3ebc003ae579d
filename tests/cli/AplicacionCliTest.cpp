#include "AplicacionCli.h"

#include "CarpetaCli.h"

using namespace vorimesk::cli;
using vorimesk::prueba::ResultadoCli;

namespace {
ResultadoCli Ejecutar(std::vector<const char*> args) {
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
    for (const char* parte : {"Uso:", "--datos", "Ordenes"}) {
        EXPECT_NE(r.salida.find(parte), std::string::npos) << r.salida;
    }
    r = Ejecutar({"--version"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.salida.rfind("vorimesk-cli ", 0), 0u);
}

TEST(AplicacionCli, ErroresDeUsoSalenConDos) {
    auto r = Ejecutar({});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("Falta la orden"), std::string::npos) << r.errores;
    EXPECT_EQ(Ejecutar({"inventada"}).estado, 2);
    r = Ejecutar({"eco", "--sobra"});
    EXPECT_EQ(r.estado, 2);
    EXPECT_NE(r.errores.find("no esperados"), std::string::npos) << r.errores;
    r = Ejecutar({"eco"});
    EXPECT_EQ(r.estado, 0);
    EXPECT_EQ(r.salida, "hecho");
}
