#include "register/Importe.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

using namespace vorimesk;

namespace {

// glibc's shortest "%g" text that reads back as v; an independent measure
// of whether v can be written exactly in the 8 characters of the field.
std::string GlibcMasCorto(float v) {
    char b[64];
    for (int p = 1; p <= 9; ++p) {
        std::snprintf(b, sizeof b, "%.*g", p, static_cast<double>(v));
        if (std::strtof(b, nullptr) == v) {
            return b;
        }
    }
    return b;
}

// Checks one value; returns false (with a message) on the first fault.
::testing::AssertionResult ImporteCorrecto(float v) {
    const std::string t = TextoImporte(v);
    if (t.empty() || t.size() > 8 || t.find(' ') != std::string::npos) {
        return ::testing::AssertionFailure() << "\"" << t << "\" no cabe para " << v;
    }
    const float r = LeerImporte(t);
    if (std::isnan(v)) {
        return r == 0.0f ? ::testing::AssertionSuccess()
                         : ::testing::AssertionFailure() << "NaN da " << t;
    }
    if (r == v) {
        return ::testing::AssertionSuccess();
    }
    if (GlibcMasCorto(v).size() <= 8) {
        return ::testing::AssertionFailure()
               << v << " cabia exacto como " << GlibcMasCorto(v) << " y se escribio " << t;
    }
    // Not exact: it must keep the sign and the magnitude (at least two
    // significant digits, so within 5 %; 10 % among subnormals).
    const float tolerancia = std::fabs(v) >= FLT_MIN ? 0.05f : 0.1f;
    if (std::signbit(r) != std::signbit(v) || !(std::fabs(r - v) <= tolerancia * std::fabs(v))) {
        return ::testing::AssertionFailure() << v << " se escribio " << t << " y se lee " << r;
    }
    return ::testing::AssertionSuccess();
}

} // namespace

TEST(Importe, FormasLegiblesDeLosCostesHabituales) {
    EXPECT_EQ(TextoImporte(125.0f), "125");
    EXPECT_EQ(TextoImporte(0.5f), "0.5");
    EXPECT_EQ(TextoImporte(1234.56f), "1234.56");
    EXPECT_EQ(TextoImporte(-3.25f), "-3.25");
    EXPECT_EQ(TextoImporte(0.0f), "0");
    EXPECT_EQ(TextoImporte(-0.0f), "0");
    EXPECT_EQ(TextoImporte(99999999.0f), "1E+08"); // the float is 100000000
    EXPECT_EQ(TextoImporte(16777216.0f), "16777216");
    // Too many digits: as many as fit, never a cut number.
    EXPECT_EQ(TextoImporte(123456.78f), "123456.8");
    EXPECT_EQ(TextoImporte(0.123456789f), ".1234568");
    EXPECT_EQ(TextoImporte(123456789.0f), "123457E3");
    EXPECT_EQ(TextoImporte(1e-7f), "1E-07");
    EXPECT_EQ(TextoImporte(-1.2345678e-30f), "-123E-32");
    EXPECT_EQ(TextoImporte(5.112e-27f), "5112E-30"); // exact, where "5.11E-27" would not be
    EXPECT_EQ(TextoImporte(-1.2345e20f), "-1234E17");
    EXPECT_EQ(TextoImporte(std::numeric_limits<float>::max()), "34028E34");
}

TEST(Importe, LeeLoQueEscribenOtrasConfiguracionesRegionales) {
    EXPECT_EQ(LeerImporte("12,5"), 12.5f);
    EXPECT_EQ(LeerImporte("  0,05   "), 0.05f);
    EXPECT_EQ(LeerImporte("1,5E+07"), 1.5e7f);
    EXPECT_EQ(LeerImporte("-,5"), -0.5f);
    EXPECT_EQ(LeerImporte("5."), 5.0f);
    EXPECT_EQ(LeerImporte("125     "), 125.0f);
    EXPECT_EQ(LeerImporte("1.2.3"), 1.2f);
    EXPECT_EQ(LeerImporte("7E+"), 7.0f); // an exponent with no digits is not one
    EXPECT_EQ(LeerImporte("abc"), 0.0f);
    EXPECT_EQ(LeerImporte(std::string(8, '\0')), 0.0f);
    EXPECT_TRUE(std::isinf(LeerImporte("1E+39")));
    EXPECT_TRUE(std::isinf(LeerImporte("-9E99999999999")));
    EXPECT_EQ(LeerImporte("1E-99"), 0.0f);
    EXPECT_EQ(LeerImporte("0.00000000000000000000000000000000000000000000000001"), 0.0f);
}

TEST(Importe, ValoresExtremosYEspeciales) {
    using L = std::numeric_limits<float>;
    const float extremos[] = {
        L::max(),     L::min(),      L::denorm_min(), std::nextafter(L::min(), 0.0f),
        L::epsilon(), 1.0f / 3.0f,   2.0f / 3.0f,     0.1f + 0.2f,
        16777217.0f,  9.9999999e-5f, 99999.995f,      9999999.5f,
        0.00001234f,  1e10f,         1e-10f,          -1e38f};
    for (float v : extremos) {
        EXPECT_TRUE(ImporteCorrecto(v));
        EXPECT_TRUE(ImporteCorrecto(-v));
    }
    EXPECT_TRUE(ImporteCorrecto(L::quiet_NaN()));
    EXPECT_EQ(LeerImporte(TextoImporte(L::infinity())), L::infinity());
    EXPECT_EQ(LeerImporte(TextoImporte(-L::infinity())), -L::infinity());
}

// Every amount in cents up to 99,999.99 and whole amounts up to 2^24 are
// written exactly.
TEST(Importe, ImportesConCentimosYEnterosVuelvenExactos) {
    for (int centimos = 0; centimos <= 9999999; centimos += 23) {
        const float v = static_cast<float>(centimos) / 100.0f;
        ASSERT_EQ(LeerImporte(TextoImporte(v)), v) << centimos;
    }
    for (int entero = 0; entero <= (1 << 24); entero += 29) {
        const float v = static_cast<float>(entero);
        ASSERT_EQ(LeerImporte(TextoImporte(v)), v) << entero;
    }
}

// A spread over every exponent and sign of the float range.
TEST(Importe, BarridoDeTodoElIntervaloDeFloat) {
    for (std::uint64_t bits = 0; bits <= 0xFFFFFFFFu; bits += 24593) {
        const float v = std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (std::isinf(v)) {
            continue;
        }
        ASSERT_TRUE(ImporteCorrecto(v)) << std::hex << bits;
    }
}
