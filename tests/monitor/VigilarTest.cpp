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
    // vigilar como programa aparte, con su salida en un archivo.
    fs::path Lanzar(const std::string& guion) {
        const fs::path salida = dir / "salida.txt";
        fs::remove(salida);
        const std::string datosTexto = datos.string();
        std::vector<const char*> argv = {VORIMESK_CLI, "--datos",   datosTexto.c_str(),
                                         "vigilar",    "--simular", guion.c_str(),
                                         nullptr};
        posix_spawn_file_actions_t acciones;
        posix_spawn_file_actions_init(&acciones);
        posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(), O_WRONLY | O_CREAT, 0600);
        EXPECT_EQ(posix_spawn(&pid_, VORIMESK_CLI, &acciones, nullptr,
                              const_cast<char* const*>(argv.data()), environ),
                  0);
        posix_spawn_file_actions_destroy(&acciones);
        return salida;
    }
    void Parar(int senal);
    pid_t pid_ = 0;
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

// La franja y el BonoNet que se ven son los de ahora: una llamada de las
// 17:59 se ve "Reducida" desde las 18:00:00 en punto.
TEST_F(Vigilar, LaFranjaCambiaALas18EnPunto) {
    Escribir(dir / "tarde.guion", "llamada Casa conectado=90\n");
    const ResultadoCli r =
        Ejecutar({"vigilar", "--simular", (dir / "tarde.guion").string(), "--velocidad", "1000",
                  "--inicio", "2024-03-06 17:59:00", "--segundos", "100"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    for (const char* linea : {"17:59:59 | Conectado | Conexion: Casa | Duracion: 00:00:59",
                              "18:00:00 | Conectado | Conexion: Casa | Duracion: 00:01:00",
                              "18:00:29 | Conectado | Conexion: Casa | Duracion: 00:01:29"}) {
        const auto i = r.salida.find(linea);
        ASSERT_NE(i, std::string::npos) << linea;
        const std::string franja = r.salida.substr(r.salida.find("Franja: ", i) + 8, 6);
        EXPECT_EQ(franja, linea[1] == '7' ? "Normal" : "Reduci") << linea;
    }
    // Y tras la llamada la linea vuelve al reposo: se puede marcar otra vez.
    EXPECT_NE(r.salida.find("18:00:32 | Sin conexion"), std::string::npos);
}

// Lo que un cierre brusco no debe perder: la conexion pendiente se guarda al
// empezar la llamada, y "RegDat.bak" guarda el registro de antes de la
// sesion, no el de la ultima llamada.
TEST_F(Vigilar, CadaLlamadaSeGuardaEnElActoYElBakEsElDeAntesDeLaSesion) {
    ASSERT_EQ(Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000", "--inicio",
                        "2024-03-06 10:00:00", "--segundos", "260"})
                  .estado,
              0);
    const std::string antes = Leer(datos / "RegDat.log");
    ASSERT_EQ(antes.size(), 2u * 85u);
    ASSERT_EQ(Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000", "--inicio",
                        "2024-03-07 10:00:00", "--segundos", "260"})
                  .estado,
              0);
    EXPECT_EQ(Leer(datos / "RegDat.log").size(), 4u * 85u);
    EXPECT_EQ(Leer(datos / "RegDat.bak"), antes);
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

// Como programa aparte: SIGTERM, SIGHUP (el terminal se cierra) y SIGINT lo
// paran guardando registro y ajustes, con salida 0.
TEST_F(Vigilar, SigtermParaLimpiamente) {
    for (const int senal : {SIGTERM, SIGHUP, SIGINT}) {
        SCOPED_TRACE(senal);
        fs::remove(datos / "Varibles.Dat");
        Parar(senal);
    }
}

// Un kill -9 a mitad de llamada: la conexion pendiente ya estaba guardada y
// la nota del contador sigue en "LlamadasVistas".
TEST_F(Vigilar, UnKill9EnMitadDeLlamadaNoPierdeSuPendiente) {
    Escribir(dir / "larga.guion", "llamada Casa conectado=100000\n");
    const fs::path salida = Lanzar((dir / "larga.guion").string());
    for (int i = 0; i < 200 && Leer(salida).find("Llamada iniciada") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_NE(Leer(salida).find("Llamada iniciada"), std::string::npos) << Leer(salida);
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    EXPECT_NE(Leer(datos / "Varibles.Dat").find("\"Casa\"\r\n\"Ninguno\"\r\n#"), std::string::npos)
        << Leer(datos / "Varibles.Dat");
    int notas = 0;
    for (const auto& f : fs::directory_iterator(datos / "LlamadasVistas")) {
        notas += f.path().extension() == ".vista";
    }
    EXPECT_EQ(notas, 1);
}

void Vigilar::Parar(int senal) {
    const fs::path salida = Lanzar(Guion());
    const pid_t pid = pid_;
    // Espera a que este vigilando (la primera linea de estado).
    for (int i = 0; i < 200 && Leer(salida).find(" | ") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_NE(Leer(salida).find(" | "), std::string::npos) << Leer(salida);
    ::kill(pid, senal);
    int estado = 0;
    ASSERT_EQ(::waitpid(pid, &estado, 0), pid);
    ASSERT_TRUE(WIFEXITED(estado)) << Leer(salida);
    EXPECT_EQ(WEXITSTATUS(estado), 0);
    EXPECT_NE(Leer(salida).find("Registro y ajustes guardados."), std::string::npos);
    EXPECT_TRUE(Existe(datos / "Varibles.Dat"));
}

} // namespace
