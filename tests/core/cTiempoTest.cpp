#include "core/cTiempo.h"

#include "core/Errores.h"
#include "core/Fecha.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {
std::string Texto(std::string_view t) {
    return cTiempo(t).Valor();
}
} // namespace

TEST(cTiempoTexto, LecturaConSusRarezas) {
    EXPECT_TRUE(cTiempo().EstaVacio());
    EXPECT_EQ(cTiempo().Valor(), "00:00:00");
    EXPECT_EQ(Texto("100:00:00"), "100:00:00");
    EXPECT_EQ(cTiempo("100:00:00").ConvSegundos(), 360000);
    EXPECT_EQ(Texto("1:30"), "01:30:00");
    EXPECT_EQ(Texto("5"), "05:05:00");       // sin ":" los minutos se leen del principio
    EXPECT_EQ(Texto("0:90:00"), "00:90:00"); // no se normaliza al leer
    EXPECT_EQ(Texto("abc"), "00:00:00");
    EXPECT_EQ(Texto(""), "00:00:00");
    EXPECT_EQ(Texto("  7:x:3"), "07:00:03");
    EXPECT_EQ(Texto("-01:-01:-01"), "-01:-01:-01");
}

TEST(cTiempoTexto, FraccionRedondeaAlPar) {
    EXPECT_EQ(Texto("1.5:00"), "02:00:00");
    EXPECT_EQ(Texto("2.5:00"), "02:00:00");
    EXPECT_EQ(Texto("0:0.5:3.5"), "00:00:04");
}

TEST(cTiempoTexto, DesbordamientoDeCampoDe16Bits) {
    EXPECT_EQ(Texto("32767:00:00"), "32767:00:00");
    EXPECT_THROW(cTiempo("32768:00:00"), ErrorDesbordamiento);
    EXPECT_THROW(cTiempo("0:40000:00"), ErrorDesbordamiento);
    EXPECT_NO_THROW(cTiempo("-32768:00:00"));
    EXPECT_THROW(cTiempo("0:0:-32769"), ErrorDesbordamiento);
}

TEST(cTiempoAritmetica, NormalizaYTruncaHaciaCero) {
    cTiempo t;
    t.ConvTiempo(3599);
    EXPECT_EQ(t.Valor(), "00:59:59");
    t.ConvTiempo(86400);
    EXPECT_EQ(t.Valor(), "24:00:00");
    t.ConvTiempo(-3661);
    EXPECT_EQ(t.Valor(), "-01:-01:-01");
    EXPECT_EQ(t.Horas(), -1);
    t.ConvTiempo(-59);
    EXPECT_EQ(t.Valor(), "00:00:-59");

    cTiempo u("0:90:00");
    u.Sumar("0:00:00");
    EXPECT_EQ(u.Valor(), "01:30:00");
}

TEST(cTiempoAritmetica, SumarObjetoYTexto) {
    cTiempo t("10:59:59");
    t.Sumar(cTiempo("0:0:1"));
    EXPECT_EQ(t.Valor(), "11:00:00");
    t.Sumar("5"); // 05:05:00
    EXPECT_EQ(t.Valor(), "16:05:00");
    cTiempo n;
    n.ConvTiempo(-3661);
    t.Sumar(n);
    EXPECT_EQ(t.Valor(), "15:03:59");
}

TEST(cTiempoAritmetica, RestarTomaTextoComoHoraDelReloj) {
    cTiempo t("01:00:00");
    t.Restar(cTiempo("02:00:00"));
    EXPECT_EQ(t.Horas(), -1);
    EXPECT_EQ(t.Minutos(), 0);
    EXPECT_EQ(t.Segundos(), 0);

    cTiempo u("32:00:00");
    u.Restar("22:00:00");
    EXPECT_EQ(u.Valor(), "10:00:00");
    u.Restar(Fecha::Crear(2026, 3, 2, 1, 30, 0));
    EXPECT_EQ(u.Valor(), "08:30:00");

    EXPECT_THROW(u.Restar("25:00:00"), ErrorTipo);
    EXPECT_THROW(u.Restar("hola"), ErrorTipo);
    EXPECT_THROW(u.Restar("5"), ErrorTipo);
    EXPECT_EQ(u.Valor(), "08:30:00"); // un fallo no cambia el valor
}

TEST(cTiempoAritmetica, DesbordamientoDe32BitsYHoras) {
    cTiempo t;
    t.ConvTiempo(32767 * 3600 + 3599);
    EXPECT_EQ(t.Valor(), "32767:59:59");
    EXPECT_THROW(t.Sumar("0:0:1"), ErrorDesbordamiento);
    EXPECT_EQ(t.Valor(), "32767:59:59");
    EXPECT_THROW(t.ConvTiempo(2147483647), ErrorDesbordamiento);
    EXPECT_THROW(t.ConvTiempo(-32769 * 3600), ErrorDesbordamiento);
}

TEST(cTiempoComparacion, ComparaTotalesNoTextos) {
    EXPECT_TRUE(cTiempo("00:00:01").EsMayor("00:00:00"));
    EXPECT_FALSE(cTiempo("00:00:00").EsMayor("00:00:01"));
    EXPECT_TRUE(cTiempo("00:00:00").EsMenor("00:00:01"));
    EXPECT_TRUE(cTiempo("0:60:00").EsIgual("1:00:00"));
    EXPECT_TRUE(cTiempo("1:0:0").EsIgual("0:0:3600"));
    EXPECT_FALSE(cTiempo("1:0:0").EsIgual("1"));
}
