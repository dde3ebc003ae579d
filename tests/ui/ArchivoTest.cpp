// The archive wizard driven through its four actions on a real data folder.

#include "AnfitrionFalso.h"
#include "CarpetaTemporal.h"
#include "Controles.h"
#include "RespuestasDialogo.h"
#include "register/Copias.h"
#include "tariff/cBono.h"
#include "ui/ListaCarpetas.h"
#include "ui/Mensajes.h"
#include "ui/PanelLogo.h"
#include "ui/fArchivo.h"

#include <QApplication>
#include <QFocusEvent>
#include <algorithm>

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class ArchivoTest : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        fs::create_directory(dir / "Copias");
        registro = std::make_unique<Log>(dir);
        libro = std::make_unique<cLlamada>(dir);
        anfitrion = std::make_unique<prueba::AnfitrionFalso>(*registro, *libro, reloj.Hoy());
        bono.DiaFactura(15);
        bono.perFactura(1);
    }
    void TearDown() override {
        // Every box a test did not expect was closed and is counted here.
        EXPECT_EQ(respuestas.Vistas().size(), vistasEsperadas);
    }
    void Llamada(Log& r, int m, int d) {
        r.AñadirItem(Fecha::Crear(2026, m, d), Fecha::DesdeSegundos(72000), "00:10:00", "12.5", 1,
                     "Metropolitana", "Casa", "", 0, 100, 20);
    }
    std::unique_ptr<fArchivo> Abrir() {
        return std::make_unique<fArchivo>(*anfitrion, *registro, bono, reloj, dir);
    }
    // An archive made beforehand by another register, listed in the index.
    void CopiaPrevia(const std::string& nombre, int llamadas) {
        Log otro(dir);
        for (int i = 0; i < llamadas; ++i) {
            Llamada(otro, 1, 10 + i);
        }
        Copias c(dir / "Copias");
        c.CargarIndice();
        c.Archivar(otro, nombre, "Enero", Fecha::Crear(2026, 1, 1), Fecha::Crear(2026, 1, 31),
                   false);
        c.GuardarIndice();
    }
    static void ElegirArchivo(fArchivo& w, const QString& nombre) {
        const auto e = Control<QListWidget>(&w, "File1")->findItems(nombre, Qt::MatchExactly);
        ASSERT_EQ(e.size(), 1) << nombre.toStdString();
        Control<QListWidget>(&w, "File1")->setCurrentItem(e.front());
    }
    std::string Indice() { return Leer(dir / "Copias" / "Index.dat"); }
    static int Lineas(const std::string& texto) {
        return static_cast<int>(std::count(texto.begin(), texto.end(), '\n'));
    }

    RelojFijo reloj{Fecha::Crear(2026, 3, 20, 10, 0, 0)};
    cBono bono{reloj};
    std::unique_ptr<Log> registro;
    std::unique_ptr<cLlamada> libro;
    std::unique_ptr<prueba::AnfitrionFalso> anfitrion;
    prueba::RespuestasDialogo respuestas;
    std::size_t vistasEsperadas = 0;
};

} // namespace

