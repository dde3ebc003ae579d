#include "core/Fecha.h"

#include "core/Errores.h"

#include <cmath>
#include <gtest/gtest.h>
#include <tuple>

using namespace vorimesk;

TEST(FechaOle, IdaYVueltaAlrededorDe1899) {
    EXPECT_EQ(Fecha::DesdeOle(0.0), Fecha());
    EXPECT_EQ(Fecha::DesdeOle(1.0), Fecha::Crear(1899, 12, 31));
    EXPECT_EQ(Fecha::DesdeOle(2.0).TextoIso(), "1900-01-01 00:00:00");
    // Antes de la epoca la parte entera es el dia y la fraccion sigue siendo
    // la hora hacia delante: -1.25 es el 29 de diciembre a las 06:00.
    EXPECT_EQ(Fecha::DesdeOle(-1.25).TextoIso(), "1899-12-29 06:00:00");
    EXPECT_EQ(Fecha::DesdeOle(-0.5), Fecha::DesdeOle(0.5));
    EXPECT_DOUBLE_EQ(Fecha::Crear(1899, 12, 29, 6).AOle(), -1.25);
    EXPECT_DOUBLE_EQ(Fecha::Crear(1899, 12, 30, 12).AOle(), 0.5);
    EXPECT_DOUBLE_EQ(Fecha::Crear(1899, 12, 28, 18).AOle(), -2.75);

    for (std::int64_t s : {-200000LL, -86401LL, -86400LL, -86399LL, -1LL, 0LL, 1LL, 86399LL,
                           86400LL, 3155760000LL}) {
        const Fecha f = Fecha::DesdeSegundos(s);
        EXPECT_EQ(Fecha::DesdeOle(f.AOle()), f) << s;
    }
}

TEST(FechaOle, RedondeaAlSegundoYRechazaLoImposible) {
    EXPECT_EQ(Fecha::DesdeOle(36479.5 + 0.4 / 86400).TextoIso(), "1999-11-15 12:00:00");
    EXPECT_EQ(Fecha::DesdeOle(36479.5 + 0.6 / 86400).TextoIso(), "1999-11-15 12:00:01");
    EXPECT_EQ(Fecha::DesdeOle(36479.99999999).TextoIso(), "1999-11-16 00:00:00");
    EXPECT_THROW(Fecha::DesdeOle(std::nan("")), ErrorDesbordamiento);
    EXPECT_THROW(Fecha::DesdeOle(1e300), ErrorDesbordamiento);
}

TEST(FechaCalendario, DiaDeLaSemanaEmpiezaEnDomingo) {
    EXPECT_EQ(Fecha::Crear(1899, 12, 30).DiaSemana(), 7);           // sabado
    EXPECT_EQ(Fecha::Crear(2026, 11, 22).DiaSemana(), 1);           // domingo
    EXPECT_EQ(Fecha::Crear(2026, 3, 2, 23, 59, 59).DiaSemana(), 2); // lunes
    EXPECT_EQ(Fecha::Crear(1899, 12, 24).DiaSemana(), 1);
}

TEST(FechaCalendario, MesesYBisiestos) {
    EXPECT_EQ(Fecha::Crear(2024, 1, 31).MasMeses(1).TextoIsoFecha(), "2024-02-29");
    EXPECT_EQ(Fecha::Crear(2023, 1, 31).MasMeses(1).TextoIsoFecha(), "2023-02-28");
    EXPECT_EQ(Fecha::Crear(2026, 12, 15, 10).MasMeses(2).TextoIso(), "2027-02-15 10:00:00");
    EXPECT_EQ(Fecha::Crear(2026, 3, 31).MasMeses(-1).TextoIsoFecha(), "2026-02-28");
    EXPECT_EQ(Fecha::Crear(2000, 2, 28).MasDias(1).TextoIsoFecha(), "2000-02-29");
    EXPECT_EQ(Fecha::Crear(1900, 2, 28).MasDias(1).TextoIsoFecha(), "1900-03-01");
    EXPECT_THROW(Fecha::Crear(2023, 2, 29), ErrorTipo);
    EXPECT_THROW(Fecha::Crear(2023, 13, 1), ErrorTipo);
    EXPECT_THROW(Fecha::Crear(2023, 1, 1, 24), ErrorTipo);
}

TEST(FechaCalendario, PartesDeFechaYHora) {
    const auto partes = [](Fecha f) {
        return std::tuple(f.Año(), f.Mes(), f.Dia(), f.Hora(), f.Minuto(), f.Segundo());
    };
    const Fecha f = Fecha::Crear(2026, 3, 2, 17, 59, 58);
    EXPECT_EQ(partes(f), std::tuple(2026, 3, 2, 17, 59, 58));
    EXPECT_EQ(partes(Fecha::Crear(1899, 12, 29, 6)), std::tuple(1899, 12, 29, 6, 0, 0));
    EXPECT_EQ(f.SoloFecha().TextoIso(), "2026-03-02 00:00:00");
    EXPECT_EQ(f.SoloHora().Segundos(), 17 * 3600 + 59 * 60 + 58);
}

TEST(FechaTexto, TextoCortoSinGuiones) {
    EXPECT_EQ(Fecha::Crear(2026, 3, 2).TextoCorto(), "02/03/2026");
    EXPECT_EQ(Fecha::Crear(2026, 3, 2, 23, 59, 59).TextoCorto(), "02/03/2026 23:59:59");
    for (const Fecha f : {Fecha::Crear(2026, 3, 2), Fecha::Crear(1999, 12, 31, 0, 0, 1),
                          Fecha::Crear(1899, 12, 29, 6)}) {
        EXPECT_EQ(Fecha::LeerTextoCorto(f.TextoCorto()), f);
    }
    EXPECT_EQ(Fecha::LeerTextoCorto(" 2/3/2026 7:05 "), Fecha::Crear(2026, 3, 2, 7, 5));
    EXPECT_FALSE(Fecha::LeerTextoCorto("31/02/2026"));
    EXPECT_FALSE(Fecha::LeerTextoCorto("2026-03-02"));
    EXPECT_FALSE(Fecha::LeerTextoCorto("02/03/2026 25:00:00"));
    EXPECT_FALSE(Fecha::LeerTextoCorto("02/03/2026 x"));
}

TEST(FechaTexto, IsoParaLaLineaDeOrdenes) {
    EXPECT_EQ(Fecha::LeerIso("2026-03-02 17:59:00"), Fecha::Crear(2026, 3, 2, 17, 59));
    EXPECT_EQ(Fecha::LeerIso("2026-03-02"), Fecha::Crear(2026, 3, 2));
    EXPECT_EQ(Fecha::Crear(2026, 3, 2, 1, 2, 3).TextoIso(), "2026-03-02 01:02:03");
    EXPECT_FALSE(Fecha::LeerIso("2026-02-30"));
    EXPECT_FALSE(Fecha::LeerIso("02/03/2026"));
    EXPECT_FALSE(Fecha::LeerIso("2026-03-02T10:00:00"));
}
