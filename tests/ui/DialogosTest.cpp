// The dialogs of the main window: bono, modem and programs, the programs'
// file filter, and the alert sound.

#include "CarpetaTemporal.h"
#include "Controles.h"
#include "RespuestasDialogo.h"
#include "ui/EditorTiempo.h"
#include "ui/FiltroProgramas.h"
#include "ui/SonidoAviso.h"
#include "ui/fBono.h"
#include "ui/fModem.h"
#include "ui/fProgramas.h"

#include <QFileDialog>
#include <filesystem>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

Fecha F(int a, int m, int d) {
    return Fecha::Crear(a, m, d);
}

} // namespace

TEST(DialogoBono, UnBonoNuevoIdaYVuelta) {
    BonoGuardado inicial;
    inicial.Alta = F(2026, 3, 20);
    fBono d(inicial, true, F(2026, 3, 20));
    EXPECT_FALSE(Control<QDateEdit>(&d, "fecBaja")->isEnabled());
    // The kind fills in its full time.
    Control<QComboBox>(&d, "cmbTipo")->setCurrentIndex(3);
    EXPECT_EQ(Control<EditorTiempo>(&d, "txtTiempo")->text(), "50:00:00");
    Control<QDateEdit>(&d, "fecAlta")->setDate(QDate(2026, 3, 1));
    Control<EditorTiempo>(&d, "txtTiempo")->setText("49:10:05");
    EXPECT_EQ(d.Resultado(), (BonoGuardado{3, F(2026, 3, 1), FechaVariante::Vacia(), "49:10:05"}));
    EXPECT_TRUE(d.Problema().isEmpty());

    // Giving it up starts on today.
    Control<QCheckBox>(&d, "chkBaja")->click();
    EXPECT_EQ(d.Resultado().Baja, FechaVariante::De(F(2026, 3, 20)));
}

TEST(DialogoBono, UnBonoExistenteConservaSuTipoYSuMarcaDeBaja) {
    const BonoGuardado nulo{1, F(2026, 1, 2), FechaVariante::Nula(), "12:00:00"};
    fBono d(nulo, false, F(2026, 3, 20));
    EXPECT_EQ(Control<QComboBox>(&d, "cmbTipo")->currentText(), "50DIA");
    EXPECT_EQ(d.Resultado(), nulo); // #NULL# survives an unchanged dialog
    Control<QCheckBox>(&d, "chkBaja")->click();
    Control<QCheckBox>(&d, "chkBaja")->click();
    EXPECT_EQ(d.Resultado().Baja, FechaVariante::Nula());

    const BonoGuardado dado{0, F(2026, 1, 2), FechaVariante::De(F(2026, 2, 1)), "03:00:00"};
    fBono e(dado, false, F(2026, 3, 20));
    EXPECT_EQ(Control<QDateEdit>(&e, "fecBaja")->date(), QDate(2026, 2, 1));
    Control<QCheckBox>(&e, "chkBaja")->click(); // taken back into use
    EXPECT_EQ(e.Resultado().Baja, FechaVariante::Vacia());
}

TEST(DialogoBono, ElTituloCabeEnLaVentana) {
    for (bool nuevo : {true, false}) {
        fBono d({}, nuevo, F(2026, 3, 20));
        d.show();
        EXPECT_GE(d.width(), AnchoTitulo(d)) << d.windowTitle().toStdString();
    }
}

TEST(DialogoBono, ValoresQueNoSeAceptan) {
    BonoGuardado inicial;
    inicial.Alta = F(2026, 3, 20);
    fBono d(inicial, true, F(2026, 3, 20));
    Control<EditorTiempo>(&d, "txtTiempo")->setText("10:00:01");
    EXPECT_FALSE(d.Problema().isEmpty());
    Control<EditorTiempo>(&d, "txtTiempo")->setText("9:5");
    EXPECT_FALSE(d.Problema().isEmpty());
    Control<EditorTiempo>(&d, "txtTiempo")->setText("09:59:00");
    Control<QCheckBox>(&d, "chkBaja")->click();
    Control<QDateEdit>(&d, "fecBaja")->setDate(QDate(2026, 3, 19));
    EXPECT_EQ(d.Problema(), "La fecha de baja no puede ser anterior a la de alta.");

    // "&Aceptar" tells the user and keeps the dialog open.
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    d.show();
    Control<QPushButton>(&d, "cmdAceptar")->click();
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_TRUE(d.isVisible());
    Control<QDateEdit>(&d, "fecBaja")->setDate(QDate(2026, 3, 21));
    Control<QPushButton>(&d, "cmdAceptar")->click();
    EXPECT_EQ(d.result(), QDialog::Accepted);
}

