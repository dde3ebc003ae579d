// The pppd hook run as Debian runs it (pppd -> ip-up/ip-down -> run-parts):
// one journal record per finished link, its times from pppd, its files in a
// root-only folder, and nothing written anywhere else.

#include "GanchoPpp.h"

#include "CarpetaTemporal.h"

#include <chrono>
#include <ctime>
#include <grp.h>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

long long Ahora() {
    return static_cast<long long>(std::time(nullptr));
}

long long Numero(const std::string& texto) {
    return texto.empty() ? -1 : std::stoll(texto);
}

struct stat Stat(const fs::path& p) {
    struct stat s {};
    EXPECT_EQ(::lstat(p.c_str(), &s), 0) << p;
    return s;
}

class GanchoPpp : public CarpetaTemporal {
protected:
    void SetUp() override {
        if (::geteuid() != 0) {
            GTEST_SKIP() << "el gancho solo escribe como root en un diario de root: hace falta "
                            "ser root para probarlo";
        }
        InstalarGancho(dir, diario);
    }
    fs::path diario = dir / "lib" / "sesiones";
};

TEST_F(GanchoPpp, UnaSesionPorEnlaceConSusDatosTiempoDePppdYPermisos) {
    const EnlaceFalso e;
    const long long antes = Ahora();
    ASSERT_EQ(Subir(dir, e), 0);
    EXPECT_EQ(Registros(diario), std::vector<std::string>{"ppp0-4242.inicio"})
        << "ip-up solo deja el estado de la subida";
    EXPECT_EQ(Campos(diario / "ppp0-4242.inicio")["entrada"], "casa");

    ASSERT_EQ(Bajar(dir, e, "0125", 153600, 20480), 0);
    const long long despues = Ahora();
    const auto nombres = Registros(diario);
    ASSERT_EQ(nombres.size(), 1u) << "el estado de la subida se va con la bajada";
    auto c = Campos(diario / nombres[0]);
    EXPECT_TRUE(nombres[0].starts_with(c["fin"] + "-ppp0-4242-")) << nombres[0];
    EXPECT_TRUE(nombres[0].ends_with(".sesion")) << nombres[0];
    EXPECT_EQ(c["formato"], "1");
    EXPECT_EQ(c["interfaz"], "ppp0");
    EXPECT_EQ(c["pid"], "4242");
    EXPECT_EQ(c["entrada"], "casa");
    EXPECT_EQ(c["tty"], "/dev/ttyS0");
    EXPECT_EQ(c["velocidad"], "115200");
    EXPECT_EQ(c["recibidos"], "153600");
    EXPECT_EQ(c["enviados"], "20480");
    // The hook dates the end from the kernel's boot time, kept in whole seconds.
    EXPECT_GE(Numero(c["fin"]), antes - 1);
    EXPECT_LE(Numero(c["fin"]), despues);
    EXPECT_EQ(Numero(c["fin"]) - Numero(c["inicio"]), 125) << "CONNECT_TIME, con su cero delante";

    // root:grupo-del-diario 0750, registros 0640: nadie mas escribe.
    const struct stat d = Stat(diario);
    EXPECT_EQ(d.st_uid, 0u);
    EXPECT_EQ(d.st_mode & 07777, 0750u);
    const struct stat r = Stat(diario / nombres[0]);
    EXPECT_TRUE(S_ISREG(r.st_mode));
    EXPECT_EQ(r.st_uid, 0u);
    EXPECT_EQ(r.st_gid, d.st_gid);
    EXPECT_EQ(r.st_mode & 07777, 0640u);
    if (const group* dip = ::getgrnam("dip")) {
        EXPECT_EQ(d.st_gid, dip->gr_gid) << "el diario nuevo es del grupo dip";
    }
}

TEST_F(GanchoPpp, SinConnectTimeElInicioEsElDeLaSubidaYSinNadaUnaLlamadaSinTiempo) {
    const EnlaceFalso e;
    ASSERT_EQ(Subir(dir, e), 0);
    const long long subida = Numero(Campos(diario / "ppp0-4242.inicio")["inicio"]);
    ASSERT_EQ(Bajar(dir, e, "", 10, 20), 0);
    auto c = Campos(diario / Registros(diario).at(0));
    EXPECT_EQ(Numero(c["inicio"]), subida);
    fs::remove_all(diario);

    // Datos raros de pppd: ni tiempo valido ni subida, bytes que no son numeros,
    // nombres con saltos de linea o barras.
    EnlaceFalso raro;
    raro.interfaz = "../ppp9";
    raro.peer = "mi\ncasa\r";
    raro.velocidad = "rapido";
    ASSERT_EQ(EsperarGancho(LanzarGancho(dir / "ip-down", raro.Args(),
                                         {"IFNAME=../ppp9", "CALL_FILE=mi\ncasa\r", "PPPD_PID=77",
                                          "CONNECT_TIME=12x", "BYTES_RCVD=12abc"})),
              0);
    const auto nombres = Registros(diario);
    ASSERT_EQ(nombres.size(), 1u);
    c = Campos(diario / nombres[0]);
    EXPECT_TRUE(nombres[0].starts_with(c["fin"] + "-___ppp9-77-")) << "no sale del diario";
    EXPECT_EQ(c["interfaz"], "../ppp9");
    EXPECT_EQ(c["entrada"], "micasa");
    EXPECT_EQ(c["velocidad"], "");
    EXPECT_EQ(c["inicio"], c["fin"]);
    EXPECT_EQ(c["recibidos"], "0");
    EXPECT_EQ(c["enviados"], "0");
}

