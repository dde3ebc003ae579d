#include "core/CampoFijo.h"
#include "core/Errores.h"
#include "core/FormatoNumero.h"
#include "core/Numero.h"
#include "core/Texto1252.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

using namespace vorimesk;

TEST(Val, PrefijoNumerico) {
    EXPECT_DOUBLE_EQ(Val("  -2.5abc"), -2.5);
    EXPECT_DOUBLE_EQ(Val("abc"), 0.0);
    EXPECT_DOUBLE_EQ(Val(""), 0.0);
    EXPECT_DOUBLE_EQ(Val("11.72"), 11.72);
    EXPECT_DOUBLE_EQ(Val("+3"), 3.0);
    EXPECT_DOUBLE_EQ(Val(".5"), 0.5);
    EXPECT_DOUBLE_EQ(Val("5."), 5.0);
    EXPECT_DOUBLE_EQ(Val("1,5"), 1.0); // la coma no es separador decimal aqui
    EXPECT_DOUBLE_EQ(Val("-"), 0.0);
    EXPECT_DOUBLE_EQ(Val("1e3"), 1.0);
    EXPECT_DOUBLE_EQ(Val("12:30:00"), 12.0);
}

TEST(Val, RedondeoAlParYLimitesDe16Bits) {
    EXPECT_EQ(RedondeoBancario(0.5), 0.0);
    EXPECT_EQ(RedondeoBancario(1.5), 2.0);
    EXPECT_EQ(RedondeoBancario(2.5), 2.0);
    EXPECT_EQ(RedondeoBancario(-1.5), -2.0);
    EXPECT_EQ(RedondeoBancario(-2.5), -2.0);
    EXPECT_EQ(RedondeoBancario(2.4999), 2.0);
    EXPECT_EQ(AEntero16(32767.4), 32767);
    EXPECT_EQ(AEntero16(-32768.5), -32768);
    EXPECT_THROW(AEntero16(32767.5), ErrorDesbordamiento);
    EXPECT_THROW(AEntero16(-32769), ErrorDesbordamiento);
}

// Numbers as a user types them, and money as the windows show it.
TEST(NumeroEscrito, FormasEspanolasYLlana) {
    const std::pair<const char*, std::optional<std::string>> casos[] = {{"1.500,50", "1500.50"},
                                                                        {"1500.50", "1500.50"},
                                                                        {"1,2", "1.2"},
                                                                        {"2.500", "2500"},
                                                                        {"0.105", "0.105"},
                                                                        {"1.50", "1.50"},
                                                                        {"1234.567", "1234.567"},
                                                                        {"1.234.567", "1234567"},
                                                                        {"1,234.5", "1234.5"},
                                                                        {" -3,20 ", "-3.20"},
                                                                        {",5", ".5"},
                                                                        {"7", "7"},
                                                                        {"1.5.0", std::nullopt},
                                                                        {"12,34,5", std::nullopt},
                                                                        {"1.50,5.0", std::nullopt},
                                                                        {"", std::nullopt},
                                                                        {",", std::nullopt},
                                                                        {"1e3", std::nullopt},
                                                                        {"abc", std::nullopt},
                                                                        {"1 500", std::nullopt}};
    for (const auto& [texto, esperado] : casos) {
        EXPECT_EQ(NumeroEscrito(texto), esperado) << texto;
    }
    const std::pair<double, const char*> dinero[] = {{1500.5, "1.500,50"},
                                                     {17.93, "17,93"},
                                                     {0.0, "0,00"},
                                                     {-3.2, "-3,20"},
                                                     {-0.004, "0,00"},
                                                     {0.005, "0,01"},
                                                     {4047081.52, "4.047.081,52"},
                                                     {999.999, "1.000,00"}};
    for (const auto& [valor, esperado] : dinero) {
        EXPECT_EQ(TextoDinero(valor), esperado) << valor;
    }
}

TEST(Texto1252, CadaByteIdaYVuelta) {
    for (int b = 0; b < 256; ++b) {
        const std::string byte(1, static_cast<char>(b));
        EXPECT_EQ(A1252(De1252(byte)), byte) << b;
    }
    EXPECT_EQ(De1252("\xD1"), "Ñ");
    EXPECT_EQ(De1252("\x80"), "€");
    EXPECT_EQ(A1252("Año €"), "A\xF1o \x80");
    EXPECT_EQ(A1252("日本"), "??");
    EXPECT_EQ(A1252("a\xFF"
                    "b"),
              "a\xFF"
              "b"); // UTF-8 roto: el byte se conserva
}

TEST(CampoFijo, RellenaCortaYRecorta) {
    char campo[8];
    EscribirCampo(campo, 8, "Año");
    EXPECT_EQ(std::string(campo, 8), "A\xF1o     ");
    EXPECT_EQ(LeerCampoRecortado(campo, 8), "Año");
    EscribirCampo(campo, 8, "Metropolitana");
    EXPECT_EQ(std::string(campo, 8), "Metropol");
    EscribirCampo(campo, 8, "  a b  ");
    EXPECT_EQ(LeerCampo(campo, 8), "  a b   ");
    EXPECT_EQ(LeerCampoRecortado(campo, 8), "a b");
}

TEST(CampoFijo, NumerosEnLittleEndian) {
    char b[8];
    EscribirEntero16(b, -1);
    EXPECT_EQ(std::string(b, 2), std::string("\xFF\xFF", 2));
    EXPECT_EQ(LeerEntero16(b), -1);
    EscribirEntero32(b, 0x01020304);
    EXPECT_EQ(std::string(b, 4), std::string("\x04\x03\x02\x01", 4));
    EXPECT_EQ(LeerEntero32(b), 0x01020304);
    EscribirDoble(b, 1.0);
    EXPECT_EQ(std::string(b, 8), std::string("\0\0\0\0\0\0\xF0\x3F", 8));
    EXPECT_DOUBLE_EQ(LeerDoble(b), 1.0);
}
