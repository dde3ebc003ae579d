#include "ui/Lanzador.h"

#include "CarpetaTemporal.h"
#include "Controles.h"
#include "core/Archivo.h"
#include "ui/ArranquePrograma.h"

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

TEST_F(LanzarEditor, LosProgramasAlConectarArrancanODicenPorQueNo) {
    QStringList fallos;
    const auto anotar = [&](const QString& m) { fallos << m; };
    const fs::path apunte = dir / "apunte";
    EditorFalso(dir / "programa", apunte);
    ArrancarPrograma(nullptr, Q(dir / "programa"), anotar);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fs::exists(apunte); }, 5000));

    ArrancarPrograma(nullptr, Q(dir / "no-existe"), anotar);
    ASSERT_EQ(fallos.size(), 1);
    EXPECT_TRUE(fallos[0].startsWith("No se pudo arrancar el programa \"" + Q(dir / "no-existe")))
        << fallos[0].toStdString();

    // A desktop entry with nothing to start says so, here or through the
    // desktop's launcher.
    EscribirArchivoSeguro(dir / "roto.desktop", "[Desktop Entry]\nName=Roto\n");
    QObject dueño;
    ArrancarPrograma(&dueño, Q(dir / "roto.desktop"), anotar);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fallos.size() == 2; }, 5000));
    EXPECT_TRUE(
        fallos.back().startsWith("No se pudo arrancar el programa \"" + Q(dir / "roto.desktop")))
        << fallos.back().toStdString();
}
