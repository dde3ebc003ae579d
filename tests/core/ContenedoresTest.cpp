#include "core/Errores.h"
#include "core/cPila.h"
#include "core/colTiempo.h"

#include <gtest/gtest.h>

using namespace vorimesk;

TEST(cPila, UltimoEnEntrarPrimeroEnSalir) {
    cPila p;
    EXPECT_EQ(p.Count(), 0);
    p.Meter(std::int64_t{1});
    p.Meter(std::int64_t{2});
    EXPECT_EQ(std::get<std::int64_t>(p.Sacar()), 2);
    EXPECT_EQ(p.Count(), 1);
    p.Meter(std::string("texto"));
    p.Meter(Fecha::Crear(2026, 1, 1));
    EXPECT_EQ(std::get<Fecha>(p.Sacar()), Fecha::Crear(2026, 1, 1));
    EXPECT_EQ(std::get<std::string>(p.Sacar()), "texto");
    p.Vaciar();
    EXPECT_EQ(p.Count(), 0);
    EXPECT_THROW(p.Sacar(), ErrorIndice);
    EXPECT_EQ(p.Count(), 0);
}

TEST(colTiempo, AñadeLeeYQuitaPorClaveYPosicion) {
    colTiempo c;
    cTiempo& a = c.Add("1:30");
    EXPECT_EQ(a.Valor(), "01:30:00");
    c.Add("2:00", "dos");
    c.Add("3:00", "");
    c.Add("4:00", "cuatro");
    EXPECT_EQ(c.Count(), 4);
    EXPECT_EQ(c.Item("dos").Valor(), "02:00:00");
    EXPECT_EQ(c.Item(3).Valor(), "03:00:00");
    EXPECT_EQ(&c.Item(1), &a); // los elementos no cambian de sitio

    std::string orden;
    for (const cTiempo& t : c) {
        orden += t.Valor().substr(0, 2);
    }
    EXPECT_EQ(orden, "01020304");

    c.Remove("dos");
    EXPECT_EQ(c.Item(2).Valor(), "03:00:00");
    c.Remove(1);
    EXPECT_EQ(c.Count(), 2);
    EXPECT_EQ(c.Item("cuatro").Valor(), "04:00:00");
}

TEST(colTiempo, FallosDeClaveYPosicion) {
    colTiempo c;
    c.Add("1:00", "uno");
    EXPECT_THROW(c.Add("2:00", "uno"), ErrorClaveDuplicada);
    EXPECT_EQ(c.Count(), 1);
    EXPECT_THROW(c.Item("nada"), ErrorNoEncontrado);
    EXPECT_THROW(c.Item(0), ErrorNoEncontrado);
    EXPECT_THROW(c.Item(2), ErrorNoEncontrado);
    EXPECT_THROW(c.Remove("nada"), ErrorNoEncontrado);
    EXPECT_THROW(c.Remove(5), ErrorNoEncontrado);
    EXPECT_THROW(c.Item(""), ErrorNoEncontrado); // sin clave solo por posicion
}
