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
}

TEST(colConexion, ClavesYPosiciones) {
    colConexion lista;
    lista.Add(Fecha(), "T", "D", "C", "k");
    EXPECT_THROW(lista.Add(Fecha(), "T", "D", "C", "k"), ErrorClaveDuplicada);
    lista.Add(Fecha(), "T2", "D", "C"); // sin clave: solo por posicion
    EXPECT_EQ(lista.Count(), 2);
    EXPECT_THROW(lista.Item(""), ErrorNoEncontrado);
    EXPECT_THROW(lista.Item(3), ErrorNoEncontrado);
    lista.Remove("k");
    EXPECT_EQ(lista.Item(1).Tarifa(), "T2");
    int n = 0;
    for (const cConexion& c : lista) {
        n += c.Tarifa() == "T2";
    }
    EXPECT_EQ(n, 1);
}
