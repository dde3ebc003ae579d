// The pppd hook run as pppd runs it: its lines must be exactly those of the
// program's own formatter, in the columns the log reader cuts.

#include "GanchoPpp.h"

#include "CarpetaTemporal.h"
#include "core/Reloj.h"
#include "platform/LineasModemLog.h"

#include <cmath>
#include <cstdio>
#include <set>
#include <sys/stat.h>

using namespace vorimesk;
namespace fs = std::filesystem;

namespace {

using Entorno = std::vector<std::string>;

// The moment written in columns 1-19 of a log line.
std::optional<Fecha> Sello(const std::string& linea) {
    int mes = 0, dia = 0, año = 0, h = 0, m = 0, s = 0;
    if (linea.size() < 26 ||
        std::sscanf(linea.c_str(), "%2d-%2d-%4d %2d:%2d:%2d", &mes, &dia, &año, &h, &m, &s) != 6) {
        return std::nullopt;
    }
    return Fecha::Crear(año, mes, dia, h, m, s);
}

std::vector<std::string> Lineas(const std::string& texto) {
    std::vector<std::string> lineas;
    std::size_t inicio = 0;
    while (inicio < texto.size()) {
        const auto fin = texto.find("\r\n", inicio);
        if (fin == std::string::npos) {
            lineas.push_back(texto.substr(inicio) + "(sin CR LF)");
            break;
        }
        lineas.push_back(texto.substr(inicio, fin - inicio));
        inicio = fin + 2;
    }
    return lineas;
}

class GanchoPpp : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        prueba::InstalarGancho(dir);
        log = dir / "modemlog.txt";
    }
    int Ejecutar(const char* fase, const std::vector<std::string>& args, Entorno entorno) {
        entorno.push_back("VORIMESK_MODEMLOG=" + log.string());
        return prueba::EsperarGancho(prueba::LanzarGancho(dir / fase / "vorimesk", args, entorno));
    }
    // The block's moment, from its first line; the block is then compared
    // with the formatter's for that moment, which fixes every column.
    // Month before day: a swap would land weeks or months away.
    static Fecha Momento(const std::string& texto) {
        const Fecha f = Sello(texto).value_or(Fecha());
        EXPECT_LE(std::abs(f.Segundos() - RelojSistema().Ahora().Segundos()), 120) << texto;
        return f;
    }

    fs::path log;
};

const std::vector<std::string> kArgsPppd = {"ppp0",     "/dev/ttyS0", "115200",
                                            "10.0.0.2", "10.0.0.1",   "casa"};

TEST_F(GanchoPpp, SesionCompletaConElEntornoDePppdIgualQueElFormateador) {
    ASSERT_EQ(Ejecutar("ip-up.d", kArgsPppd,
                       {"PPP_IFACE=ppp0", "PPP_TTY=/dev/ttyS0", "PPP_SPEED=115200", "LINKNAME=casa",
                        "IPPARAM=casa", "CALL_FILE=casa"}),
              0);
    const std::string subida = Leer(log);
    const Fecha t1 = Momento(subida);
    EXPECT_EQ(subida, BloqueSubida(t1, {"ppp0", "/dev/ttyS0", "casa", "115200"}));

    ASSERT_EQ(Ejecutar("ip-down.d", kArgsPppd,
                       {"PPP_IFACE=ppp0", "PPP_TTY=/dev/ttyS0", "LINKNAME=casa", "IPPARAM=casa",
                        "BYTES_RCVD=153600", "BYTES_SENT=20480", "CONNECT_TIME=120"}),
              0);
    const std::string todo = Leer(log);
    ASSERT_EQ(todo.rfind(subida, 0), 0u) << "la bajada se anade detras";
    const std::string bajada = todo.substr(subida.size());
    EXPECT_EQ(bajada, BloqueBajada(Momento(bajada), {153600, 20480}));
    EXPECT_EQ(Lineas(bajada).at(0).substr(25), "Reads : 153600 bytes");
}

TEST_F(GanchoPpp, SoloConLosArgumentosDePppdOConDatosRaros) {
    // pppd without Debian's wrapper: the arguments alone, ipparam as entry.
    ASSERT_EQ(
        Ejecutar("ip-up.d", {"ppp2", "/dev/ttyUSB0", "57600", "1.2.3.4", "5.6.7.8", "movil"}, {}),
        0);
    const std::string subida = Leer(log);
    EXPECT_EQ(subida, BloqueSubida(Momento(subida), {"ppp2", "/dev/ttyUSB0", "movil", "57600"}));
    fs::remove(log);

    // No speed or entry; a name with a line break stays on its line.
    ASSERT_EQ(Ejecutar("ip-up.d", {}, {"PPP_IFACE=ppp0", "LINKNAME=mi\ncasa"}), 0);
    const std::string rara = Leer(log);
    EXPECT_EQ(rara, BloqueSubida(Momento(rara), {"ppp0", "", "micasa", ""}));
    fs::remove(log);

    ASSERT_EQ(Ejecutar("ip-down.d", {}, {"BYTES_RCVD=12abc"}), 0);
    const std::string bajada = Leer(log);
    EXPECT_EQ(bajada, BloqueBajada(Momento(bajada), {0, 0}));
}

TEST_F(GanchoPpp, CreaLaCarpetaParaQueElUsuarioPuedaBorrarElLog) {
    log = dir / "spool" / "vorimesk" / "modemlog.txt";
    ASSERT_EQ(Ejecutar("ip-up.d", kArgsPppd, {}), 0);
    struct stat carpeta {
    }, archivo{};
    ASSERT_EQ(::stat(log.parent_path().c_str(), &carpeta), 0);
    ASSERT_EQ(::stat(log.c_str(), &archivo), 0);
    EXPECT_EQ(carpeta.st_mode & 07777, 0777u) << "escribible por todos y sin bit pegajoso";
    EXPECT_EQ(archivo.st_mode & 07777, 0666u);
}

TEST_F(GanchoPpp, EnlacesQueTerminanALaVezNoMezclanSusLineas) {
    constexpr int kEnlaces = 40;
    std::vector<pid_t> hijos;
    for (int i = 1; i <= kEnlaces; ++i) {
        Entorno e = {"BYTES_RCVD=" + std::to_string(i), "BYTES_SENT=" + std::to_string(i * 10),
                     "VORIMESK_MODEMLOG=" + log.string()};
        hijos.push_back(
            prueba::LanzarGancho(dir / "ip-down.d" / "vorimesk", {"ppp" + std::to_string(i)}, e));
    }
    for (const pid_t h : hijos) {
        EXPECT_EQ(prueba::EsperarGancho(h), 0);
    }
    const auto lineas = Lineas(Leer(log));
    ASSERT_EQ(lineas.size(), 3u * kEnlaces);
    std::set<int> vistos;
    for (std::size_t i = 0; i < lineas.size(); i += 3) {
        int leidos = 0, escritos = 0;
        ASSERT_EQ(std::sscanf(lineas[i].c_str() + 25, "Reads : %d bytes", &leidos), 1) << i;
        ASSERT_EQ(std::sscanf(lineas[i + 1].c_str() + 25, "Writes: %d bytes", &escritos), 1);
        EXPECT_EQ(escritos, leidos * 10) << "las lineas de dos enlaces se mezclaron";
        EXPECT_EQ(lineas[i + 2].substr(25), "Modem closed.");
        vistos.insert(leidos);
    }
    EXPECT_EQ(vistos.size(), static_cast<std::size_t>(kEnlaces));
}

} // namespace
