// The budget file beside the settings file.

#include "settings/Presupuesto.h"

#include "CarpetaTemporal.h"
#include "core/ErrorFormato.h"

#include <gtest/gtest.h>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {
using PresupuestoArchivo = CarpetaTemporal;
}

TEST(Presupuesto, CantidadesQueSeLeenYLasQueNo) {
    EXPECT_EQ(LeerTextoPresupuesto("1500"), 1500.0);
    EXPECT_EQ(LeerTextoPresupuesto("  1500.5 "), 1500.5);
    EXPECT_EQ(LeerTextoPresupuesto("1500,25"), 1500.25);
    EXPECT_EQ(LeerTextoPresupuesto(".5"), 0.5);
    EXPECT_EQ(LeerTextoPresupuesto("1.500,50"), 1500.5);
    for (const char* malo : {"", " ", "0", "0.0", "-5", "+5", "12a", "1.2.3", "1,2.3", "1e3", ".",
                             "inf", "nan", "15 00"}) {
        EXPECT_FALSE(LeerTextoPresupuesto(malo)) << malo;
    }
}

TEST_F(PresupuestoArchivo, SeGuardaSeLeeYSeQuita) {
    EXPECT_FALSE(LeerPresupuesto(dir));
    GuardarPresupuesto(dir, 1234.5);
    EXPECT_EQ(Leer(dir / "Presupuesto.Dat"), "1234.5\r\n");
    EXPECT_EQ(LeerPresupuesto(dir), 1234.5);
    GuardarPresupuesto(dir, 0.1);
    EXPECT_EQ(LeerPresupuesto(dir), 0.1);
    GuardarPresupuesto(dir, std::nullopt);
    EXPECT_FALSE(Existe(dir / "Presupuesto.Dat"));
    EXPECT_FALSE(LeerPresupuesto(dir));
    // Nothing else of the folder is written: only the budget's own file.
    EXPECT_TRUE(std::filesystem::is_empty(dir));
}

TEST_F(PresupuestoArchivo, UnArchivoDañadoSeNombraYNoSeToca) {
    Escribir(dir / "Presupuesto.Dat", "mucho\r\n");
    try {
        LeerPresupuesto(dir);
        FAIL() << "sin error";
    } catch (const ErrorFormato& e) {
        EXPECT_EQ(e.Ruta(), (dir / "Presupuesto.Dat").string());
    }
    EXPECT_EQ(Leer(dir / "Presupuesto.Dat"), "mucho\r\n");
    Escribir(dir / "Presupuesto.Dat", " \r\n");
    EXPECT_FALSE(LeerPresupuesto(dir));
}
