// Start at login through XDG autostart, and the single-instance lock.

#include "CarpetaTemporal.h"
#include "core/Errores.h"
#include "platform/linux/CargaAlIniciarXdg.h"
#include "platform/linux/InstanciaUnicaFlock.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

// The Exec line of a desktop file.
std::string Exec(const std::string& contenido) {
    const auto inicio = contenido.find("\nExec=");
    if (inicio == std::string::npos) {
        return "(sin Exec)";
    }
    const auto fin = contenido.find('\n', inicio + 1);
    return contenido.substr(inicio + 6, fin - inicio - 6);
}

using Autostart = prueba::CarpetaTemporal;

TEST_F(Autostart, ActivarEscribeElEscritorioYSigueAlProgramaCuandoSeMueve) {
    CargaAlIniciarXdg carga(dir / "config" / "autostart");
    EXPECT_FALSE(carga.Activada());
    carga.Desactivar(); // nothing to remove: no error

    carga.Activar("/opt/vorimesk/bin/vorimesk", {});
    ASSERT_TRUE(carga.Activada());
    const std::string texto = Leer(carga.Archivo());
    EXPECT_EQ(texto.rfind("[Desktop Entry]\n", 0), 0u);
    EXPECT_NE(texto.find("\nType=Application\n"), std::string::npos);
    EXPECT_EQ(Exec(texto), "/opt/vorimesk/bin/vorimesk");

    carga.Activar("/home/ana/Mis programas/vorimesk", {});
    EXPECT_EQ(Exec(Leer(carga.Archivo())), "\"/home/ana/Mis programas/vorimesk\"");

    // The options of the start go with it, each quoted on its own.
    carga.Activar("/usr/bin/vorimesk", {"--datos", "/home/ana/Mis datos"});
    EXPECT_EQ(Exec(Leer(carga.Archivo())), "/usr/bin/vorimesk --datos \"/home/ana/Mis datos\"");

    carga.Desactivar();
    EXPECT_FALSE(carga.Activada());
    EXPECT_FALSE(fs::exists(carga.Archivo()));
}

TEST(ExecEscritorio, CitaLoQueElLanzadorInterpretaria) {
    const std::vector<std::pair<std::string, std::string>> casos = {
        {"/usr/bin/vorimesk", "/usr/bin/vorimesk"},     {"/opt/a b/v", "\"/opt/a b/v\""},
        {"/opt/$HOME/v", "\"/opt/\\\\$HOME/v\""},       {"/opt/co\"mi/v", "\"/opt/co\\\\\"mi/v\""},
        {"/opt/barra\\/v", "\"/opt/barra\\\\\\\\/v\""}, {"/opt/100%/v", "/opt/100%%/v"},
        {"/opt/x`id`/v", "\"/opt/x\\\\`id\\\\`/v\""},
    };
    for (const auto& [ruta, exec] : casos) {
        EXPECT_EQ(Exec(CargaAlIniciarXdg::Contenido(ruta)), exec) << ruta;
    }
}

TEST(CarpetaAutostart, XdgConfigHomeSoloSiEsAbsoluta) {
    EXPECT_EQ(CargaAlIniciarXdg::Carpeta("/x/conf", "/home/ana"), "/x/conf/autostart");
    EXPECT_EQ(CargaAlIniciarXdg::Carpeta("relativa", "/home/ana"), "/home/ana/.config/autostart");
    EXPECT_EQ(CargaAlIniciarXdg::Carpeta(std::nullopt, "/home/ana"), "/home/ana/.config/autostart");
    EXPECT_EQ(CargaAlIniciarXdg::Carpeta(std::nullopt, std::nullopt), fs::path());
    CargaAlIniciarXdg sinCasa{fs::path()};
    EXPECT_FALSE(sinCasa.Activada());
    EXPECT_THROW(sinCasa.Activar("/usr/bin/vorimesk", {}), ErrorArchivo);
}

