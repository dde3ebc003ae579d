#include "tariff/LibroEditable.h"

#include "CarpetaTemporal.h"
#include "TarifaAMano.h"
#include "core/Archivo.h"
#include "core/CampoFijo.h"
#include "core/Errores.h"
#include "tariff/LibroPorDefecto.h"

using namespace vorimesk;
using namespace prueba;
namespace fs = std::filesystem;

namespace {

using Edicion = CarpetaTemporal;

std::vector<std::string> Nombres(const LibroEditable& l) {
    std::vector<std::string> n;
    for (int i = 0; i < l.Count(); ++i) {
        n.push_back(l.Tarifa(i).Nombre());
    }
    return n;
}

std::string Guardar(const LibroEditable& editado, const fs::path& dir) {
    cLlamada libro(dir);
    editado.AplicarA(libro);
    libro.Save();
    return LeerArchivo(dir / "Tarifas.Dat");
}

} // namespace

TEST_F(Edicion, LoQueNoSeTocaConservaSusBytes) {
    // Un registro como los que dejan otros editores: una hora con parte de
    // fecha, otra que no es un numero redondo de segundos y relleno con ceros.
    cLlamada original(dir);
    RellenarLibroPorDefecto(original);
    std::string bytes(original.Tarifa(2).Bytes());
    EscribirDoble(bytes.data() + 37, 36526.3333333333); // Semana.Normal.Inicio, 01/01/2000 08:00
    EscribirDoble(bytes.data() + 45, 0.74999999);       // Semana.Normal.Fin
    std::fill(bytes.begin() + 10, bytes.begin() + 15, '\0');
    original.Tarifa(2, RegistroTarifa::DesdeBytes(bytes));
    original.Save();
    const std::string antes = LeerArchivo(dir / "Tarifas.Dat");

    cLlamada leido(dir);
    leido.Load();
    LibroEditable e = LibroEditable::DesdeLibro(leido);
    EXPECT_EQ(e.Tarifa(2).Valor("Semana.Normal.Inicio"), "08:00:00");
    e.Tarifa(2).Valor("Semana.Normal.Inicio", "8:0"); // la misma hora escrita de otro modo
    EXPECT_EQ(Guardar(e, dir), antes);

    // Cambiar un campo cambia solo sus bytes.
    e.Tarifa(2).Valor("Semana.Reducida.Importe", "6");
    const std::string despues = Guardar(e, dir);
    ASSERT_EQ(despues.size(), antes.size());
    for (std::size_t b = 0; b < antes.size(); ++b) {
        const bool campo = b >= 2 * 168 + 53 && b < 2 * 168 + 60;
        EXPECT_EQ(antes[b] != despues[b], campo && antes[b] != despues[b]) << "byte " << b;
    }
    EXPECT_EQ(despues.substr(2 * 168 + 53, 7), "6      ");
}

TEST_F(Edicion, UnaTarifaNuevaEsLaQueSeEscribeAMano) {
    LibroEditable e;
    TarifaEditable& t = e.Tarifa(e.Añadir("  Mi operador "));
    t.Valor("Nombre", " Mi operador  ");
    t.Valor("Conexion.Importe", " 15 ");
    t.Valor("Conexion.Tiempo", TarifaEditable::TextoTiempoIncluido(2, 30));
    t.Valor("Sabado.Normal.Fin", "13:59:59");
    t.Valor("Sabado.Reducida.Inicio", "14:00:00");
    t.Valor("Semana.Normal.Importe", "3.1");

    cLlamada mano(dir);
    PonerTarifa(mano, "Mi operador", "15", "02:30:00", Laborable("3.1", "0"),
                {{"0", "08:00:00", "13:59:59"}, {"0", "14:00:00", "07:59:59"}},
                Laborable("0", "0"));
    std::string esperado;
    esperado += mano.Tarifa(0).Bytes();
    EXPECT_EQ(Guardar(e, dir), esperado);
    EXPECT_EQ(TarifaEditable::LeerTiempoIncluido("02:30:00"), std::make_pair(2, 30));
    EXPECT_EQ(TarifaEditable::TextoTiempoIncluido(30, 99), "23:59:00");
}

TEST_F(Edicion, AñadirCopiarMoverYEliminar) {
    LibroEditable e = LibroEditable::DeSerie();
    EXPECT_EQ(e.Copiar(3), 4);
    EXPECT_EQ(e.Copiar(3), 4);
    EXPECT_EQ(Nombres(e),
              (std::vector<std::string>{"Metropolitana", "BonoNet", "Provincial", "Interprovincial",
                                        "Interprovinci 3", "Interprovinci 2", "Infovia"}));
    EXPECT_EQ(e.Añadir(), 7);
    EXPECT_EQ(e.Añadir(), 8);
    EXPECT_EQ(e.Tarifa(8).Nombre(), "Nueva tarifa 2");
    EXPECT_EQ(e.Añadir(""), 9);
    EXPECT_EQ(e.Tarifa(9).Nombre(), "Tarifa");
    EXPECT_EQ(e.Mover(0, 9), 9);
    EXPECT_EQ(e.Tarifa(0).Nombre(), "BonoNet");
    e.Eliminar(9);
    e.Eliminar(0);
    EXPECT_EQ(e.Count(), 8);
    EXPECT_EQ(e.Tarifa(0).Nombre(), "Provincial");
    EXPECT_THROW(e.Eliminar(8), ErrorIndice);
    EXPECT_THROW(e.Mover(0, 8), ErrorIndice);
    EXPECT_THROW(e.Tarifa(0).Valor("Semana.Normal.Precio"), ErrorNoEncontrado);

    // Guardar el libro: la copia es la original con otro nombre.
    cLlamada libro(dir);
    e.AplicarA(libro);
    ASSERT_EQ(libro.Count(), 8);
    RegistroTarifa copia = libro.Tarifa(2);
    copia.Valor("Nombre", "Interprovincial");
    EXPECT_EQ(copia, libro.Tarifa(1));

    // A renamed tariff is its old name's one heir; the copies share theirs.
    EXPECT_TRUE(e.Renombradas().empty());
    e.Tarifa(0).Valor("Nombre", "Provincia B");
    e.Tarifa(1).Valor("Nombre", "Larga");
    EXPECT_EQ(e.Renombradas(),
              (std::vector<std::pair<std::string, std::string>>{{"Provincial", "Provincia B"}}));
}
