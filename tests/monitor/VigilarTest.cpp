// La orden vigilar de principio a fin: el modem simulado de un guion, el
// contador en vivo y las llamadas que quedan en el registro.

#include "AplicacionCli.h"
#include "CarpetaTemporal.h"
#include "platform/linux/InstanciaUnicaFlock.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>

extern char** environ;

using namespace vorimesk;
using namespace vorimesk::cli;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

struct Resultado {
    int estado;
    std::string salida;
    std::string errores;
};

fs::path Fuentes() {
    const char* f = std::getenv("VORIMESK_FUENTES");
    return f ? fs::path(f) : fs::path(VORIMESK_FUENTES_COMPILADAS);
}

class Vigilar : public CarpetaTemporal {
protected:
    void SetUp() override {
        CarpetaTemporal::SetUp();
        // Cerrojo de instancia unica y log del modem propios de la prueba.
        ::setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
        ::unsetenv("VORIMESK_MODEMLOG");
        datos = dir / "datos";
    }

    Resultado Ejecutar(std::vector<std::string> args) {
        args.insert(args.begin(), {"vorimesk-cli", "--datos", datos.string()});
        std::vector<const char*> argv;
        for (const std::string& a : args) {
            argv.push_back(a.c_str());
        }
        AplicacionCli app;
        RegistrarOrdenes(app);
        std::ostringstream salida, errores;
        const int e = app.Ejecutar(static_cast<int>(argv.size()), argv.data(), salida, errores);
        return {e, salida.str(), errores.str()};
    }
    nlohmann::json Json(std::vector<std::string> args) {
        const Resultado r = Ejecutar(std::move(args));
        EXPECT_EQ(r.estado, 0) << r.errores;
        return nlohmann::json::parse(r.salida);
    }
    double Precio(const std::string& inicio, const std::string& fin) {
        return Json({"calcular", "--inicio", inicio, "--fin", fin, "--json"})["importe"];
    }
    static std::string Guion() { return (Fuentes() / "data/guiones/dos-llamadas.guion").string(); }

    fs::path datos;
};

TEST_F(Vigilar, DosLlamadasDelGuionQuedanTasadasEnElRegistro) {
    const Resultado r = Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000",
                                  "--inicio", "2024-03-06 10:00:00", "--segundos", "260"});
    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    EXPECT_EQ(r.errores, "");
    // Una linea de estado por segundo de contador, sin "\r" fuera de un
    // terminal.
    EXPECT_EQ(r.salida.find('\r'), std::string::npos);
    EXPECT_NE(r.salida.find("10:00:00 | Sin conexion"), std::string::npos);
    EXPECT_NE(r.salida.find("10:00:05 | Conectando | Conexion: Mi proveedor"), std::string::npos);
    EXPECT_NE(r.salida.find("10:01:11 | Conectado | Conexion: Mi proveedor | Duracion: 00:01:00 "
                            "| Coste: "),
              std::string::npos);
    EXPECT_NE(r.salida.find("Llamada iniciada con Mi proveedor (tarifa Metropolitana, "
                            "descuento Ninguno)."),
              std::string::npos);
    EXPECT_NE(r.salida.find("Anotada en el registro: 06/03/2024 10:00:11, 00:02:00, coste "),
              std::string::npos);
    EXPECT_NE(r.salida.find(", tarifa Metropolitana, Trabajo."), std::string::npos);
    EXPECT_NE(r.salida.find("Registro y ajustes guardados."), std::string::npos);

    const nlohmann::json j = Json({"registro", "--json"});
    ASSERT_EQ(j["llamadas"].size(), 2u) << j.dump(2);
    const nlohmann::json& a = j["llamadas"][0];
    EXPECT_EQ(a["Dia"], "2024-03-06");
    EXPECT_EQ(a["Hora"], "10:00:11"); // 3 s de espera y 8 marcando
    EXPECT_EQ(a["Duracion"], "00:02:00");
    EXPECT_EQ(a["Conexion"], "Mi proveedor");
    EXPECT_EQ(a["Tarifa"], "Metropolitana");
    EXPECT_EQ(a["Recibidos"], 600);
    EXPECT_EQ(a["Enviados"], 80);
    const double precioA = Precio("2024-03-06 10:00:11", "2024-03-06 10:02:11");
    EXPECT_GT(precioA, 0.0);
    EXPECT_NEAR(std::stod(a["importe"].get<std::string>()), precioA, 0.01);

    const nlohmann::json& b = j["llamadas"][1];
    EXPECT_EQ(b["Hora"], "10:02:37");
    EXPECT_EQ(b["Duracion"], "00:01:30");
    EXPECT_EQ(b["Conexion"], "Trabajo");
    EXPECT_EQ(b["Recibidos"], 300);
    EXPECT_NEAR(std::stod(b["importe"].get<std::string>()),
                Precio("2024-03-06 10:02:37", "2024-03-06 10:04:07"), 0.01);

    // El log del modem se leyo y se borro; las entradas del guion quedan en
    // los ajustes, y ninguna conexion pendiente.
    EXPECT_FALSE(Existe(datos / "ModemLogSimulado.txt"));
    const std::string ajustes = Leer(datos / "Varibles.Dat");
    EXPECT_NE(ajustes.find("\"Mi proveedor\"\r\n\"Metropolitana\"\r\n\"Ninguno\""),
              std::string::npos);
    EXPECT_NE(ajustes.find("\"Trabajo\"\r\n\"Metropolitana\"\r\n\"Ninguno\""), std::string::npos);
}

