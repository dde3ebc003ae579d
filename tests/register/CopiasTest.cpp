#include "register/Copias.h"

#include "CarpetaTemporal.h"
#include "core/ErrorFormato.h"
#include "core/Errores.h"

#include <gtest/gtest.h>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class ArchivoCopias : public CarpetaTemporal {
protected:
    void SetUp() override { fs::create_directory(Carpeta()); }
    fs::path Carpeta() const { return dir / "Copias"; }

    // One call a day from the given day on, at 10:00 plus i minutes.
    static void Llenar(Log& log, Fecha primerDia, int dias) {
        for (int i = 0; i < dias; ++i) {
            log.AñadirItem(primerDia.MasDias(i), Fecha::DesdeSegundos(36000 + 60 * i), "00:02:00",
                           std::to_string(10 + i), 0, "Metropolitana", "Casa", "", 0, i, 2 * i);
        }
    }
};

} // namespace

TEST_F(ArchivoCopias, ArchivarYRecuperarDevuelvenLasMismasLlamadas) {
    Log log(dir);
    log.AñadirItem(Fecha::Crear(1999, 10, 10), Fecha::DesdeSegundos(14 * 3600 + 5 * 60), "00:05:00",
                   "125.5", 0, "Metropolitana", "Casa", "", 0, 12, 3);
    log.AñadirItem(Fecha::Crear(2024, 2, 29), Fecha(), "1:30", "1E-07", 255, "Telefónica",
                   "Ñandú, S.A.", "xyz", -1, -5, 2147483647);
    Copias copias(Carpeta());
    ASSERT_TRUE(copias.Archivar(log, "Copia000.CPR", "Primera copia", Fecha::Crear(1999, 1, 1),
                                Fecha::Crear(2024, 12, 31), false));
    EXPECT_EQ(log.Count(), 2); // kept
    EXPECT_EQ(Leer(Carpeta() / "Copia000.CPR"),
              "#1999-10-10#,#14:05:00#,\"00:05:00\",\"125.5\",0,\"Metropolitana\",\"Casa\",\"\","
              "#FALSE#,12,3\r\n"
              "#2024-02-29#,#00:00:00#,\"1:30    \",\"1E-07\",255,\"Telef\xF3nica\",\"\xD1"
              "and\xFA, S.A.\",\"xyz\",#TRUE#,-5,2147483647\r\n");
    EXPECT_EQ(fs::status(Carpeta() / "Copia000.CPR").permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);

    Log vuelta(dir);
    copias.Recuperar("Copia000.CPR", vuelta);
    ASSERT_EQ(vuelta.Count(), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(vuelta.Registro(i), log.Registro(i)) << i;
    }
}

TEST_F(ArchivoCopias, ElIntervaloIncluyeSusExtremosYBorraLasConsecutivas) {
    Log log(dir);
    Llenar(log, Fecha::Crear(2024, 3, 9), 6); // 9, 10, 11, 12, 13, 14 March
    Copias copias(Carpeta());
    ASSERT_TRUE(copias.Archivar(log, "c.CPR", "marzo", Fecha::Crear(2024, 3, 10),
                                Fecha::Crear(2024, 3, 13), true));
    ASSERT_EQ(log.Count(), 2);
    EXPECT_EQ(log.Dia(1), Fecha::Crear(2024, 3, 14));
    Log archivadas(dir);
    copias.Recuperar("c.CPR", archivadas);
    ASSERT_EQ(archivadas.Count(), 4);
    EXPECT_EQ(archivadas.Dia(0), Fecha::Crear(2024, 3, 10));
    // An interval before every call writes an empty archive, yet it is listed.
    ASSERT_TRUE(copias.Archivar(log, "vacia.CPR", "nada", Fecha::Crear(2000, 1, 1),
                                Fecha::Crear(2000, 1, 2), true));
    EXPECT_EQ(Leer(Carpeta() / "vacia.CPR"), "");
    EXPECT_EQ(log.Count(), 2);
    EXPECT_EQ(copias.Indice().Count(), 2);
}

TEST_F(ArchivoCopias, UnNombreExistentePasaASuCopiaBak) {
    Escribir(Carpeta() / "Copia003.CPR", "contenido anterior\r\n");
    Log vacio(dir);
    Copias copias(Carpeta());
    // An empty register writes nothing and lists nothing, but the old
    // archive of that name still goes to its backup.
    EXPECT_FALSE(
        copias.Archivar(vacio, "Copia003.CPR", "x", Fecha(), Fecha::Crear(3000, 1, 1), true));
    EXPECT_FALSE(Existe(Carpeta() / "Copia003.CPR"));
    EXPECT_EQ(Leer(Carpeta() / "Copia003.bak"), "contenido anterior\r\n");
    EXPECT_EQ(copias.Indice().Count(), 0);

    Log log(dir);
    Llenar(log, Fecha::Crear(2024, 1, 1), 1);
    copias.Archivar(log, "Copia003.CPR", "uno", Fecha(), Fecha::Crear(3000, 1, 1), false);
    const std::string primera = Leer(Carpeta() / "Copia003.CPR");
    Llenar(log, Fecha::Crear(2024, 1, 2), 1);
    copias.Archivar(log, "Copia003.CPR", "dos", Fecha(), Fecha::Crear(3000, 1, 1), false);
    EXPECT_EQ(Leer(Carpeta() / "Copia003.bak"), primera);
    EXPECT_EQ(copias.Descripcion("Copia003.CPR"), "dos"); // the last entry wins
}

