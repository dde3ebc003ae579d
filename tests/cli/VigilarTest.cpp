// La orden vigilar de principio a fin: el modem simulado de un guion, el
// contador en vivo y las llamadas que quedan en el registro.

#include "BusPrivado.h"
#include "CarpetaCli.h"
#include "monitor/EstadoContador.h"
#include "platform/Plataforma.h"
#include "settings/ArchivoVariables.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <spawn.h>
#include <sstream>
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

pid_t Lanzar(const fs::path& datos, const std::string& guion, const fs::path& salida);

class Vigilar : public CarpetaCli {
protected:
    void SetUp() override {
        // Log del modem propio de la prueba, y ningun escritorio que
        // notificar salvo el de la prueba que lo ponga.
        ::unsetenv("VORIMESK_MODEMLOG");
        ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + (dir / "sin-bus").string()).c_str(),
                 1);
    }
    double Precio(const std::string& inicio, const std::string& fin) {
        return Json({"calcular", "--inicio", inicio, "--fin", fin, "--json"})["importe"];
    }
    static std::string Guion() { return (Fuentes() / "data/guiones/dos-llamadas.guion").string(); }
    // vigilar como programa aparte, con su salida en un archivo.
    fs::path LanzarAparte(const std::string& guion) {
        const fs::path salida = dir / "salida.txt";
        fs::remove(salida);
        pid_ = Lanzar(datos, guion, salida);
        EXPECT_GT(pid_, 0);
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
    // Fuera de un terminal, solo los sucesos, cada uno con la hora del
    // contador: ni lineas de estado por segundo ni "\r".
    EXPECT_EQ(r.salida.find('\r'), std::string::npos);
    EXPECT_EQ(r.salida.find(" | "), std::string::npos) << r.salida;
    EXPECT_LT(std::count(r.salida.begin(), r.salida.end(), '\n'), 30) << r.salida;
    for (const char* linea :
         {"10:00:00 Estado: Sin conexion.", "10:00:03 Estado: Conectando (Mi proveedor).",
          "10:00:11 Estado: Conectado (Mi proveedor).",
          "10:00:11 Llamada iniciada con Mi proveedor (tarifa Metropolitana, descuento Ninguno).",
          "Anotada en el registro: 06/03/2024 10:00:11, 00:02:00, coste ",
          ", tarifa Metropolitana, Trabajo.", "Registro y ajustes guardados."}) {
        EXPECT_NE(r.salida.find(linea), std::string::npos) << linea << "\n" << r.salida;
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
// The status line is a terminal's: script(1) gives vigilar one.
TEST_F(Vigilar, LaFranjaCambiaALas18EnPunto) {
    if (std::system("command -v script >/dev/null 2>&1") != 0) {
        GTEST_SKIP() << "falta script(1) para darle un terminal a vigilar";
    }
    Escribir(dir / "tarde.guion", "llamada Casa conectado=90\n");
    const std::string orden =
        std::string("script -qec \"") + VORIMESK_CLI + " --datos '" + datos.string() +
        "' vigilar --simular '" + (dir / "tarde.guion").string() +
        "' --velocidad 1000 --inicio '2024-03-06 17:59:00' --segundos 100\"" + " /dev/null";
    std::string salida;
    if (FILE* f = ::popen(orden.c_str(), "r")) {
        char buf[4096];
        for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) {
            salida.append(buf, n);
        }
        ASSERT_EQ(::pclose(f), 0) << salida;
    }
    for (const char* linea : {"17:59:59 | Conectado | Conexion: Casa | Duracion: 00:00:59",
                              "18:00:00 | Conectado | Conexion: Casa | Duracion: 00:01:00",
                              "18:00:29 | Conectado | Conexion: Casa | Duracion: 00:01:29"}) {
        const auto i = salida.find(linea);
        ASSERT_NE(i, std::string::npos) << linea;
        const std::string franja = salida.substr(salida.find("Franja: ", i) + 8, 6);
        EXPECT_EQ(franja, linea[1] == '7' ? "Normal" : "Reduci") << linea;
    }
    // And after the call the line is idle again: another call can be dialled.
    EXPECT_NE(salida.find("18:00:32 | Sin conexion"), std::string::npos);
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

TEST_F(Vigilar, SoloUnoPorCarpetaDeDatos) {
    fs::create_directories(datos);
    const auto otro = CrearInstanciaUnica(datos);
    ASSERT_TRUE(otro->Adquirir());
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
    EXPECT_EQ(r.estado, 1);
    EXPECT_NE(r.errores.find("Vorimesk ya esta vigilando"), std::string::npos) << r.errores;
    EXPECT_FALSE(Existe(datos / "Varibles.Dat"));

    // Otra carpeta de datos tiene su propio contador.
    datos = dir / "otros";
    const ResultadoCli o = Ejecutar({"vigilar", "--simular", Guion(), "--segundos", "1"});
    EXPECT_EQ(o.estado, 0) << o.errores;
}

// Cada suceso, una linea JSON completa; los de la llamada anotada llevan sus
// campos como "registro --json".
TEST_F(Vigilar, JsonUnSucesoPorLinea) {
    Settings ajustes;
    ajustes.AvisoTiempo = true;
    ajustes.TiempoAviso.Valor("00:01:00");
    ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0); // the new folder gets its tariff book
    GuardarVariables(datos / "Varibles.Dat", ajustes);
    const ResultadoCli r =
        Ejecutar({"vigilar", "--json", "--simular", Guion(), "--velocidad", "1000", "--inicio",
                  "2024-03-06 10:00:00", "--segundos", "260"});
    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    std::vector<nlohmann::json> sucesos;
    std::istringstream lineas(r.salida);
    for (std::string linea; std::getline(lineas, linea);) {
        ASSERT_NO_THROW(sucesos.push_back(nlohmann::json::parse(linea))) << linea;
        ASSERT_TRUE(sucesos.back().contains("hora")) << linea;
    }
    std::string clases;
    for (const nlohmann::json& j : sucesos) {
        const std::string c = j["suceso"];
        clases += (c == "estado" ? "estado:" + j["texto"].get<std::string>() : c) + " ";
    }
    // After each call the line is idle again (0, then -1) before the next dial.
    EXPECT_EQ(clases, "vigilando estado:Sin conexion estado:Conectando estado:Conectado "
                      "llamada_iniciada aviso estado:Desconectado llamada_terminada "
                      "llamada_anotada estado:Sin conexion estado:Conectando estado:Sin conexion "
                      "estado:Conectando estado:Conectado llamada_iniciada aviso "
                      "estado:Desconectado llamada_terminada llamada_anotada "
                      "estado:Sin conexion terminado ")
        << r.salida;

    const auto primero = [&](const std::string& clase) {
        for (const nlohmann::json& j : sucesos) {
            if (j["suceso"] == clase) {
                return j;
            }
        }
        return nlohmann::json();
    };
    EXPECT_EQ(primero("vigilando")["simulado"], true);
    EXPECT_EQ(primero("vigilando")["carpeta"], datos.string());
    EXPECT_EQ(primero("estado")["estado"], -1);
    EXPECT_EQ(primero("llamada_iniciada"),
              nlohmann::json::parse(R"({"suceso": "llamada_iniciada", "hora": "2024-03-06 10:00:11",
                  "conexion": "Mi proveedor", "tarifa": "Metropolitana", "descuento": "Ninguno"})"));
    const nlohmann::json aviso = primero("aviso");
    EXPECT_EQ(aviso["tipo"], "tiempo");
    EXPECT_EQ(aviso["hora"], "2024-03-06 10:01:12");
    EXPECT_EQ(aviso["texto"],
              "Tiempo de llamada superado: la llamada con Mi proveedor dura ya 00:01:01.");
    const nlohmann::json fin = primero("llamada_terminada");
    EXPECT_EQ(fin["inicio"], "2024-03-06 10:00:11");
    EXPECT_EQ(fin["conexion"], "Mi proveedor");
    EXPECT_TRUE(fin["coste"].is_string());

    const nlohmann::json registro = Json({"registro", "--json"})["llamadas"];
    std::vector<nlohmann::json> anotadas;
    for (const nlohmann::json& j : sucesos) {
        if (j["suceso"] == "llamada_anotada") {
            anotadas.push_back(j["llamada"]);
        }
    }
    EXPECT_EQ(nlohmann::json(anotadas), registro);
}

// Un plan de 1 MB con limites al 80 % (avisar) y al 100 % (colgar): una
// llamada que mueve 2 MB en 120 s pasa el 80 % al segundo 48-49 y llega al
// 100 % (1.048.576 bytes) justo al 60; la cuenta atras de 30 s cuelga a los
// 90 s, con 1.572.864 bytes = 1.536 KB = 1,50 MB. Despues "marcar" se niega
// hasta --forzar, y otro arranque no repite el aviso.
TEST_F(Vigilar, LosLimitesAvisanCuelganYNoDejanMarcar) {
    ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0);
    Escribir(datos / "Planes.json", R"({"formato": "vorimesk-planes", "version": 1,
        "planes": [{"Tarifa": "Metropolitana", "IncluidoMB": 1, "PrecioMB": 0.02}],
        "conexiones": [{"Conexion": "Movil", "Limites": [
            {"Porcentaje": 80, "De": "volumen", "Accion": "avisar"},
            {"Porcentaje": 100, "De": "volumen", "Accion": "colgar"}]}]})");
    Escribir(dir / "limite.guion", "llamada Movil conectado=120 recibidos=2097152\nespera 30\n");
    // Hoy, para que "marcar" (con el reloj del sistema) vea la llamada en su ciclo.
    const std::string hoy = RelojSistema().Hoy().TextoIsoFecha();
    const ResultadoCli r =
        Ejecutar({"vigilar", "--json", "--simular", (dir / "limite.guion").string(), "--velocidad",
                  "1000", "--inicio", hoy + " 00:00:10", "--segundos", "160"});
    ASSERT_EQ(r.estado, 0) << r.errores << r.salida;
    std::string clases;
    std::map<std::string, nlohmann::json> ultimo;
    std::istringstream lineas(r.salida);
    for (std::string linea; std::getline(lineas, linea);) {
        const nlohmann::json j = nlohmann::json::parse(linea);
        const std::string c = j["suceso"];
        if (c.rfind("limite", 0) == 0 || c.rfind("llamada", 0) == 0) {
            clases += c + " ";
            ultimo[c] = j;
        }
    }
    EXPECT_EQ(clases, "llamada_iniciada limite limite_cuenta_atras limite_colgado "
                      "llamada_terminada llamada_anotada ")
        << r.salida;
    EXPECT_EQ(ultimo["limite_cuenta_atras"]["hora"], hoy + " 00:01:10") << r.salida;
    EXPECT_EQ(ultimo["limite_cuenta_atras"]["segundos"], 30);
    EXPECT_EQ(ultimo["limite_colgado"]["hora"], hoy + " 00:01:40");
    EXPECT_EQ(ultimo["limite"]["texto"].get<std::string>().rfind(
                  "La conexion Movil ha llegado al 80% de su volumen (0,8", 0),
              0u)
        << ultimo["limite"];
    const nlohmann::json llamada = ultimo["llamada_anotada"]["llamada"];
    EXPECT_EQ(llamada["Duracion"], "00:01:30");
    EXPECT_EQ(llamada["Recibidos"], 1536);

    const ResultadoCli rechazo = Ejecutar({"marcar", "Movil"});
    EXPECT_EQ(rechazo.estado, 1);
    EXPECT_NE(rechazo.errores.find("La conexion Movil ha llegado al 100% de su volumen (1,50 de "
                                   "1,00 MB). No se marca hasta que se renueve el ciclo."),
              std::string::npos)
        << rechazo.errores;
    const ResultadoCli forzada = Ejecutar({"marcar", "--forzar", "Movil"});
    EXPECT_EQ(forzada.errores.find("ha llegado"), std::string::npos) << forzada.errores;

    Escribir(dir / "nada.guion", "espera 5\n");
    const ResultadoCli otra =
        Ejecutar({"vigilar", "--json", "--simular", (dir / "nada.guion").string(), "--velocidad",
                  "1000", "--inicio", hoy + " 00:05:00", "--segundos", "3"});
    EXPECT_EQ(otra.salida.find("\"limite"), std::string::npos) << otra.salida;
}

