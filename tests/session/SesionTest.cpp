// La sesion de una carpeta de datos: lo que lee al arrancar y cuando escribe
// cada archivo (registro, opciones con sus bonos y conexiones pendientes).

#include "session/Sesion.h"

#include "CarpetaTemporal.h"
#include "RegistroAMano.h"
#include "TarifaAMano.h"
#include "settings/ArchivoVariables.h"

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class SesionCarpeta : public CarpetaTemporal {
protected:
    std::filesystem::path Ajustes() const { return dir / "Varibles.Dat"; }
    std::filesystem::path Registro() const { return dir / "RegDat.log"; }
    void EscribirAjustes(const Settings& s) const { GuardarVariables(Ajustes(), s); }
    static Settings ConUnBono() {
        Settings s = ValoresPorDefecto();
        s.Bonos.push_back({1, Fecha::Crear(2023, 3, 1), {}, "12:00:00"});
        s.Conexiones.push_back({"Casa", "Ninguno", Fecha::Crear(2023, 3, 2), "Metropolitana"});
        s.ColorSegunTarifa = true;
        return s;
    }

    RelojFijo reloj{Fecha::Crear(2023, 3, 10, 12)};
};

TEST_F(SesionCarpeta, CargaAjustesBonosYPendientesSinEscribirNada) {
    EscribirAjustes(ConUnBono());
    const std::string antes = Leer(Ajustes());
    Sesion s(dir, reloj);
    const Sesion::LecturaAjustes l = s.LeerAjustes();
    EXPECT_TRUE(l.dañado.empty());
    EXPECT_TRUE(l.listasIlegibles.empty());
    EXPECT_TRUE(s.Ajustes().ColorSegunTarifa);
    ASSERT_EQ(s.Bono().Count(), 1);
    EXPECT_EQ(s.Bono().tiempo(0), "12:00:00");
    EXPECT_EQ(s.Pendientes().Count(), 1);
    s.CargarRegistro();
    EXPECT_TRUE(s.RegistroLeido());
    EXPECT_EQ(Leer(Ajustes()), antes);
    EXPECT_EQ(Leer(Registro()), ""); // a missing register is created empty
}

TEST_F(SesionCarpeta, AlSalirEscribeLasOpcionesConBonoYPendientesPeroNoUnRegistroSinCambios) {
    const std::string llamada = RegistroAMano({});
    Escribir(Registro(), llamada);
    Sesion s(dir, reloj);
    s.LeerAjustes(); // no file: the defaults
    s.CargarRegistro();
    s.Bono().DarAlta(2);
    s.Pendientes().Add(Fecha::Crear(2023, 3, 9), "Metropolitana", "Ninguno", "Trabajo");
    s.Guardar();
    const Settings escritos = LeerVariables(Ajustes()).valores;
    ASSERT_EQ(escritos.Bonos.size(), 1u);
    EXPECT_EQ(escritos.Bonos[0].Tipo, 2);
    ASSERT_EQ(escritos.Conexiones.size(), 1u);
    EXPECT_EQ(escritos.Conexiones[0].Conexion, "Trabajo");
    EXPECT_EQ(Leer(Registro()), llamada);
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
}

TEST_F(SesionCarpeta, ElRegistroSeGuardaEnCuantoCambia) {
    const std::string llamada = RegistroAMano({});
    Escribir(Registro(), llamada);
    {
        // The archive tools emptied it: written at once, the old file kept aside.
        Sesion s(dir, reloj);
        s.CargarRegistro();
        s.Registro().Vaciar();
        s.RegistroCambiado();
        EXPECT_FALSE(Existe(Registro()));
        EXPECT_EQ(Leer(dir / "RegDat.bak"), llamada);
    }
    {
        // A call finished: the monitor's saving is the session's.
        Escribir(Registro(), llamada + llamada);
        Sesion s(dir, reloj);
        s.CargarRegistro();
        s.Registro().BorrarItem(0);
        s.RegistroDelMonitor().SalvarLog();
        EXPECT_EQ(Leer(Registro()), llamada);
    }
}

TEST_F(SesionCarpeta, UnRegistroIlegibleNoSeSobrescribe) {
    std::filesystem::create_directories(Registro()); // cannot be read as a file
    Sesion s(dir, reloj);
    EXPECT_THROW(s.CargarRegistro(), Error);
    EXPECT_FALSE(s.RegistroLeido());
    s.RegistroCambiado();
    s.Recalcular();
    s.Guardar();
    EXPECT_TRUE(std::filesystem::is_directory(Registro()));
    EXPECT_FALSE(Existe(dir / "RegDat.bak"));
    EXPECT_TRUE(Existe(Ajustes())); // the settings are still saved
}

