#include "register/PasosArchivo.h"

#include "CarpetaTemporal.h"

#include <functional>
#include <gtest/gtest.h>
#include <map>

using namespace vorimesk;

namespace {

// What the wizard shows: page, step, banner, the three buttons (A, S, F for
// enabled, - for disabled) and the work the next "&Siguiente" does.
std::string Estado(const PasosArchivo& p) {
    const char* paginas[] = {"Accion", "Periodo", "Nombre", "Conservar",
                             "Modo",   "Archivo", "Ver",    "Confirmar"};
    const char* tareas[] = {"", " proponer", " tomar", " archivar", " leer"};
    return std::string(paginas[static_cast<int>(p.Pagina())]) + " " + std::to_string(p.Paso()) +
           " [" + p.Banner() + "] " + (p.AtrasActivo() ? "A" : "-") +
           (p.SiguienteActivo() ? "S" : "-") + (p.FinalizarActivo() ? "F" : "-") +
           tareas[static_cast<int>(p.Tarea())];
}

// The state after each move: '>' "&Siguiente", '<' "&Atras", '+' and '-' a
// file chosen or not, 's' and 'n' "&Si" or "&No", 'r' replace, not save first.
std::vector<std::string> Recorrido(std::int16_t accion, std::string_view movimientos) {
    const std::map<char, std::function<void(PasosArchivo&)>> hacer = {
        {'>', [](PasosArchivo& p) { p.Avanzar(); }},
        {'<', [](PasosArchivo& p) { p.Retroceder(); }},
        {'+', [](PasosArchivo& p) { p.ArchivoSeleccionado(true); }},
        {'-', [](PasosArchivo& p) { p.ArchivoSeleccionado(false); }},
        {'s', [](PasosArchivo& p) { p.ConfirmarBorrado(true); }},
        {'n', [](PasosArchivo& p) { p.ConfirmarBorrado(false); }},
        {'r', [](PasosArchivo& p) { p.GuardarAntes(false); }}};
    PasosArchivo p;
    p.ElegirAccion(accion);
    std::vector<std::string> estados;
    for (char m : movimientos) {
        hacer.at(m)(p);
        estados.push_back(Estado(p));
    }
    return estados;
}

using V = std::vector<std::string>;

} // namespace

TEST(PasosArchivo, AperturaYEleccionDeAccion) {
    PasosArchivo p;
    EXPECT_EQ(Estado(p), "Accion 1 [Paso 1] ---");
    EXPECT_FALSE(p.Avanzar());
    p.ElegirAccion(PasosArchivo::kVer);
    EXPECT_EQ(Estado(p), "Accion 1 [Paso 1] -S-");
    EXPECT_TRUE(p.GuardarAntes()); // guardar antes de recuperar, por defecto

    // La accion solo se cambia en la primera pagina.
    p.ElegirAccion(PasosArchivo::kBorrar);
    p.Avanzar();
    p.ElegirAccion(PasosArchivo::kArchivar);
    EXPECT_EQ(p.Accion(), PasosArchivo::kBorrar);
    p.Retroceder();
    p.ElegirAccion(PasosArchivo::kArchivar);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Periodo 2 [Paso 2 de 4] AS- proponer");
}

TEST(PasosArchivo, ArchivarCuatroPasosYVueltaAtras) {
    EXPECT_EQ(Recorrido(PasosArchivo::kArchivar, ">>>><<<<"),
              (V{"Periodo 2 [Paso 2 de 4] AS- proponer", "Nombre 3 [Paso 3 de 4] AS- tomar",
                 "Conservar 4 [Paso 4 de 4] A-F", "Conservar 4 [Paso 4 de 4] A-F",
                 "Nombre 3 [Paso 3 de 4] AS- tomar", "Periodo 2 [Paso 2 de 4] AS- proponer",
                 "Accion 1 [Paso 1 de 4] -S-", "Accion 1 [Paso 1 de 4] -S-"}));
}

