// El monitor sobre el registro de verdad: el log del modem como lo escribe el
// gancho de pppd, la sesion emparejada con su conexion pendiente y la llamada
// guardada en RegDat.log.

#include "monitor/RegistroLog.h"

#include "Banco.h"
#include "platform/LineasModemLog.h"

#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

constexpr int kConectado = LecturaConexion::kConectado;
constexpr int kDesconectado = LecturaConexion::kDesconectado;

class ConRegistro : public CarpetaTemporal {
protected:
    void SetUp() override {
        EscribirLibro(dir);
        log = std::make_unique<Log>(dir);
        log->NombreLog((dir / "modemlog.txt").string());
        log->CargarLog();
        registro = std::make_unique<RegistroLog>(*log);
        ajustes.EntradasConexion = {{"Casa", "Cara", "Ninguno"}};
        monitor = std::make_unique<MonitorConexion>(reloj, ajustes, bono, pendientes, *registro,
                                                    marcador, dir);
    }
    void Ticks(int n, int estado) {
        for (int i = 0; i < n; ++i) {
            reloj.Avanzar(1);
            monitor->Tick({1, estado, "Casa"});
        }
    }
    void Subida(Fecha cuando) {
        AnexarModemLog(dir / "modemlog.txt",
                       BloqueSubida(cuando, {"ppp0", "/dev/ttyS0", "Casa", ""}));
    }
    void Bajada(Fecha cuando) {
        AnexarModemLog(dir / "modemlog.txt", BloqueBajada(cuando, {2048, 1024}));
    }

    RelojFijo reloj{Miercoles(10, 0, 0)};
    Settings ajustes;
    cBono bono{reloj};
    colConexion pendientes;
    MarcadorFalso marcador;
    std::unique_ptr<Log> log;
    std::unique_ptr<RegistroLog> registro;
    std::unique_ptr<MonitorConexion> monitor;
};

TEST_F(ConRegistro, LaSesionDelGanchoLlegaAlRegistroConLaTarifaDeLaEntrada) {
    EXPECT_FALSE(registro->ExisteModemLog());
    Ticks(1, kConectado); // el enlace sube antes de que el gancho escriba
    ASSERT_EQ(pendientes.Count(), 1);
    EXPECT_EQ(pendientes.Item(1).fecha(), kSinSesion);
    Subida(Miercoles(10, 0, 2));
    Ticks(59, kConectado);
    EXPECT_EQ(pendientes.Item(1).fecha(), Miercoles(10, 0, 2));

    // pppd baja la interfaz antes de escribir las lineas de cierre.
    Ticks(1, kDesconectado);
    EXPECT_EQ(log->Count(), 0);
    EXPECT_TRUE(monitor->EsperandoLog());
    Bajada(Miercoles(10, 1, 2));
    Ticks(1, kDesconectado);

    // Guardado en el acto: otro Log lo lee del archivo.
    Log otro(dir);
    otro.CargarLog();
    ASSERT_EQ(otro.Count(), 1);
    EXPECT_EQ(std::tuple(otro.Tarifa(0), otro.Conexion(0), otro.Duracion(0), otro.importe(0)),
              std::tuple("Cara", "Casa", "00:01:00", "100"));
    EXPECT_FALSE(registro->ExisteModemLog());
    EXPECT_EQ(pendientes.Count(), 0);
}

} // namespace