TEST_F(SesionCarpeta, UnasOpcionesDañadasSeAvisanYSeApartanAlGuardar) {
    const std::string dañado = "#TRUE#\r\nesto no es un ajuste\r\n";
    Escribir(Ajustes(), dañado);
    Sesion s(dir, reloj);
    const Sesion::LecturaAjustes l = s.LeerAjustes();
    EXPECT_FALSE(l.dañado.empty());
    EXPECT_TRUE(s.Ajustes().CargarAlIniciar); // the defaults
    s.Guardar();
    EXPECT_EQ(Leer(dir / "Varibles.Dat.dañado"), dañado);
    EXPECT_TRUE(LeerVariables(Ajustes()).valores.CargarAlIniciar);

    // The commands refuse it before anything is changed.
    Escribir(Ajustes(), dañado);
    Sesion orden(dir, reloj);
    try {
        orden.LeerAjustesEstrictos();
        ADD_FAILURE() << "se leyo un archivo dañado";
    } catch (const ErrorAjustes& e) {
        EXPECT_EQ(e.Ruta(), Ajustes());
        EXPECT_EQ(e.Motivo().rfind("linea 2, ", 0), 0u) << e.Motivo();
    }
    EXPECT_FALSE(orden.GuardarBonoSiCambio());
    EXPECT_EQ(Leer(Ajustes()), dañado);
}

TEST_F(SesionCarpeta, BonosIlegiblesDejanElArchivoComoEstaba) {
    Settings s = ConUnBono();
    s.Bonos[0].Tipo = 7; // no such kind
    EscribirAjustes(s);
    const std::string antes = Leer(Ajustes());
    Sesion sesion(dir, reloj);
    EXPECT_FALSE(sesion.LeerAjustes().listasIlegibles.empty());
    EXPECT_EQ(sesion.Bono().Count(), 0);
    sesion.Bono().DarAlta(0);
    sesion.Guardar();
    EXPECT_EQ(Leer(Ajustes()), antes);

    Sesion orden(dir, reloj);
    EXPECT_THROW(orden.LeerAjustesEstrictos(), ErrorAjustes);
}

TEST_F(SesionCarpeta, UnaOrdenSoloReescribeUnBonoQueCambio) {
    EscribirAjustes(ConUnBono());
    const std::string antes = Leer(Ajustes());
    Sesion s(dir, reloj);
    s.LeerAjustesEstrictos();
    EXPECT_FALSE(s.GuardarBonoSiCambio());
    EXPECT_EQ(Leer(Ajustes()), antes);
    s.Bono().DarAlta(3);
    s.Pendientes().Add(Fecha::Crear(2023, 3, 9), "Metropolitana", "Ninguno", "Trabajo");
    EXPECT_TRUE(s.GuardarBonoSiCambio());
    const Settings escritos = LeerVariables(Ajustes()).valores;
    EXPECT_EQ(escritos.Bonos.size(), 2u);
    // Everything else as read: the pending list was not the command's to save.
    EXPECT_EQ(escritos.Conexiones, ConUnBono().Conexiones);
    EXPECT_TRUE(escritos.ColorSegunTarifa);
}

TEST_F(SesionCarpeta, ElPeriodoEsElQueContieneHoy) {
    Settings a = ValoresPorDefecto();
    a.DiaFactura = 5;
    EscribirAjustes(a);
    CamposAMano enero;
    enero.dia = 44946.0; // 20/01/2023
    Escribir(Registro(), RegistroAMano(enero));
    Sesion s(dir, reloj);
    s.LeerAjustes();
    s.CargarRegistro();
    s.CalcularPeriodo();
    // After the billing day the first call's period runs to the 1st of the
    // next month and the later ones from the 2nd; today is 10 March.
    EXPECT_EQ(s.Datos().InicioPeriodo, Fecha::Crear(2023, 3, 2));
    EXPECT_EQ(s.Datos().FinPeriodo, Fecha::Crear(2023, 3, 10));
}

} // namespace

TEST_F(SesionCarpeta, ElLibroQueGuardaElEditorCuentaEnElPrecioSiguiente) {
    const auto guardarLibro = [this](const std::string& normal) {
        cLlamada libro(dir);
        const Dia dia = Laborable(normal, "3");
        PonerTarifa(libro, "Metropolitana", "0", "00:00", dia, dia, dia);
        libro.Save();
    };
    Escribir(Registro(), RegistroAMano({})); // Monday 12:00, 00:05:00, "Metropolitana"
    guardarLibro("6");
    Sesion s(dir, reloj);
    s.CargarRegistro();
    s.Recalcular();
    EXPECT_EQ(s.Registro().importe(0), "30"); // five minutes at 6
    guardarLibro("9");                        // a file of the very same size
    s.Recalcular();
    EXPECT_EQ(s.Registro().importe(0), "45");
}
