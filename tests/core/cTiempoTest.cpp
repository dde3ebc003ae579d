#include "core/cTiempo.h"

#include "core/Errores.h"
#include "core/Fecha.h"

#include <gtest/gtest.h>

using namespace vorimesk;

TEST(cTiempoTexto, LecturaConSusRarezas) {
    EXPECT_TRUE(cTiempo().EstaVacio());
    EXPECT_EQ(cTiempo("100:00:00").ConvSegundos(), 360000);
    const std::pair<const char*, const char*> casos[] = {
        {"", "00:00:00"},        {"100:00:00", "100:00:00"}, {"1:30", "01:30:00"},
        {"5", "05:05:00"},       // sin ":" los minutos se leen del principio
        {"0:90:00", "00:90:00"}, // no se normaliza al leer
        {"abc", "00:00:00"},     {"  7:x:3", "07:00:03"},    {"-01:-01:-01", "-01:-01:-01"},
        {"1.5:00", "02:00:00"}, // las fracciones redondean al par
        {"2.5:00", "02:00:00"},  {"0:0.5:3.5", "00:00:04"},  {"32767:00:00", "32767:00:00"},
    };
    for (const auto& [texto, valor] : casos) {
        EXPECT_EQ(cTiempo(texto).Valor(), valor) << texto;
    }
    // Cada campo cabe en 16 bits.
    for (const char* grande : {"32768:00:00", "0:40000:00", "0:0:-32769"}) {
        EXPECT_THROW(cTiempo{grande}, ErrorDesbordamiento) << grande;
    }
    EXPECT_NO_THROW(cTiempo("-32768:00:00"));
}

TEST(cTiempoAritmetica, NormalizaYTruncaHaciaCero) {
    cTiempo t;
    for (const auto& [segundos, valor] : {std::pair(3599, "00:59:59"),
                                          {86400, "24:00:00"},
                                          {-59, "00:00:-59"},
                                          {-3661, "-01:-01:-01"}}) {
        t.ConvTiempo(segundos);
        EXPECT_EQ(t.Valor(), valor) << segundos;
    }
    EXPECT_EQ(t.Horas(), -1);

    cTiempo u("0:90:00");
    u.Sumar("0:00:00");
    EXPECT_EQ(u.Valor(), "01:30:00");
    u.Sumar(cTiempo("0:29:59"));
    u.Sumar(cTiempo("0:0:1"));
    EXPECT_EQ(u.Valor(), "02:00:00");
    u.Sumar("5"); // 05:05:00
    u.Sumar(t);
    EXPECT_EQ(u.Valor(), "06:03:59");
}

TEST(cTiempoAritmetica, RestarTomaTextoComoHoraDelReloj) {
    cTiempo t("01:00:00");
    t.Restar(cTiempo("02:00:00"));
    EXPECT_EQ(std::tuple(t.Horas(), t.Minutos(), t.Segundos()), std::tuple(-1, 0, 0));

    cTiempo u("32:00:00");
    u.Restar("22:00:00");
    EXPECT_EQ(u.Valor(), "10:00:00");
    u.Restar(Fecha::Crear(2026, 3, 2, 1, 30, 0));
    EXPECT_EQ(u.Valor(), "08:30:00");
    for (const char* malo : {"25:00:00", "hola", "5"}) {
        EXPECT_THROW(u.Restar(malo), ErrorTipo) << malo;
    }
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