TEST_F(GanchoPpp, UnScriptAnteriorLentoNoMueveLaHoraDeLaBajada) {
    // run-parts runs ip-down.d in name order: this one goes first.
    EscribirEjecutable(dir / "ip-down.d" / "00lento", "#!/bin/sh\nsleep 3\n");
    const EnlaceFalso e;
    ASSERT_EQ(Subir(dir, e), 0);
    const long long bajada = Ahora();
    ASSERT_EQ(Bajar(dir, e, "61", 1, 2), 0);
    EXPECT_GE(Ahora() - bajada, 3) << "el script lento corrio antes";
    auto c = Campos(diario / Registros(diario).at(0));
    EXPECT_LE(std::abs(Numero(c["fin"]) - bajada), 1) << "el fin es cuando pppd bajo el enlace";
    EXPECT_EQ(Numero(c["fin"]) - Numero(c["inicio"]), 61);
}

TEST_F(GanchoPpp, EnlacesQueTerminanALaVezDejanUnRegistroCadaUno) {
    // One pppd redialling: two sessions of ppp0 end in the same second.
    ASSERT_EQ(Bajar(dir, EnlaceFalso{}, "1", 1, 1), 0);
    ASSERT_EQ(Bajar(dir, EnlaceFalso{}, "1", 1, 1), 0);
    EXPECT_EQ(Registros(diario).size(), 2u) << "ninguna pisa a la otra";
    fs::remove_all(diario);

    ASSERT_EQ(Subir(dir, EnlaceFalso{}), 0); // the journal exists before the rush
    constexpr int kEnlaces = 30;
    std::vector<pid_t> hijos;
    for (int i = 1; i <= kEnlaces; ++i) {
        EnlaceFalso e;
        e.interfaz = "ppp" + std::to_string(i);
        e.pid = 1000 + i;
        hijos.push_back(LanzarBajada(dir, e, "5", static_cast<std::uint64_t>(i), i * 10u));
    }
    for (const pid_t h : hijos) {
        EXPECT_EQ(EsperarGancho(h), 0);
    }
    std::set<std::string> vistos;
    for (const auto& n : Registros(diario)) {
        if (n.ends_with(".sesion")) {
            auto c = Campos(diario / n);
            EXPECT_EQ(Numero(c["enviados"]), Numero(c["recibidos"]) * 10) << n;
            EXPECT_EQ(c["interfaz"], "ppp" + std::to_string(Numero(c["recibidos"])));
            vistos.insert(c["interfaz"]);
        }
    }
    EXPECT_EQ(vistos.size(), static_cast<std::size_t>(kEnlaces));
}

TEST_F(GanchoPpp, LaBajadaPodaLosRegistrosDeMasDeNoventaDias) {
    ASSERT_EQ(Subir(dir, EnlaceFalso{}), 0);
    for (const char* n : {"viejo.sesion", "reciente.sesion", ".nueva.abandonada", "viejo.inicio"}) {
        Escribir(diario / n, "formato=1\n");
    }
    const auto atras = [&](const char* n, int dias) {
        const auto t = fs::file_time_type::clock::now() - std::chrono::hours(24 * dias);
        fs::last_write_time(diario / n, t);
    };
    atras("viejo.sesion", 91);
    atras("viejo.inicio", 91);
    atras("reciente.sesion", 89);
    atras(".nueva.abandonada", 2);
    ASSERT_EQ(Bajar(dir, EnlaceFalso{}, "5", 1, 1), 0);
    EXPECT_FALSE(Existe(diario / "viejo.sesion"));
    EXPECT_FALSE(Existe(diario / "viejo.inicio"));
    EXPECT_FALSE(Existe(diario / ".nueva.abandonada"));
    EXPECT_TRUE(Existe(diario / "reciente.sesion"));
}

} // namespace
