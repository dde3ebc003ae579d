// El archivo de estado que un contador en marcha deja en la carpeta de datos
// para la ventana que encuentra la carpeta tomada.

#include "monitor/EstadoContador.h"

#include "CarpetaTemporal.h"

#include <gtest/gtest.h>

using namespace vorimesk;

namespace {

using ArchivoEstado = prueba::CarpetaTemporal;

TEST_F(ArchivoEstado, IdaYVueltaConValoresDeUnaLinea) {
    EstadoContador e;
    e.pid = 4321;
    e.hora = "2024-03-06 10:00:11";
    e.estado = 2;
    e.texto = "Conectado";
    e.conexion = "Mi\nproveedor=1"; // a line break would start a key of its own
    e.inicio = "2024-03-06 10:00:11";
    e.tarifa = "Metropolitana";
    e.descuento = "Ninguno";
    e.suceso = "Llamada iniciada con Mi proveedor.";
    GuardarEstadoContador(dir, e);
    const std::optional<EstadoContador> leido = CargarEstadoContador(dir);
    ASSERT_TRUE(leido.has_value());
    EstadoContador esperado = e;
    esperado.conexion = "Mi proveedor=1";
    EXPECT_EQ(*leido, esperado);

    // A newer meter may write keys this one does not know; bad numbers keep
    // the default.
    const EstadoContador raro = LeerEstadoContador("futuro=1\nsin igual\npid=12x\nestado=3\n");
    EXPECT_EQ(raro.pid, 0);
    EXPECT_EQ(raro.estado, 3);
    EXPECT_FALSE(CargarEstadoContador(dir / "no").has_value());
}

TEST(DescribirEstado, LlamadaEnCursoConSuTiempoHastaAhora) {
    EstadoContador e;
    e.texto = "Conectado";
    e.conexion = "Casa";
    e.inicio = "2024-03-06 10:00:11";
    e.tarifa = "Metropolitana";
    e.descuento = "BonoNet";
    e.hora = "2024-03-06 10:00:11";
    e.suceso = "Llamada iniciada con Casa.";
    EXPECT_EQ(DescribirEstadoContador(e, Fecha::Crear(2024, 3, 6, 11, 2, 16)),
              "Estado: Conectado (Casa).\n"
              "Llamada en curso desde 06/03/2024 10:00:11, dura 01:02:05 (tarifa Metropolitana, "
              "descuento BonoNet).\n"
              "Ultimo suceso (06/03/2024 10:00:11): Llamada iniciada con Casa.");
    EXPECT_EQ(DescribirEstadoContador(EstadoContador{}, Fecha()), "Estado: desconocido.");
}

} // namespace