TEST(DialogoModem, EligeConAceptarOConDobleClic) {
    fModem d({"Interno", "USB", "Bluetooth"});
    Control<QListWidget>(&d, "List1")->setCurrentRow(2);
    emit Control<QListWidget>(&d, "List1")
        ->itemDoubleClicked(Control<QListWidget>(&d, "List1")->item(2));
    EXPECT_EQ(d.result(), QDialog::Accepted);
    EXPECT_EQ(d.Elegido(), 2);
}

TEST(DialogoProgramas, EditaLaListaYLaDevuelveAlCerrar) {
    std::vector<std::string> programas = {"/usr/bin/firefox", "/usr/bin/thunderbird"};
    {
        fProgramas d(programas);
        QString siguiente;
        d.ElegirArchivo = [&] { return siguiente; };
        Control<QPushButton>(&d, "cmdAñadir")->click(); // cancelled: nothing added
        siguiente = "/usr/bin/firefox";                 // duplicates are allowed
        Control<QPushButton>(&d, "cmdAñadir")->click();
        // Edits reach the list only when the dialog closes.
        EXPECT_EQ(programas.size(), 2u);
        Control<QListWidget>(&d, "listPro")->setCurrentRow(0);
        Control<QPushButton>(&d, "cmdBorrar")->click();
        Control<QListWidget>(&d, "listPro")->clearSelection();
        Control<QPushButton>(&d, "cmdBorrar")->click(); // nothing selected: nothing removed
        Control<QPushButton>(&d, "cmdCerrar")->click();
    }
    EXPECT_EQ(programas, (std::vector<std::string>{"/usr/bin/thunderbird", "/usr/bin/firefox"}));

    fProgramas d(programas);
    Control<QPushButton>(&d, "cmdBorrarTodos")->click();
    d.reject(); // the close box commits as well
    EXPECT_TRUE(programas.empty());
}

class FiltroDeProgramas : public CarpetaTemporal {};

TEST_F(FiltroDeProgramas, ProgramasDeLinuxPrimeroYLuegoElFiltroDeWindows) {
    const auto e = FiltroDialogoProgramas();
    ASSERT_EQ(e.size(), 4u);
    EXPECT_EQ(e[0].descripcion, kFiltroProgramasLinux);
    EXPECT_EQ(e[1].patrones, (QStringList{"*.exe", "*.com", "*.bat", "*.lnk"}));
    EXPECT_EQ(FiltrosDialogo(e)[1], "Archivos de programa (*.Exe; *.Com; *.Bat; *.Lnk) (*)");
    EXPECT_EQ(LeerFiltroWindows(kFiltroProgramas).size(), 3u);

    Escribir(dir / "SETUP.EXE", "");
    Escribir(dir / "lanzar", "#!/bin/sh\n");
    std::filesystem::permissions(dir / "lanzar", std::filesystem::perms::owner_all);
    Escribir(dir / "notas.txt", "");
    Escribir(dir / "firefox.desktop", "[Desktop Entry]\n");
    auto pasa = [&](int eleccion, const char* nombre) {
        return PasaFiltro(e, eleccion, QFileInfo(QString::fromStdString((dir / nombre).string())));
    };
    EXPECT_TRUE(pasa(0, "lanzar")); // a program Linux can run
    EXPECT_TRUE(pasa(0, "firefox.desktop"));
    EXPECT_FALSE(pasa(0, "notas.txt"));
    EXPECT_FALSE(pasa(0, "SETUP.EXE"));
    EXPECT_TRUE(pasa(2, "SETUP.EXE")); // without regard to case
    EXPECT_FALSE(pasa(1, "lanzar"));
    EXPECT_TRUE(pasa(3, "notas.txt"));
    EXPECT_TRUE(pasa(3, "lanzar")); // "*.*" is every file, dot or not

    // The dialog opens on the Linux choice.
    const auto dialogo = fProgramas::CrearDialogoAbrir(nullptr);
    ASSERT_FALSE(dialogo->nameFilters().isEmpty());
    EXPECT_TRUE(dialogo->nameFilters().front().startsWith(kFiltroProgramasLinux));
    EXPECT_TRUE(dialogo->selectedNameFilter().startsWith(kFiltroProgramasLinux));
}

TEST_F(FiltroDeProgramas, UnSonidoQueFaltaONoSeEntiendeNoDiceNada) {
    SonidoAviso sonido;
    EXPECT_FALSE(sonido.Reproducir(""));
    EXPECT_FALSE(sonido.Reproducir(QString::fromStdString((dir / "no-esta.wav").string())));
    EXPECT_FALSE(sonido.Reproducir(QString::fromStdString(dir.string())));
    Escribir(dir / "roto.wav", "esto no es un sonido");
    EXPECT_TRUE(sonido.Reproducir(QString::fromStdString((dir / "roto.wav").string())));
    QTest::qWait(50);
}
