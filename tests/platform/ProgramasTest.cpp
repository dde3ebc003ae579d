// How a program of the on-connect list is started: desktop entries through
// the desktop's launcher or their Exec line, documents through xdg-open.

#include "CarpetaTemporal.h"
#include "core/Errores.h"
#include "platform/OrdenPrograma.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

using Argv = std::vector<std::string>;

HayOrden Hay(std::vector<std::string> ordenes) {
    return [ordenes](const std::string& n) {
        return std::find(ordenes.begin(), ordenes.end(), n) != ordenes.end();
    };
}

using ProgramasAlConectar = prueba::CarpetaTemporal;

} // namespace

TEST(ExecDeEscritorio, ComillasEscapesYCodigos) {
    EXPECT_EQ(ExecDeEscritorio("[Desktop Entry]\nName=F\nExec=firefox %u\n"), Argv{"firefox"});
    EXPECT_EQ(ExecDeEscritorio("[Desktop Entry]\r\nExec=\"/opt/mi programa/run\" --x=100%% %F\r\n"),
              (Argv{"/opt/mi programa/run", "--x=100%"}));
    EXPECT_EQ(ExecDeEscritorio("[Desktop Entry]\nExec=sh -c \"echo hola\"\n"),
              (Argv{"sh", "-c", "echo hola"}));
    // Only the main group counts; none at all is empty.
    EXPECT_EQ(ExecDeEscritorio("[Desktop Action nueva]\nExec=otra\n[Desktop Entry]\nExec=una\n"),
              Argv{"una"});
    EXPECT_TRUE(ExecDeEscritorio("[Desktop Entry]\nName=Sin\n").empty());
}

TEST_F(ProgramasAlConectar, CadaArchivoConSuOrden) {
    Escribir(dir / "app.desktop", "[Desktop Entry]\nExec=mi-app --nueva %U\n");
    Escribir(dir / "vacia.desktop", "[Desktop Entry]\nName=Vacia\n");
    Escribir(dir / "notas.txt", "");
    Escribir(dir / "script", "#!/bin/sh\n");
    fs::permissions(dir / "script", fs::perms::owner_all);
    const std::string app = (dir / "app.desktop").string();

    const OrdenPrograma gio = OrdenParaPrograma(app, Hay({"gio", "xdg-open"}));
    EXPECT_EQ(gio.argv, (Argv{"gio", "launch", app}));
    EXPECT_TRUE(gio.esperar);
    const OrdenPrograma propia = OrdenParaPrograma(app, Hay({}));
    EXPECT_EQ(propia.argv, (Argv{"mi-app", "--nueva"}));
    EXPECT_FALSE(propia.esperar);
    EXPECT_THROW(OrdenParaPrograma(dir / "vacia.desktop", Hay({})), Error);

    EXPECT_EQ(OrdenParaPrograma(dir / "notas.txt", Hay({"xdg-open"})).argv,
              (Argv{"xdg-open", (dir / "notas.txt").string()}));
    EXPECT_EQ(OrdenParaPrograma(dir / "script", Hay({"xdg-open"})).argv,
              Argv{(dir / "script").string()});
    // A program not there is tried as it is, and its failure told.
    EXPECT_EQ(OrdenParaPrograma(dir / "falta", Hay({"xdg-open"})).argv,
              Argv{(dir / "falta").string()});
}