TEST_F(ArchivoTest, SiguienteEsperaAQueSeElijaUnaAccion) {
    auto w = Abrir();
    EXPECT_FALSE(Control<QPushButton>(w.get(), "cmdSiguiente")->isEnabled());
    // Focus on the list marks its first row current, which is no choice.
    QFocusEvent foco(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(Control<QListWidget>(w.get(), "lAccion")->viewport(), &foco);
    QApplication::sendEvent(Control<QListWidget>(w.get(), "lAccion"), &foco);
    EXPECT_EQ(Control<QListWidget>(w.get(), "lAccion")->currentRow(), 0);
    EXPECT_FALSE(Control<QPushButton>(w.get(), "cmdSiguiente")->isEnabled());
    w->Siguiente();
    EXPECT_EQ(Control<PanelLogo>(w.get(), "picLogo")->Logo().Caption(), "Paso 1");
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(2);
    EXPECT_TRUE(Control<QPushButton>(w.get(), "cmdSiguiente")->isEnabled());
    EXPECT_EQ(w->Pasos().Accion(), PasosArchivo::kVer);
}

TEST_F(ArchivoTest, ArchivarBorrandoSacaLasLlamadasYRellenaLaRejilla) {
    Llamada(*registro, 1, 5);
    Llamada(*registro, 2, 1);
    Llamada(*registro, 2, 2);
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(0);
    w->Siguiente();
    w->Siguiente();
    EXPECT_EQ(Control<QLineEdit>(w.get(), "txtNombre")->text(), "Copia000.CPR");
    Control<QLineEdit>(w.get(), "txtDescripcion")->setText("Invierno");
    w->Siguiente();
    Control<QPushButton>(w.get(), "cmdFinalizar")->click();

    EXPECT_EQ(w->result(), QDialog::Accepted);
    EXPECT_EQ(registro->Count(), 0);
    EXPECT_EQ(Lineas(Leer(dir / "Copias" / "Copia000.CPR")), 3);
    EXPECT_EQ(Indice(), "\"Copia000.CPR\"\r\n\"Invierno\"\r\n");
    EXPECT_EQ(anfitrion->cambios, 1);
    // La rejilla va del primer dia que queda (hoy, vacio) a hoy.
    EXPECT_EQ(anfitrion->rellenos.at(0).desde, Fecha::Crear(2026, 3, 20));
    EXPECT_EQ(anfitrion->informes, std::vector<std::string>{"Se han archivado 3 llamadas en "
                                                            "\"Copia000.CPR\" y se han quitado "
                                                            "del registro."});
}

TEST_F(ArchivoTest, ArchivarHastaElPeriodoCerradoYConservar) {
    Llamada(*registro, 2, 1);
    Llamada(*registro, 3, 17);
    auto w = Abrir();
    EXPECT_EQ(Control<QLabel>(w.get(), "lHasta")->text(), "20/03/2026");
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(0);
    w->Siguiente();
    Control<QRadioButton>(w.get(), "Option7")
        ->setChecked(true); // par bimensual, dia 15: el periodo en curso empieza el 16/02
    EXPECT_EQ(Control<QLabel>(w.get(), "lHasta")->text(), "15/02/2026");
    w->Siguiente();
    w->Siguiente();
    Control<QRadioButton>(w.get(), "Option2")->setChecked(true);
    w->Finalizar();
    EXPECT_EQ(Lineas(Leer(dir / "Copias" / "Copia000.CPR")), 1);
    EXPECT_EQ(registro->Count(), 2);
    EXPECT_EQ(anfitrion->cambios, 0);
}

TEST_F(ArchivoTest, RecuperarGuardandoAntesYCancelarDespues) {
    Llamada(*registro, 3, 1);
    Llamada(*registro, 3, 2);
    CopiaPrevia("Copia000.CPR", 1);
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(1);
    w->Siguiente();
    w->Siguiente();
    EXPECT_EQ(Control<QLineEdit>(w.get(), "txtNombre")->text(), "Copia001.CPR");
    Control<QLineEdit>(w.get(), "txtDescripcion")->setText("Marzo");
    w->Siguiente(); // guarda las llamadas actuales ya aqui
    EXPECT_EQ(Lineas(Leer(dir / "Copias" / "Copia001.CPR")), 2);
    ElegirArchivo(*w, "Copia000.CPR");
    EXPECT_EQ(Control<QLineEdit>(w.get(), "txtDescripcion2")->text(), "Enero");
    Control<QPushButton>(w.get(), "cmdSalir")->click();

    EXPECT_EQ(registro->Count(), 2);
    EXPECT_EQ(anfitrion->cambios, 0);
    EXPECT_EQ(Indice(), "\"Copia000.CPR\"\r\n\"Enero\"\r\n\"Copia001.CPR\"\r\n\"Marzo\"\r\n");
}

TEST_F(ArchivoTest, RecuperarGuardandoAntesSustituyeElRegistroPorLaCopia) {
    Llamada(*registro, 3, 1);
    Llamada(*registro, 3, 2);
    CopiaPrevia("Copia000.CPR", 2); // 10 and 11 January
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(1);
    w->Siguiente();
    EXPECT_TRUE(Control<QRadioButton>(w.get(), "Option4")->isChecked());
    w->Siguiente();
    Control<QLineEdit>(w.get(), "txtDescripcion")->setText("Marzo");
    w->Siguiente();
    ElegirArchivo(*w, "Copia000.CPR");
    Control<QPushButton>(w.get(), "cmdFinalizar")->click();
    EXPECT_EQ(w->result(), QDialog::Accepted);

    // Only the restored calls, in date order; the ones there before are in
    // the archive made on the way.
    ASSERT_EQ(registro->Count(), 2);
    EXPECT_EQ(registro->Dia(0), Fecha::Crear(2026, 1, 10));
    EXPECT_EQ(registro->Dia(1), Fecha::Crear(2026, 1, 11));
    EXPECT_EQ(Lineas(Leer(dir / "Copias" / "Copia001.CPR")), 2);
    EXPECT_EQ(anfitrion->cambios, 1);
}

TEST_F(ArchivoTest, RecuperarSustituyendoDejaSoloLaCopia) {
    Llamada(*registro, 3, 1);
    CopiaPrevia("Copia000.CPR", 2);
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(1);
    w->Siguiente();
    Control<QRadioButton>(w.get(), "Option3")->setChecked(true);
    w->Siguiente();
    ElegirArchivo(*w, "Copia000.CPR");
    emit Control<QListWidget>(w.get(), "File1")
        ->itemDoubleClicked(
            Control<QListWidget>(w.get(), "File1")->currentItem()); // como "&Finalizar"
    EXPECT_EQ(w->result(), QDialog::Accepted);
    EXPECT_EQ(registro->Count(), 2);
    EXPECT_EQ(registro->Dia(0), Fecha::Crear(2026, 1, 10));
    EXPECT_EQ(anfitrion->cambios, 1);
    EXPECT_FALSE(fs::exists(dir / "Copias" / "Copia001.CPR"));
    // The grid shows every call, January's included, and the user is told.
    EXPECT_EQ(anfitrion->Listadas(), (std::vector<int>{0, 1}));
    EXPECT_EQ(anfitrion->informes,
              std::vector<std::string>{"Se han recuperado 2 llamadas de \"Copia000.CPR\". El "
                                       "registro se muestra entero."});
}

TEST_F(ArchivoTest, VerNoTocaElRegistro) {
    Llamada(*registro, 3, 1);
    CopiaPrevia("Copia000.CPR", 3);
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(2);
    w->Siguiente();
    ElegirArchivo(*w, "Copia000.CPR");
    w->Siguiente();
    ASSERT_EQ(Control<QTableWidget>(w.get(), "Grid1")->rowCount(), 3);
    EXPECT_EQ(Control<QTableWidget>(w.get(), "Grid1")->item(0, 3)->text(), "12,50");
    EXPECT_EQ(Control<QLabel>(w.get(), "lPeriodo")->text(), "10/01/2026 - 12/01/2026");
    // Atras y otra vez adelante: la lista no se duplica.
    w->Atras();
    w->Siguiente();
    EXPECT_EQ(Control<QTableWidget>(w.get(), "Grid1")->rowCount(), 3);
    w->Finalizar();
    EXPECT_EQ(registro->Count(), 1);
    EXPECT_EQ(anfitrion->cambios, 0);
}

TEST_F(ArchivoTest, BorrarPideSiYDejaElIndice) {
    CopiaPrevia("Copia000.CPR", 1);
    for (bool cancelar : {true, false}) {
        auto w = Abrir();
        Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(3);
        w->Siguiente();
        ElegirArchivo(*w, "Copia000.CPR");
        w->Siguiente();
        EXPECT_TRUE(Control<QRadioButton>(w.get(), "Option6")->isChecked());
        EXPECT_EQ(Control<QLabel>(w.get(), "lConfirmar")->text(),
                  "Se borrara definitivamente el archivo \"Copia000.CPR\" de su disco duro. "
                  "¿Desea continuar?:");
        w->Finalizar(); // con "&No" no termina
        EXPECT_TRUE(fs::exists(dir / "Copias" / "Copia000.CPR"));
        Control<QRadioButton>(w.get(), "Option5")->setChecked(true);
        (cancelar ? Control<QPushButton>(w.get(), "cmdSalir")
                  : Control<QPushButton>(w.get(), "cmdFinalizar"))
            ->click();
    }
    EXPECT_FALSE(fs::exists(dir / "Copias" / "Copia000.CPR"));
    EXPECT_EQ(Lineas(Indice()), 2); // el nombre sigue en el indice
    EXPECT_EQ(anfitrion->informes,
              std::vector<std::string>{"Se ha borrado el archivo \"Copia000.CPR\" del disco."});
}

TEST_F(ArchivoTest, ArchivoDanadoAvisaYNoAvanza) {
    Escribir(dir / "Copias" / "Roto.CPR", "esto no es una llamada\r\n");
    auto w = Abrir();
    Control<QListWidget>(w.get(), "lAccion")->setCurrentRow(2);
    w->Siguiente();
    ElegirArchivo(*w, "Roto.CPR");
    w->Siguiente();
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
    vistasEsperadas = 1;
    EXPECT_EQ(Control<PanelLogo>(w.get(), "picLogo")->Logo().Caption(), "Paso 2 de 3");
}
