#include "ui/Lanzador.h"

#include "CarpetaTemporal.h"
#include "Controles.h"
#include "core/Archivo.h"

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

using LanzarEditor = prueba::CarpetaTemporal;

// A stand-in editor that writes down the arguments it was started with.
void EditorFalso(const fs::path& ruta, const fs::path& apunte) {
    fs::create_directories(ruta.parent_path());
    EscribirArchivoSeguro(ruta, "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" + apunte.string() +
                                    ".tmp'\nmv '" + apunte.string() + ".tmp' '" + apunte.string() +
                                    "'\n");
    fs::permissions(ruta, fs::perms::owner_all);
}

QString Q(const fs::path& p) {
    return QString::fromStdString(p.string());
}

} // namespace

TEST_F(LanzarEditor, ArrancaElEditorDeAlLadoConLaCarpetaDeDatos) {
    QString error;
    EXPECT_FALSE(Lanzador::AbrirEditor("/datos", &error, Q(dir)));
    EXPECT_TRUE(error.startsWith("No se encuentra el editor de tarifas")) << error.toStdString();

    // En el arbol de compilacion cada programa esta en su carpeta.
    const fs::path apunte = dir / "argumentos";
    EditorFalso(dir / "pelmorad" / "pelmorad", apunte);
    fs::create_directory(dir / "vorimesk");
    EXPECT_EQ(Lanzador::RutaEditor(Q(dir / "vorimesk")), Q(dir / "pelmorad" / "pelmorad"));

    // Instalado, esta al lado y tiene preferencia.
    EditorFalso(dir / "vorimesk" / "pelmorad", apunte);
    EXPECT_EQ(Lanzador::RutaEditor(Q(dir / "vorimesk")), Q(dir / "vorimesk" / "pelmorad"));
    ASSERT_TRUE(Lanzador::AbrirEditor("/mis datos", &error, Q(dir / "vorimesk")))
        << error.toStdString();
    EXPECT_TRUE(error.isEmpty());
    for (int i = 0; i < 100 && !fs::exists(apunte); ++i) {
        QTest::qWait(50);
    }
    EXPECT_EQ(LeerArchivo(apunte), "--datos\n/mis datos\n");
}
