// The settings file's ledger and profiles carried into the live objects and
// back, as the main window does at start and at exit.

#include "tariff/AjustesTarifa.h"

#include "core/Errores.h"
#include "core/Reloj.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

Settings ConBonosYPerfiles() {
    Settings s = ValoresPorDefecto();
    s.DiaFactura = 20;
    s.perFactura = 3;
    s.Bonos = {
        {3, Fecha::Crear(1999, 10, 1), FechaVariante::Vacia(), "49:59:59"},
        {0, Fecha::Crear(1999, 11, 1), FechaVariante::Nula(), "00:00:00"},
        {1, Fecha::Crear(1999, 9, 1), FechaVariante::De(Fecha::Crear(1999, 12, 31)), "50:00:00"}};
    s.Conexiones = {{"Casa", "BonoNet", Fecha::Crear(1999, 11, 15, 14, 5, 0), "BonoNet"},
                    {"Oficina", "", Fecha::Crear(1999, 11, 15, 14, 5, 0), "Provincial"}};
    return s;
}

} // namespace

TEST(AjustesTarifa, ElBonoDeLasOpcionesIdaYVuelta) {
    const RelojFijo reloj(Fecha::Crear(2026, 1, 1));
    cBono bono(reloj);
    bono.DarAlta(2); // whatever the ledger held before goes
    const Settings s = ConBonosYPerfiles();
    CargarBono(s, bono);
    ASSERT_EQ(bono.Count(), 3);
    EXPECT_EQ(bono.Nombre(0), "50NOCHE");
    EXPECT_EQ(bono.TotalTiempoGrupo(cBono::kGrupoDia), "50:00:00");

    Settings vuelta = ValoresPorDefecto();
    GuardarBono(bono, vuelta);
    EXPECT_EQ(vuelta.Bonos, s.Bonos);
    EXPECT_EQ(vuelta.DiaFactura, 20);
    EXPECT_EQ(vuelta.perFactura, 3);

    // The ledger keeps the time left as the user wrote it.
    Settings aMano = s;
    aMano.Bonos[0].tiempo = "1:75:0";
    CargarBono(aMano, bono);
    EXPECT_EQ(bono.TotalTiempoTipo(3), "02:15:00");

    aMano.Bonos[1].Tipo = 4;
    EXPECT_THROW(CargarBono(aMano, bono), ErrorIndice);
}

TEST(AjustesTarifa, PerfilesEnSuOrdenYSinClave) {
    colConexion conexiones;
    CargarConexiones(ConBonosYPerfiles(), conexiones);
    ASSERT_EQ(conexiones.Count(), 2);
    // Same moment twice: the first in file order is the one found.
    const cConexion* c = conexiones.Buscar(Fecha::Crear(1999, 11, 15, 14, 5, 0));
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->Conexion() + " " + c->Descuento(), "Casa BonoNet");
    EXPECT_EQ(conexiones.Item(2).Tarifa(), "Provincial");
    EXPECT_THROW(conexiones.Item("Casa"), ErrorNoEncontrado);

    conexiones.Remove(1);
    conexiones.Add(Fecha::Crear(2026, 3, 2), "Metropolitana", "", "Nueva");
    Settings s = ConBonosYPerfiles();
    GuardarConexiones(conexiones, s);
    EXPECT_EQ(s.Conexiones, (std::vector<PerfilConexion>{
                                ConBonosYPerfiles().Conexiones[1],
                                {"Nueva", "", Fecha::Crear(2026, 3, 2), "Metropolitana"}}));
}

TEST(colConexion, BuscarComparaFechaYHoraYDevuelveElPrimero) {
    colConexion lista;
    const Fecha dia = Fecha::Crear(2026, 3, 2);
    lista.Add(dia, "Metropolitana", "BonoNet", "Proveedor", "a");
    lista.Add(dia.MasSegundos(36000), "Provincial", "", "Otro");
    lista.Add(dia.MasSegundos(36000), "Interprovincial", "", "Tercero");
    EXPECT_EQ(lista.Buscar(dia)->Tarifa(), "Metropolitana");
    EXPECT_EQ(lista.Buscar(dia.MasSegundos(36000))->Conexion(), "Otro");
    EXPECT_EQ(lista.Buscar(dia.MasSegundos(1)), nullptr);
    EXPECT_EQ(lista.Item("a").Descuento(), "BonoNet");
    EXPECT_EQ(lista.Item(3).Tarifa(), "Interprovincial");
    // Keys and positions are the keyed collection's, tested with colTiempo.
    EXPECT_THROW(lista.Add(dia, "T", "D", "C", "a"), ErrorClaveDuplicada);
}
