// The pppd hook runs as root; a local user prepares whatever they can before
// a link goes up and down. Nothing they prepare may make root create, append
// to or truncate a file outside the journal, and no user may add or remove a
// call in it. The user's moves run as "nobody" (setpriv).

#include "CarpetaTemporal.h"
#include "GanchoPpp.h"

#include <chrono>
#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

constexpr uid_t kNadie = 65534;

int Sh(const std::string& orden) {
    const int r = std::system(orden.c_str());
    return WIFEXITED(r) ? WEXITSTATUS(r) : -1;
}

// Runs the shell text as nobody, with no groups, or with `grupo` only.
int ComoNadie(const std::string& orden, gid_t grupo = 0) {
    const std::string grupos = grupo == 0 ? "--clear-groups" : "--groups=" + std::to_string(grupo);
    return Sh("setpriv --reuid=65534 --regid=65534 " + grupos + " sh -c '" + orden +
              "' >/dev/null 2>&1");
}

// A file of root's that an attacker would like root to write to: its bytes
// and times must not change, and the folder must get no new files.
struct Victima {
    fs::path carpeta;
    std::string huella;
    static std::string Huella(const fs::path& carpeta) {
        std::string h;
        for (const auto& e : fs::directory_iterator(carpeta)) {
            struct stat s {};
            ::lstat(e.path().c_str(), &s);
            h += e.path().filename().string() + ":" + std::to_string(s.st_size) + ":" +
                 std::to_string(s.st_mtim.tv_sec) + "." + std::to_string(s.st_mtim.tv_nsec) + ";";
        }
        return h;
    }
};

class GanchoSeguridad : public CarpetaTemporal {
protected:
    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "hace falta ser root para correr el gancho como pppd y al atacante "
                            "como nobody";
        }
        if (Sh("setpriv --version >/dev/null 2>&1") != 0) {
            GTEST_SKIP() << "no esta setpriv (util-linux) para actuar como otro usuario";
        }
        fs::permissions(dir, fs::perms(0755));
        victima.carpeta = dir / "etc";
        fs::create_directories(victima.carpeta);
        fs::permissions(victima.carpeta, fs::perms(0755));
        Escribir(victima.carpeta / "passwd", "root:x:0:0\n");
        victima.huella = Victima::Huella(victima.carpeta);
        publico = dir / "publico";
        fs::create_directories(publico);
    }
    // A link up and down, as pppd runs it; true when the hook said 0 every
    // time and did not hang (the bound is loose: test machines are busy).
    bool UnEnlace(const fs::path& diario) {
        fs::remove_all(dir / "ip-up.d");
        fs::remove_all(dir / "ip-down.d");
        InstalarGancho(dir, diario);
        const auto t0 = std::chrono::steady_clock::now();
        const bool bien =
            Subir(dir, EnlaceFalso{}) == 0 && Bajar(dir, EnlaceFalso{}, "30", 1000, 2000) == 0;
        return bien && std::chrono::steady_clock::now() - t0 < std::chrono::seconds(20);
    }
    void VictimaIntacta() {
        EXPECT_EQ(Victima::Huella(victima.carpeta), victima.huella)
            << "root escribio fuera del diario";
    }
    // Symlinks to the victim under every name the hook could use for this
    // link in the next minute, were the names not random in part.
    std::string Trampas(const fs::path& en) {
        std::string o = "ln -s " + (victima.carpeta / "nologin").string() + " " +
                        (en / "ppp0-4242.inicio").string() + "; ";
        const long long t = static_cast<long long>(std::time(nullptr));
        for (long long s = t; s < t + 60; ++s) {
            o += "ln -s " + (victima.carpeta / "passwd").string() + " " +
                 (en / (std::to_string(s) + "-ppp0-4242.sesion")).string() + "; ";
        }
        return o + "true";
    }

    Victima victima;
    fs::path publico;
};

