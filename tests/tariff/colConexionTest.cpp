#include "tariff/colConexion.h"

#include "core/Errores.h"

#include <gtest/gtest.h>

using namespace vorimesk;

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