// Saving the current calls first shows the name page as step 4 with "Paso 2"
// and no step count, on purpose; back from the list or the name goes to the
// choice of mode.
TEST(PasosArchivo, RecuperarGuardandoAntesArchivaAlEntrarEnLaLista) {
    EXPECT_EQ(Recorrido(PasosArchivo::kRecuperar, ">>>+-<><<"),
              (V{"Modo 2 [Paso 2 de 3] AS- proponer", "Nombre 4 [Paso 2] AS- archivar",
                 "Archivo 3 [Paso 3 de 3] A--", "Archivo 3 [Paso 3 de 3] A-F",
                 "Archivo 3 [Paso 3 de 3] A--", "Modo 2 [Paso 2 de 3] AS- proponer",
                 "Nombre 4 [Paso 2] AS- archivar", "Modo 2 [Paso 2 de 3] AS- proponer",
                 "Accion 1 [Paso 1 de 3] -S-"}));
}

TEST(PasosArchivo, RecuperarSustituyendoVaDirectoALaLista) {
    // A file chosen before is still chosen on arrival.
    EXPECT_EQ(Recorrido(PasosArchivo::kRecuperar, "+>r>"),
              (V{"Accion 1 [Paso 1] -S-", "Modo 2 [Paso 2 de 3] AS- proponer",
                 "Modo 2 [Paso 2 de 3] AS-", "Archivo 3 [Paso 3 de 3] A-F"}));
}

TEST(PasosArchivo, VerNecesitaArchivoYLeeAlAvanzar) {
    EXPECT_EQ(Recorrido(PasosArchivo::kVer, ">+><"),
              (V{"Archivo 2 [Paso 2 de 3] A-- leer", "Archivo 2 [Paso 2 de 3] AS- leer",
                 "Ver 3 [Paso 3 de 3] A-F", "Archivo 2 [Paso 2 de 3] AS- leer"}));
}

TEST(PasosArchivo, BorrarSoloTerminaConSi) {
    // A "Si" from before does not count: "No" is chosen again on arrival.
    EXPECT_EQ(Recorrido(PasosArchivo::kBorrar, ">+s>sn"),
              (V{"Archivo 2 [Paso 2 de 3] A--", "Archivo 2 [Paso 2 de 3] AS-",
                 "Archivo 2 [Paso 2 de 3] AS-", "Confirmar 3 [Paso 3 de 3] A--",
                 "Confirmar 3 [Paso 3 de 3] A-F", "Confirmar 3 [Paso 3 de 3] A--"}));
}

class RangoArchivoTest : public prueba::CarpetaTemporal {
protected:
    void Llamada(Fecha dia) {
        registro.AñadirItem(dia, Fecha(), "00:01:00", "1", 0, "T", "C", "", 0, 0, 0);
    }
    Log registro{dir};
};

TEST_F(RangoArchivoTest, HastaElUltimoPeriodoCerrado) {
    Llamada(Fecha::Crear(2026, 1, 10));
    Llamada(Fecha::Crear(2026, 3, 18));
    const Fecha hoy = Fecha::Crear(2026, 3, 20);
    const RangoFechas todos = RangoTodos(registro, hoy);
    EXPECT_EQ(todos.desde, Fecha::Crear(2026, 1, 10));
    EXPECT_EQ(todos.hasta, hoy);
    // Par bimensual con dia 15: el periodo en curso empieza el 16/02.
    const RangoFechas cerrado = RangoHastaPeriodoCerrado(registro, 15, 1, hoy);
    EXPECT_EQ(cerrado.desde, Fecha::Crear(2026, 1, 10));
    EXPECT_EQ(cerrado.hasta, Fecha::Crear(2026, 2, 15));
}

TEST_F(RangoArchivoTest, TodoEnElPeriodoEnCursoNoDejaNadaQueArchivar) {
    Llamada(Fecha::Crear(2026, 3, 17));
    const RangoFechas r = RangoHastaPeriodoCerrado(registro, 15, 1, Fecha::Crear(2026, 3, 20));
    EXPECT_LT(r.hasta, r.desde);
    EXPECT_EQ(PrimerDiaOHoy(registro, Fecha()), Fecha::Crear(2026, 3, 17));
    EXPECT_EQ(PrimerDiaOHoy(Log(dir), Fecha::Crear(2026, 3, 20)), Fecha::Crear(2026, 3, 20));
}
