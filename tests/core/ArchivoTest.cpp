#include "core/Archivo.h"

#include "CarpetaTemporal.h"
#include "core/CarpetaDatos.h"
#include "core/Errores.h"

#include <fstream>
#include <gtest/gtest.h>

using namespace vorimesk;
using vorimesk::prueba::CarpetaTemporal;
namespace fs = std::filesystem;

using Archivo = CarpetaTemporal;

TEST_F(Archivo, ExisteSoloSiSePuedeLeer) {
    EXPECT_FALSE(ExisteArchivo(dir / "nada"));
    EXPECT_FALSE(ExisteArchivo(dir)); // una carpeta no es un archivo
    Escribir(dir / "a", "x");
    EXPECT_TRUE(ExisteArchivo(dir / "a"));
    if (::geteuid() != 0) { // root lee aunque no tenga permiso
        fs::permissions(dir / "a", fs::perms::none);
        EXPECT_FALSE(ExisteArchivo(dir / "a"));
    }
}

TEST_F(Archivo, EscrituraSeguraReemplazaSinRestos) {
    const fs::path p = dir / "RegDat.log";
    EscribirArchivoSeguro(p, std::string("uno\0dos", 7), kSoloUsuario);
    EXPECT_EQ(LeerArchivo(p), std::string("uno\0dos", 7));
    EXPECT_EQ(fs::status(p).permissions() & fs::perms::all, kSoloUsuario);
    fs::permissions(p, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    EscribirArchivoSeguro(p, "nuevo");
    EXPECT_EQ(LeerArchivo(p), "nuevo");
    // un archivo existente conserva sus permisos
    EXPECT_EQ(fs::status(p).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    int entradas = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(dir)) {
        ++entradas;
    }
    EXPECT_EQ(entradas, 1); // ningun temporal olvidado
}

TEST_F(Archivo, FalloDeEscrituraDejaElAnteriorIntacto) {
    const fs::path sub = dir / "solo-lectura";
    fs::create_directory(sub);
    Escribir(sub / "Tarifas.Dat", "antiguo");
    fs::permissions(sub, fs::perms::owner_read | fs::perms::owner_exec);
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root escribe en carpetas de solo lectura";
    }
    EXPECT_THROW(EscribirArchivoSeguro(sub / "Tarifas.Dat", "nuevo"), ErrorArchivo);
    EXPECT_EQ(LeerArchivo(sub / "Tarifas.Dat"), "antiguo");
    EXPECT_THROW(LeerArchivo(dir / "no-existe"), ErrorArchivo);
}

using Carpeta = CarpetaTemporal;

TEST_F(Carpeta, OrdenDeEleccion) {
    EntornoCarpeta e;
    e.home = (dir / "casa").string();
    e.carpetaEjecutable = dir / "bin";
    fs::create_directories(e.carpetaEjecutable);

    // Sin datos junto al ejecutable: la carpeta XDG por defecto
    EXPECT_EQ(CarpetaDatos::Resolver(e), dir / "casa/.local/share/vorimesk");
    EXPECT_TRUE(fs::is_directory(dir / "casa/.local/share/vorimesk/Copias"));

    e.xdgDataHome = (dir / "xdg").string();
    EXPECT_EQ(CarpetaDatos::Resolver(e), dir / "xdg/vorimesk");
    e.xdgDataHome = "relativa"; // XDG ignora rutas relativas
    EXPECT_EQ(CarpetaDatos::Resolver(e), dir / "casa/.local/share/vorimesk");

    Escribir(e.carpetaEjecutable / "RegDat.log", "");
    EXPECT_EQ(CarpetaDatos::Resolver(e), e.carpetaEjecutable); // instalacion portatil

    e.datos = dir / "elegida";
    EXPECT_EQ(CarpetaDatos::Resolver(e), dir / "elegida");
    EXPECT_TRUE(fs::is_directory(dir / "elegida/Copias"));

    EntornoCarpeta sinCasa;
    EXPECT_THROW(CarpetaDatos::Resolver(sinCasa), ErrorArchivo);
}

TEST_F(Carpeta, PreparaSoloCarpetasSinDatos) {
    int preparadas = 0;
    CarpetaDatos::AlCrear([&](const fs::path& p) {
        ++preparadas;
        std::ofstream(p / "Tarifas.Dat") << "x";
    });
    EntornoCarpeta e;
    e.datos = dir / "d";
    CarpetaDatos::Resolver(e);
    CarpetaDatos::Resolver(e);
    EXPECT_EQ(preparadas, 1);
    e.datos = dir; // ya existe pero esta vacia: tambien es primera vez
    CarpetaDatos::Resolver(e);
    EXPECT_EQ(preparadas, 2);
    CarpetaDatos::AlCrear(nullptr);
}