TEST_F(GanchoSeguridad, EnElDiarioInstaladoNadiePoneNiQuitaLlamadasNiTrampas) {
    const fs::path diario = dir / "lib" / "sesiones";
    ASSERT_TRUE(UnEnlace(diario));
    const auto antes = Registros(diario);
    ASSERT_EQ(antes.size(), 1u);
    const fs::path llamada = diario / antes[0];
    const gid_t grupo = [&] {
        struct stat s {};
        ::stat(diario.c_str(), &s);
        return s.st_gid;
    }();

    // Without the journal's group the user cannot even look; with it (dip)
    // the user reads, and still cannot add, remove, rename or change.
    EXPECT_NE(ComoNadie("ls " + diario.string()), 0);
    if (grupo != 0) {
        EXPECT_EQ(ComoNadie("cat " + llamada.string(), grupo), 0);
    }
    const gid_t g = grupo;
    EXPECT_NE(ComoNadie("echo formato=1 > " + (diario / "9-ppp7-1.sesion").string(), g), 0);
    EXPECT_NE(ComoNadie("rm -f " + llamada.string(), g), 0);
    EXPECT_NE(ComoNadie("mv " + llamada.string() + " " + (diario / "x").string(), g), 0);
    EXPECT_NE(ComoNadie("echo recibidos=0 >> " + llamada.string(), g), 0);
    EXPECT_NE(ComoNadie(Trampas(diario) + "; test -L " + (diario / "ppp0-4242.inicio").string(), g),
              0);
    EXPECT_EQ(Registros(diario), antes);

    // The old world-writable spool, booby-trapped as it could be: the hook
    // no longer goes there.
    const fs::path spool = publico / "vorimesk";
    fs::create_directories(spool);
    fs::permissions(spool, fs::perms(0777));
    ASSERT_EQ(ComoNadie("ln -s " + (victima.carpeta / "nologin").string() + " " +
                        (spool / ".modemlog.txt.lock").string() + " && ln -s " +
                        (victima.carpeta / "passwd").string() + " " +
                        (spool / "modemlog.txt").string()),
              0);
    ASSERT_TRUE(UnEnlace(diario));
    EXPECT_EQ(Registros(diario).size(), 2u);
    VictimaIntacta();
}

TEST_F(GanchoSeguridad, UnDiarioQueOtroPudoPrepararSeDejaEnPaz) {
    fs::permissions(publico, fs::perms(01777)); // like /tmp
    const fs::path diario = publico / "sesiones";

    // A symlink in place of the journal, to root's folder.
    ASSERT_EQ(ComoNadie("ln -s " + victima.carpeta.string() + " " + diario.string()), 0);
    EXPECT_TRUE(UnEnlace(diario));
    VictimaIntacta();
    ASSERT_EQ(ComoNadie("rm " + diario.string()), 0);

    // The user's own folder, full of symlinks under the names the hook uses.
    ASSERT_EQ(ComoNadie("mkdir -m 0777 " + diario.string() + " && " + Trampas(diario)), 0);
    EXPECT_TRUE(UnEnlace(diario));
    VictimaIntacta();
    EXPECT_EQ(ComoNadie("test -z \"$(find " + diario.string() + " -type f)\""), 0)
        << "root no escribe en una carpeta de otro";

    // A folder above the journal that anyone can write (no sticky bit): the
    // journal could be swapped under root's feet, so root writes nothing,
    // not even a journal it made itself.
    const fs::path abierta = dir / "abierta";
    fs::create_directories(abierta);
    fs::permissions(abierta, fs::perms(0777));
    EXPECT_TRUE(UnEnlace(abierta / "sesiones"));
    EXPECT_FALSE(Existe(abierta / "sesiones"));

    // A journal of root's that others may write to, or with a group that may.
    for (const fs::perms modo : {fs::perms(0777), fs::perms(0770), fs::perms(01777)}) {
        const fs::path d = dir / "lib2" / "sesiones";
        fs::create_directories(d);
        fs::permissions(d, modo);
        EXPECT_TRUE(UnEnlace(d));
        EXPECT_TRUE(Registros(d).empty()) << "modo " << std::oct << static_cast<int>(modo);
        fs::remove_all(d);
    }
    VictimaIntacta();
}

} // namespace