TEST_F(ArchivoCopias, IndiceNombresPorDefectoYDescripciones) {
    Copias copias(Carpeta());
    copias.CargarIndice(); // no file: no archives
    EXPECT_EQ(copias.NombrePorDefecto(), "Copia000.CPR");
    for (int i = 0; i < 10; ++i) {
        copias.Indice().Añadir("Copia00" + std::to_string(i) + ".CPR",
                               "Copia " + std::to_string(i));
    }
    EXPECT_EQ(copias.NombrePorDefecto(), "Copia010.CPR");
    copias.Indice().Añadir("copia001.cpr", "minusculas");
    EXPECT_EQ(copias.Descripcion("Copia001.CPR"), "Copia 1");
    EXPECT_EQ(copias.Descripcion("Copia999.CPR"), std::nullopt);
    copias.GuardarIndice();
    EXPECT_EQ(Leer(Carpeta() / "Index.dat").substr(0, 31),
              "\"Copia000.CPR\"\r\n\"Copia 0\"\r\n\"Cop");

    Copias otra(Carpeta());
    otra.CargarIndice();
    EXPECT_EQ(otra.Indice().Entradas(), copias.Indice().Entradas());
    EXPECT_EQ(otra.NombrePorDefecto(), "Copia011.CPR");

    // A deleted archive keeps its entry, and the numbering goes on.
    Escribir(Carpeta() / "Copia001.CPR", "");
    Copias::Borrar(Carpeta(), "Copia001.CPR");
    EXPECT_THROW(Copias::Borrar(Carpeta(), "Copia001.CPR"), ErrorArchivo);
    EXPECT_EQ(otra.Descripcion("Copia001.CPR"), "Copia 1");

    // A description with a quote in it is written as typed and read back cut
    // there; the entries behind it are not disturbed.
    Copias comillas(dir);
    comillas.Indice().Añadir("a.CPR", "dijo \"hola\", adios");
    comillas.Indice().Añadir("b.CPR", "segunda");
    comillas.GuardarIndice();
    comillas.CargarIndice();
    ASSERT_EQ(comillas.Indice().Count(), 2);
    EXPECT_EQ(comillas.Descripcion("a.CPR"), "dijo ");
    EXPECT_EQ(comillas.Descripcion("b.CPR"), "segunda");

    // An index cut in the middle of an entry is refused and changes nothing.
    Escribir(Carpeta() / "Index.dat", "\"Copia000.CPR\"\r\n\"uno\"\r\n\"Copia001.CPR\"\r\n");
    EXPECT_THROW(otra.CargarIndice(), ErrorFormato);
    EXPECT_EQ(otra.Indice().Count(), 11);
}

TEST_F(ArchivoCopias, RecuperarSustituyeEnOrdenDeFechaYUnaCopiaDañadaNoCambiaNada) {
    Log log(dir);
    Llenar(log, Fecha::Crear(2024, 1, 1), 2);
    // Written out of order (a register once merged by hand): the calls come
    // back by date and hour, ties in file order.
    Escribir(Carpeta() / "buena.CPR",
             "#2023-05-02#,#08:00:00#,\"00:01:00\",\"1\",1,\"Nacional\",\"Trabajo\",\"\","
             "#FALSE#,0,0\n\n   \n"
             "#2023-05-01#,#23:00:00#,\"00:10:00\",\"7,5\",-1,\"Nacional\",\"Trabajo\",\"\","
             "#TRUE#,1,2\n"
             "#2023-05-01#,#23:00:00#,\"00:10:00\",\"8\",-1,\"Nacional\",\"Trabajo\",\"\","
             "#TRUE#,1,2\n"
             "#2023-05-01#,#09:00:00#,\"00:10:00\",\"2\",0,\"Nacional\",\"Trabajo\",\"\","
             "#FALSE#,1,2");
    Copias copias(Carpeta());
    copias.Recuperar("buena.CPR", log);
    // The register is emptied first: nothing of what it held is merged.
    ASSERT_EQ(log.Count(), 4);
    EXPECT_EQ(std::tuple(log.Dia(1), log.Tipo(1), log.Bono(1), log.importe(1)),
              std::tuple(Fecha::Crear(2023, 5, 1), 255, -1, "7,5"));
    EXPECT_EQ(log.importe(0), "2");
    EXPECT_EQ(log.importe(2), "8");
    EXPECT_EQ(log.Dia(3), Fecha::Crear(2023, 5, 2));

    const char* dañadas[] = {
        "#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",0,\"N\",\"T\",\"\",#TRUE#,1\r\n",
        "#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",256,\"N\",\"T\",\"\",#TRUE#,1,2\r\n",
        "#2023-02-30#,#23:00:00#,\"00:10:00\",\"1\",0,\"N\",\"T\",\"\",#TRUE#,1,2\r\n",
        "#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",0,\"N\",\"T\",\"\",-1,1,2\r\n",
        "#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",0,\"N\",\"T\",\"\",#TRUE#,1,2147483648\r\n",
        "#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",0,\"N\",\"T\",\"sin cierre,#TRUE#,1,2\r\n",
    };
    for (const char* linea : dañadas) {
        Escribir(Carpeta() / "mala.CPR", std::string("#2023-05-01#,#23:00:00#,\"00:10:00\",\"1\",0,"
                                                     "\"N\",\"T\",\"\",#TRUE#,1,2\r\n") +
                                             linea);
        try {
            copias.Recuperar("mala.CPR", log);
            ADD_FAILURE() << linea;
        } catch (const ErrorFormato& e) {
            EXPECT_EQ(e.Linea(), 2) << linea;
            EXPECT_NE(std::string(e.what()).find("mala.CPR"), std::string::npos) << e.what();
        }
        EXPECT_EQ(log.Count(), 4);
    }
    EXPECT_THROW(copias.Recuperar("no-existe.CPR", log), ErrorArchivo);
}
