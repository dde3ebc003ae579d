#include "register/PasosArchivo.h"

#include "CarpetaTemporal.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

// What the wizard shows: page, step, banner and the three buttons (A, S, F
// for enabled, - for disabled).
std::string Estado(const PasosArchivo& p) {
    const char* paginas[] = {"Accion", "Periodo", "Nombre", "Conservar",
                             "Modo",   "Archivo", "Ver",    "Confirmar"};
    return std::string(paginas[static_cast<int>(p.Pagina())]) + " " + std::to_string(p.Paso()) +
           " [" + p.Banner() + "] " + (p.AtrasActivo() ? "A" : "-") +
           (p.SiguienteActivo() ? "S" : "-") + (p.FinalizarActivo() ? "F" : "-");
}

PasosArchivo Con(std::int16_t accion) {
    PasosArchivo p;
    p.ElegirAccion(accion);
    return p;
}

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
    EXPECT_EQ(Estado(p), "Periodo 2 [Paso 2 de 4] AS-");
}

TEST(PasosArchivo, ArchivarCuatroPasosYVueltaAtras) {
    PasosArchivo p = Con(PasosArchivo::kArchivar);
    EXPECT_EQ(p.Tarea(), TareaPaso::Ninguna);
    ASSERT_TRUE(p.Avanzar());
    EXPECT_EQ(Estado(p), "Periodo 2 [Paso 2 de 4] AS-");
    EXPECT_EQ(p.Tarea(), TareaPaso::ProponerNombre);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Nombre 3 [Paso 3 de 4] AS-");
    EXPECT_EQ(p.Tarea(), TareaPaso::TomarNombre);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Conservar 4 [Paso 4 de 4] A-F");
    EXPECT_FALSE(p.Avanzar());

    p.Retroceder();
    EXPECT_EQ(Estado(p), "Nombre 3 [Paso 3 de 4] AS-");
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Periodo 2 [Paso 2 de 4] AS-");
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Accion 1 [Paso 1 de 4] -S-");
    EXPECT_FALSE(p.Retroceder());
}

TEST(PasosArchivo, RecuperarGuardandoAntesArchivaAlEntrarEnLaLista) {
    PasosArchivo p = Con(PasosArchivo::kRecuperar);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Modo 2 [Paso 2 de 3] AS-");
    EXPECT_EQ(p.Tarea(), TareaPaso::ProponerNombre);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Nombre 4 [Paso 2] AS-"); // sin "de 3", a proposito
    EXPECT_EQ(p.Tarea(), TareaPaso::ArchivarActuales);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Archivo 3 [Paso 3 de 3] A--");
    p.ArchivoSeleccionado(true);
    EXPECT_EQ(Estado(p), "Archivo 3 [Paso 3 de 3] A-F");
    p.ArchivoSeleccionado(false);
    EXPECT_FALSE(p.FinalizarActivo());
    // Atras desde la lista vuelve a la eleccion de modo, tambien desde el nombre.
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Modo 2 [Paso 2 de 3] AS-");
    p.Avanzar();
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Modo 2 [Paso 2 de 3] AS-");
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Accion 1 [Paso 1 de 3] -S-");
}

TEST(PasosArchivo, RecuperarSustituyendoVaDirectoALaLista) {
    PasosArchivo p = Con(PasosArchivo::kRecuperar);
    p.ArchivoSeleccionado(true); // elegido antes, sigue elegido al llegar
    p.Avanzar();
    p.GuardarAntes(false);
    EXPECT_EQ(p.Tarea(), TareaPaso::Ninguna);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Archivo 3 [Paso 3 de 3] A-F");
}

TEST(PasosArchivo, VerNecesitaArchivoYLeeAlAvanzar) {
    PasosArchivo p = Con(PasosArchivo::kVer);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Archivo 2 [Paso 2 de 3] A--");
    p.ArchivoSeleccionado(true);
    EXPECT_EQ(Estado(p), "Archivo 2 [Paso 2 de 3] AS-");
    EXPECT_EQ(p.Tarea(), TareaPaso::LeerArchivo);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Ver 3 [Paso 3 de 3] A-F");
    p.Retroceder();
    EXPECT_EQ(Estado(p), "Archivo 2 [Paso 2 de 3] AS-");
}

TEST(PasosArchivo, BorrarSoloTerminaConSi) {
    PasosArchivo p = Con(PasosArchivo::kBorrar);
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Archivo 2 [Paso 2 de 3] A--");
    p.ArchivoSeleccionado(true);
    p.ConfirmarBorrado(true); // un "Si" de antes no cuenta: "No" vuelve a estar elegido
    p.Avanzar();
    EXPECT_EQ(Estado(p), "Confirmar 3 [Paso 3 de 3] A--");
    p.ConfirmarBorrado(true);
    EXPECT_EQ(Estado(p), "Confirmar 3 [Paso 3 de 3] A-F");
    p.ConfirmarBorrado(false);
    EXPECT_EQ(Estado(p), "Confirmar 3 [Paso 3 de 3] A--");
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
