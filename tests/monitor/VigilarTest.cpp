// La orden vigilar de principio a fin: el modem simulado de un guion, el
// contador en vivo y las llamadas que quedan en el registro.

#include "CarpetaCli.h"
#include "platform/linux/InstanciaUnicaFlock.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

extern char** environ;

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

fs::path Fuentes() {
    const char* f = std::getenv("VORIMESK_FUENTES");
    return f ? fs::path(f) : fs::path(VORIMESK_FUENTES_COMPILADAS);
}

class Vigilar : public CarpetaCli {
protected:
    void SetUp() override {
        // Cerrojo de instancia unica y log del modem propios de la prueba.
        ::setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
        ::unsetenv("VORIMESK_MODEMLOG");
    }
    double Precio(const std::string& inicio, const std::string& fin) {
        return Json({"calcular", "--inicio", inicio, "--fin", fin, "--json"})["importe"];
    }
    static std::string Guion() { return (Fuentes() / "data/guiones/dos-llamadas.guion").string(); }
};

TEST_F(Vigilar, DosLlamadasDelGuionQuedanTasadasEnElRegistro) {
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000",
                                     "--inicio", "2024-03-06 10:00:00", "--segundos", "260"});
    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    EXPECT_EQ(r.errores, "");
    // Una linea de estado por segundo de contador, sin "\r" fuera de un
    // terminal.
    EXPECT_EQ(r.salida.find('\r'), std::string::npos);
    for (const char* linea :
         {"10:00:00 | Sin conexion", "10:00:05 | Conectando | Conexion: Mi proveedor",
          "10:01:11 | Conectado | Conexion: Mi proveedor | Duracion: 00:01:00 | Coste: ",
          "Llamada iniciada con Mi proveedor (tarifa Metropolitana, descuento Ninguno).",
          "Anotada en el registro: 06/03/2024 10:00:11, 00:02:00, coste ",
          ", tarifa Metropolitana, Trabajo.", "Registro y ajustes guardados."}) {
        EXPECT_NE(r.salida.find(linea), std::string::npos) << linea;
    }

    // 3 s de espera y 8 marcando; el coste, el que da "calcular" para esas horas.
    nlohmann::json ll = Json({"registro", "--json"})["llamadas"];
    ASSERT_EQ(ll.size(), 2u) << ll.dump(2);
    EXPECT_NEAR(std::stod(ll[0]["importe"].get<std::string>()),
                Precio("2024-03-06 10:00:11", "2024-03-06 10:02:11"), 0.01);
    EXPECT_NEAR(std::stod(ll[1]["importe"].get<std::string>()),
                Precio("2024-03-06 10:02:37", "2024-03-06 10:04:07"), 0.01);
    for (nlohmann::json& l : ll) {
        l.erase("importe");
    }
    EXPECT_EQ(ll, nlohmann::json::parse(R"([
        {"Dia": "2024-03-06", "Hora": "10:00:11", "Duracion": "00:02:00", "Tipo": 0,
         "Tarifa": "Metropolitana", "Conexion": "Mi proveedor", "Reservada": "", "Bono": 0,
         "Recibidos": 600, "Enviados": 80},
        {"Dia": "2024-03-06", "Hora": "10:02:37", "Duracion": "00:01:30", "Tipo": 0,
         "Tarifa": "Metropolitana", "Conexion": "Trabajo", "Reservada": "", "Bono": 0,
         "Recibidos": 300, "Enviados": 40}])"));

    // El log del modem se leyo y se borro; las entradas del guion quedan en
    // los ajustes, y ninguna conexion pendiente.
    EXPECT_FALSE(Existe(datos / "ModemLogSimulado.txt"));
    const std::string ajustes = Leer(datos / "Varibles.Dat");
    EXPECT_NE(ajustes.find("\"Mi proveedor\"\r\n\"Metropolitana\"\r\n\"Ninguno\"\r\n\"Trabajo\""),
              std::string::npos);
}

TEST_F(Vigilar, ParadoEnMitadDeUnaLlamadaGuardaLaConexionPendiente) {
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000",
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
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Vorimesk ya esta vigilando"), std::string::npos) << r.errores;
    EXPECT_FALSE(Existe(datos / "Varibles.Dat"));
}

TEST_F(Vigilar, ErroresDeUsoYDeGuion) {
    EXPECT_EQ(Ejecutar({"vigilar", "--velocidad", "10"}).estado, 2); // sin --simular
    EXPECT_EQ(Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "0"}).estado, 2);
    Escribir(dir / "malo.guion", "llamada Casa conectado=diez\n");
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", (dir / "malo.guion").string()});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("malo.guion"), std::string::npos) << r.errores;
    EXPECT_FALSE(Existe(datos / "Varibles.Dat"));

    // Unos ajustes dañados no se reescriben con los valores por defecto.
    Escribir(datos / "Varibles.Dat", "#TRUE#\r\nesto no es un ajuste\r\n");
    const ResultadoCli d = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
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