TEST(CarpetaAutostart, LaCarpetaDeDatosSeRepiteComoRutaAbsoluta) {
    EXPECT_TRUE(OpcionesAlIniciar(std::nullopt).empty());
    EXPECT_EQ(OpcionesAlIniciar(fs::path("/srv/datos/./ana")),
              (std::vector<std::string>{"--datos", "/srv/datos/ana"}));
    const auto relativa = OpcionesAlIniciar(fs::path("mis-datos"));
    ASSERT_EQ(relativa.size(), 2u);
    EXPECT_EQ(relativa[1], (fs::current_path() / "mis-datos").string());
}

using Instancia = prueba::CarpetaTemporal;

TEST_F(Instancia, ElSegundoNoEntraHastaQueElPrimeroTermina) {
    const fs::path cerrojo = dir / "vorimesk.lock";
    auto primero = std::make_unique<InstanciaUnicaFlock>(cerrojo);
    ASSERT_TRUE(primero->Adquirir());
    EXPECT_TRUE(primero->Adquirir()) << "quien ya lo tiene lo sigue teniendo";

    InstanciaUnicaFlock segundo(cerrojo);
    EXPECT_FALSE(segundo.Adquirir());

    // Another process, as a second start of the program would be.
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        InstanciaUnicaFlock otro(cerrojo);
        ::_exit(otro.Adquirir() ? 0 : 7);
    }
    int estado = 0;
    ::waitpid(hijo, &estado, 0);
    EXPECT_TRUE(WIFEXITED(estado) && WEXITSTATUS(estado) == 7);

    primero.reset();
    EXPECT_TRUE(segundo.Adquirir());
}

TEST_F(Instancia, UnProcesoQueMuereSueltaElCerrojo) {
    const fs::path cerrojo = dir / "vorimesk.lock";
    int tubo[2];
    ASSERT_EQ(::pipe(tubo), 0);
    const pid_t hijo = ::fork();
    if (hijo == 0) {
        InstanciaUnicaFlock otro(cerrojo);
        const char c = otro.Adquirir() ? 's' : 'n';
        [[maybe_unused]] auto escrito = ::write(tubo[1], &c, 1);
        ::pause(); // until killed: no destructor runs
        ::_exit(0);
    }
    char c = 0;
    ASSERT_EQ(::read(tubo[0], &c, 1), 1);
    EXPECT_EQ(c, 's');
    InstanciaUnicaFlock yo(cerrojo);
    EXPECT_FALSE(yo.Adquirir());
    ::kill(hijo, SIGKILL);
    ::waitpid(hijo, nullptr, 0);
    EXPECT_TRUE(yo.Adquirir());
    ::close(tubo[0]);
    ::close(tubo[1]);
}

TEST_F(Instancia, UnCerrojoPorCarpetaDeDatosConElProcesoQueLoTiene) {
    EXPECT_EQ(InstanciaUnicaFlock::Ruta("/datos"), fs::path("/datos/vorimesk.lock"));
    fs::create_directories(dir / "a");
    fs::create_directories(dir / "b");
    InstanciaUnicaFlock a(InstanciaUnicaFlock::Ruta(dir / "a"));
    InstanciaUnicaFlock b(InstanciaUnicaFlock::Ruta(dir / "b"));
    ASSERT_TRUE(a.Adquirir());
    EXPECT_TRUE(b.Adquirir()) << "otra carpeta, otro contador";
    EXPECT_EQ(std::stol(Leer(dir / "a" / "vorimesk.lock")), static_cast<long>(::getpid()));

    // The holder's id is only given out when it still runs this program: a
    // number left in the file by a holder long gone may belong to anything.
    InstanciaUnicaFlock otro(InstanciaUnicaFlock::Ruta(dir / "a"));
    EXPECT_FALSE(otro.Adquirir());
    EXPECT_EQ(otro.Titular(), std::nullopt) << "este proceso no es vorimesk";
    EXPECT_FALSE(otro.Relevar(std::chrono::milliseconds(100)));

    InstanciaUnicaFlock imposible(dir / "no" / "existe" / "vorimesk.lock");
    EXPECT_THROW(imposible.Adquirir(), ErrorArchivo);
}

} // namespace