// Los avisos del contador sin ventanas llegan al escritorio con su frase.
TEST_F(Vigilar, LosAvisosSonNotificacionesDelEscritorio) {
    BusPrivado bus(dir);
    if (!bus.Razon().empty()) {
        GTEST_SKIP() << bus.Razon();
    }
    ASSERT_EQ(Ejecutar({"tarifas"}).estado, 0);
    Settings ajustes;
    ajustes.AvisoImporte = true;
    ajustes.ImporteAviso = "10";
    GuardarVariables(datos / "Varibles.Dat", ajustes);
    const ResultadoCli r = Ejecutar({"vigilar", "--simular", Guion(), "--velocidad", "1000",
                                     "--inicio", "2024-03-06 10:00:00", "--segundos", "120"});
    ASSERT_EQ(r.estado, 0) << r.errores;
    ASSERT_TRUE(bus.Esperar("Notify")) << r.salida;
    EXPECT_NE(bus.Llamadas().find("\"Vorimesk\" \"Importe superado: la llamada con Mi proveedor "
                                  "cuesta ya "),
              std::string::npos)
        << bus.Llamadas();
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

// vorimesk-cli vigilar como programa aparte sobre la carpeta de la prueba,
// con su salida en un archivo.
pid_t Lanzar(const fs::path& datos, const std::string& guion, const fs::path& salida) {
    const std::string datosTexto = datos.string();
    std::vector<const char*> argv = {VORIMESK_CLI, "--datos",   datosTexto.c_str(),
                                     "vigilar",    "--simular", guion.c_str(),
                                     nullptr};
    posix_spawn_file_actions_t acciones;
    posix_spawn_file_actions_init(&acciones);
    posix_spawn_file_actions_addopen(&acciones, 1, salida.c_str(), O_WRONLY | O_CREAT, 0600);
    pid_t pid = 0;
    const int e = posix_spawn(&pid, VORIMESK_CLI, &acciones, nullptr,
                              const_cast<char* const*>(argv.data()), environ);
    posix_spawn_file_actions_destroy(&acciones);
    return e == 0 ? pid : -1;
}

// El estado de salida de un hijo, o -1 si no termino normalmente.
int Esperar(pid_t pid) {
    int estado = 0;
    if (::waitpid(pid, &estado, 0) != pid || !WIFEXITED(estado)) {
        return -1;
    }
    return WEXITSTATUS(estado);
}

// SIGTERM lo para guardando registro y ajustes, con estado 0, como lo para
// systemd; mientras vigila, su estado queda en la carpeta para otros.
TEST_F(Vigilar, SigtermParaLimpiamente) {
    const fs::path salida = dir / "salida.txt";
    const pid_t pid = Lanzar(datos, Guion(), salida);
    ASSERT_GT(pid, 0);
    for (int i = 0; i < 200 && Leer(salida).find("Estado: ") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_NE(Leer(salida).find("Estado: Sin conexion."), std::string::npos) << Leer(salida);
    const std::optional<EstadoContador> estado = CargarEstadoContador(datos);
    ASSERT_TRUE(estado.has_value());
    EXPECT_EQ(estado->pid, pid);
    EXPECT_EQ(estado->texto, "Sin conexion");
    ::kill(pid, SIGTERM);
    EXPECT_EQ(Esperar(pid), 0) << Leer(salida);
    EXPECT_NE(Leer(salida).find("Registro y ajustes guardados."), std::string::npos);
    EXPECT_EQ(Leer(salida).find(" | "), std::string::npos) << "solo sucesos: " << Leer(salida);
    EXPECT_TRUE(Existe(datos / "Varibles.Dat"));
    EXPECT_FALSE(fs::exists(datos / EstadoContador::kNombreArchivo));
}

// SIGHUP (the terminal closed) and SIGINT stop it as SIGTERM does, saving
// register and settings, with status 0.
TEST_F(Vigilar, SighupYSigintParanLimpiamente) {
    for (const int senal : {SIGHUP, SIGINT}) {
        SCOPED_TRACE(senal);
        fs::remove(datos / "Varibles.Dat");
        Parar(senal);
    }
}

// A kill -9 mid-call: the pending connection was saved already and the
// meter's own note of the call is still in "LlamadasVistas".
TEST_F(Vigilar, UnKill9EnMitadDeLlamadaNoPierdeSuPendiente) {
    Escribir(dir / "larga.guion", "llamada Casa conectado=100000\n");
    const fs::path salida = LanzarAparte((dir / "larga.guion").string());
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
    const fs::path salida = LanzarAparte(Guion());
    const pid_t pid = pid_;
    // Waits until it watches (its first event line).
    for (int i = 0; i < 200 && Leer(salida).find("Estado: ") == std::string::npos; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ASSERT_NE(Leer(salida).find("Estado: "), std::string::npos) << Leer(salida);
    ::kill(pid, senal);
    int estado = 0;
    ASSERT_EQ(::waitpid(pid, &estado, 0), pid);
    ASSERT_TRUE(WIFEXITED(estado)) << Leer(salida);
    EXPECT_EQ(WEXITSTATUS(estado), 0);
    EXPECT_NE(Leer(salida).find("Registro y ajustes guardados."), std::string::npos);
    EXPECT_TRUE(Existe(datos / "Varibles.Dat"));
}

// Quien encuentra la carpeta tomada sabe por quien, y puede pedirle que se
// pare y quedarse con ella.
TEST_F(Vigilar, OtroContadorSeReleva) {
    if (!fs::exists("/proc/self/exe")) {
        GTEST_SKIP()
            << "sin /proc (un chroot sin montarlo) no se sabe que programa tiene el cerrojo";
    }
    const fs::path salida = dir / "salida.txt";
    const pid_t pid = Lanzar(datos, Guion(), salida);
    ASSERT_GT(pid, 0);
    const auto yo = CrearInstanciaUnica(datos);
    for (int i = 0; i < 200 && !yo->Titular(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    EXPECT_FALSE(yo->Adquirir());
    EXPECT_EQ(yo->Titular(), std::optional<long>(pid));
    EXPECT_TRUE(yo->Relevar(std::chrono::seconds(20)));
    EXPECT_EQ(Esperar(pid), 0) << Leer(salida);
    EXPECT_NE(Leer(salida).find("Registro y ajustes guardados."), std::string::npos);
}

} // namespace