TEST_F(Vigilar, ParadoEnMitadDeUnaLlamadaGuardaLaConexionPendiente) {
    const Resultado r = Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000",
                                  "--inicio", "2024-03-06 10:00:00", "--segundos", "60"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    EXPECT_TRUE(Json({"registro", "--json"})["llamadas"].empty());
    // La sesion abierta sigue en el log y su perfil en los ajustes, para
    // anotarla cuando termine.
    EXPECT_NE(Leer(datos / "ModemLogSimulado.txt").find("in use"), std::string::npos);
    const std::string ajustes = Leer(datos / "Varibles.Dat");
    EXPECT_NE(ajustes.find("\"Mi proveedor\"\r\n\"Ninguno\"\r\n#2024-03-06 10:00:11#\r\n"
                           "\"Metropolitana\""),
              std::string::npos)
        << ajustes;
}

TEST_F(Vigilar, SoloPuedeVigilarUno) {
    fs::create_directories(datos);
    InstanciaUnicaFlock otro(dir / "vorimesk.lock");
    ASSERT_TRUE(otro.Adquirir());
    const Resultado r = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Vorimesk ya esta vigilando"), std::string::npos) << r.errores;
    EXPECT_FALSE(Existe(datos / "Varibles.Dat"));
}

TEST_F(Vigilar, ErroresDeUsoYDeGuion) {
    EXPECT_EQ(Ejecutar({"vigilar", "--velocidad", "10"}).estado, 2); // sin --simular
    EXPECT_EQ(Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "0"}).estado, 2);
    Escribir(dir / "malo.guion", "llamada Casa conectado=diez\n");
    const Resultado r = Ejecutar({"vigilar", "--simular", (dir / "malo.guion").string()});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("malo.guion"), std::string::npos) << r.errores;
    EXPECT_FALSE(Existe(datos / "Varibles.Dat"));

    // Unos ajustes dañados no se reescriben con los valores por defecto.
    Escribir(datos / "Varibles.Dat", "#TRUE#\r\nesto no es un ajuste\r\n");
    const Resultado d = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
    EXPECT_EQ(d.estado, 1);
    EXPECT_NE(d.errores.find("Varibles.Dat"), std::string::npos) << d.errores;
    EXPECT_EQ(Leer(datos / "Varibles.Dat"), "#TRUE#\r\nesto no es un ajuste\r\n");
    EXPECT_FALSE(Existe(datos / "RegDat.log"));
}

// Como programa aparte: SIGTERM lo para guardando registro y ajustes.
TEST_F(Vigilar, SigtermParaLimpiamente) {
    const fs::path salida = dir / "salida.txt";
    const std::string datosTexto = datos.string();
    const std::string guion = Guion();
    std::vector<const char*> argv = {VORIMESK_CLI, "--datos",   datosTexto.c_str(),
                                     "vigilar",    "--simular", guion.c_str(),
                                     nullptr};
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t pid = 0;
    ASSERT_EQ(posix_spawn(&pid, VORIMESK_CLI, &acciones, nullptr,
                          const_cast<char* const*>(argv.data()), environ),
              0);
    posix_spawn_file_actions_destroy(&acciones);
    // Espera a que este vigilando (la primera linea de estado).
    for (int i = 0; i < 200 && Leer(salida).find(" | ") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_NE(Leer(salida).find(" | "), std::string::npos) << Leer(salida);
    ::kill(pid, SIGTERM);
    int estado = 0;
    ASSERT_EQ(::waitpid(pid, &estado, 0), pid);
    ASSERT_TRUE(WIFEXITED(estado)) << Leer(salida);
    EXPECT_EQ(WEXITSTATUS(estado), 0);
    EXPECT_NE(Leer(salida).find("Registro y ajustes guardados."), std::string::npos);
    EXPECT_TRUE(Existe(datos / "Varibles.Dat"));
}

} // namespace
