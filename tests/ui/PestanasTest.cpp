// The editing tabs: holidays, the question about re-pricing, tariffs, the
// tariff and discount of each entry, options and BonoNet.

#include "CarpetaVentana.h"
#include "TarifaAMano.h"
#include "register/Importe.h"
#include "tariff/cLlamada.h"
#include "ui/EditorTiempo.h"

#include <QCalendarWidget>
#include <tuple>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

Fecha F(int a, int m, int d) {
    return Fecha::Crear(a, m, d);
}

std::vector<Fecha> Festivos(fMain& v) {
    return v.Datos().Ajustes.Festivos;
}

} // namespace

class Pestanas : public CarpetaVentana {};

TEST_F(Pestanas, ElCalendarioDeFestivos) {
    Settings s = ValoresPorDefecto();
    s.Festivos = {F(2026, 1, 6), F(2025, 12, 25)};
    EscribirAjustes(s);
    auto v = Abrir();
    TabFestivos& t = *Control<TabFestivos>(v.get(), "TabFestivos");
    EXPECT_TRUE(t.TieneEstiloFestivo(QDate(2026, 1, 6)));
    EXPECT_FALSE(t.TieneEstiloFestivo(QDate(2026, 1, 7)));

    // A click marks a day (at the end); a second click on it removes it.
    for (QDate d : {QDate(2026, 3, 19), QDate(2026, 1, 6), QDate(2026, 1, 6)}) {
        emit Control<QCalendarWidget>(&t, "FestivosCal")->clicked(d);
    }
    EXPECT_EQ(Festivos(*v), (std::vector<Fecha>{F(2025, 12, 25), F(2026, 3, 19), F(2026, 1, 6)}));
    EXPECT_TRUE(v->Datos().RecalculoPendiente);
    EXPECT_EQ(v->Datos().TipoDia(F(2026, 3, 19)), 2); // a Thursday, now a holiday

    // Copying takes only this year's holidays (the clock says 2026).
    v->Datos().RecalculoPendiente = false;
    Control<QPushButton>(&t, "cmdCopiarAño")->click();
    EXPECT_EQ(Festivos(*v), (std::vector<Fecha>{F(2025, 12, 25), F(2026, 3, 19), F(2026, 1, 6),
                                                F(2027, 3, 19), F(2027, 1, 6)}));
    EXPECT_TRUE(t.TieneEstiloFestivo(QDate(2027, 3, 19)));
    EXPECT_TRUE(v->Datos().RecalculoPendiente);

    Control<QPushButton>(&t, "cmdBorrartodos")->click();
    EXPECT_TRUE(Festivos(*v).empty());
    EXPECT_FALSE(t.TieneEstiloFestivo(QDate(2026, 3, 19)));
}

TEST_F(Pestanas, UnVeintinueveDeFebreroSeCopiaAlUnoDeMarzo) {
    reloj.Poner(F(2028, 6, 1));
    Settings s = ValoresPorDefecto();
    s.Festivos = {F(2028, 2, 29)};
    EscribirAjustes(s);
    auto v = Abrir();
    Control<TabFestivos>(v.get(), "TabFestivos")->CopiarAlAñoSiguiente();
    EXPECT_EQ(Festivos(*v), (std::vector<Fecha>{F(2028, 2, 29), F(2029, 3, 1)}));
}

TEST_F(Pestanas, LaPreguntaDeRecalculoSeHaceUnaVezPorCambio) {
    auto v = Abrir();
    RespuestasDialogo respuestas;
    // Leaving the tab after a holiday click asks once; No does not ask again.
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kFestivos);
    emit Control<QCalendarWidget>(v.get(), "FestivosCal")->clicked(QDate(2026, 3, 19));
    respuestas.Responder(QMessageBox::No);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kRegistro);
    ASSERT_EQ(respuestas.Vistas().size(), 1u);
    EXPECT_EQ(respuestas.Vistas()[0].texto,
              "Ha modificado datos que afectan a los calculos\ndel registro de llamadas.\n"
              "¿Desea recalcular todas las llamadas con los parametro actuales ?");
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kResumen);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kFestivos);
    EXPECT_EQ(respuestas.Vistas().size(), 1u);

    // The billing controls raise it too; taxes do not.
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kOpciones);
    Control<QCheckBox>(v.get(), "chkImpuestos")->click();
    Control<QSpinBox>(v.get(), "txtImpuestos")->setValue(21);
    EXPECT_FALSE(v->Datos().RecalculoPendiente);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kBono);
    Control<QSpinBox>(v.get(), "tsp1")->setValue(20);
    EXPECT_TRUE(v->Datos().RecalculoPendiente);
    respuestas.Responder(QMessageBox::No);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kResumen);
    EXPECT_EQ(respuestas.Vistas().size(), 2u);
    // The summary shown on the way counts days to the new billing day.
    EXPECT_EQ(Control<QLabel>(v.get(), "lDiasQuedanBono")->text(), "0");
}

TEST_F(Pestanas, RecalcularDaPrecioNuevoALasLlamadasYLasGuarda) {
    // A weekday call of one minute whose stored cost is not what the tariff
    // book says today.
    const Fecha dia = F(2026, 3, 18);
    EscribirRegistro(Llamada(dia, 10, "00:01:00", "999"));
    cLlamada libro(dir);
    libro.Load();
    cBono vacio;
    ASSERT_TRUE(libro.Datos(dia.MasSegundos(10 * 3600), dia.MasSegundos(10 * 3600 + 60), &vacio,
                            "Metropolitana"));
    const std::string esperado = TextoImporte(libro.importe());

    auto v = Abrir();
    RespuestasDialogo respuestas;
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kFestivos);
    emit Control<QCalendarWidget>(v.get(), "FestivosCal")->clicked(QDate(2026, 3, 2));
    respuestas.Responder(QMessageBox::Yes);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kRegistro);
    // Saved at once, the file before it kept as the backup; the grid shows it.
    Log guardado(dir);
    guardado.CargarLog();
    EXPECT_EQ(guardado.importe(0), esperado);
    EXPECT_EQ(Leer(dir / "RegDat.bak"), Llamada(dia, 10, "00:01:00", "999"));
    EXPECT_EQ(Control<TabRegistro>(v.get(), "TabRegistro")
                  ->Modelo()
                  .index(0, 3)
                  .data()
                  .toString()
                  .toStdString(),
              "14,22"); // a minute of the shipped Metropolitana
}

TEST_F(Pestanas, LaPestanaDeTarifasMuestraElLibro) {
    cLlamada libro(dir);
    PonerTarifa(libro, "Local", "11.72", "00:03:00", Laborable("3", "1.5"),
                {{"2.5", "08:00:00", "13:59:59"}, {"1.04", "14:00:00", "07:59:59"}},
                TodoReducido("1"));
    libro.Add();
    libro.Valor(1, "Nombre", "Lejana");
    libro.Save();
    auto v = Abrir();
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kTarifas);
    TabTarifas& t = *Control<TabTarifas>(v.get(), "TabTarifas");
    ASSERT_EQ(Control<QListWidget>(&t, "listTarifas")->count(), 2);
    Control<QRadioButton>(&t, "optSabado")->click();
    const auto celdas = [](QTableWidget* g) {
        QStringList l;
        for (int f = 0; f < g->rowCount(); ++f) {
            for (int c = 0; c < g->columnCount(); ++c) {
                l << g->item(f, c)->text();
            }
        }
        return l;
    };
    EXPECT_EQ(celdas(Control<QTableWidget>(&t, "gTarifas")),
              (QStringList{"2.5", "08:00", "13:59", "1.04", "14:00", "07:59"}));
    EXPECT_EQ(celdas(Control<QTableWidget>(&t, "gConexion")), (QStringList{"11.72", "00:03"}));
    Control<QListWidget>(&t, "listTarifas")->setCurrentRow(1); // a tariff with nothing written
    EXPECT_EQ(celdas(Control<QTableWidget>(&t, "gConexion"))[0], "");

    // The editor changes the file; showing the tab again reads it.
    libro.Delete(1);
    libro.Save();
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kResumen);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kTarifas);
    EXPECT_EQ(Control<QListWidget>(&t, "listTarifas")->count(), 1);

    // A missing editor is reported and raises nothing.
    RespuestasDialogo respuestas;
    respuestas.Responder(QMessageBox::Ok);
    EXPECT_FALSE(t.AbrirEditor());
    EXPECT_EQ(respuestas.Vistas().size(), 1u);
}

TEST_F(Pestanas, LaPestanaDeTarifasSeRefrescaCuandoElEditorGuarda) {
    auto v = Abrir();
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kTarifas);
    TabTarifas& t = *Control<TabTarifas>(v.get(), "TabTarifas");
    auto* listTarifas = Control<QListWidget>(&t, "listTarifas");
    auto* gConexion = Control<QTableWidget>(&t, "gConexion");
    ASSERT_GT(listTarifas->count(), 0);
    listTarifas->setCurrentRow(0);
    const QString antes = gConexion->item(0, 0)->text();
    // The editor, another program, saves a new connection charge while the
    // tab stays in front.
    cLlamada libro(dir);
    libro.Load();
    libro.Valor(0, "Conexion.Importe", "77.5");
    libro.Save();
    ASSERT_NE(antes, "77.5");
    EXPECT_TRUE(QTest::qWaitFor([&] { return gConexion->item(0, 0)->text() == "77.5"; }, 3000));
    EXPECT_EQ(listTarifas->currentRow(), 0);
}

TEST_F(Pestanas, RecalcularConTarifasQueNoEstanEnElLibro) {
    const Fecha dia = F(2026, 3, 18);
    CamposAMano c;
    c.dia = dia.AOle();
    c.hora = 10 / 24.0;
    c.duracion = "00:01:00";
    c.importe = "999";
    c.tipo = 1;
    c.bono = -1;
    c.tarifa = "Borrada";
    std::string bytes = RegistroAMano(c);
    c.tarifa = "Renombrada";
    bytes += RegistroAMano(c);
    bytes += RegistroAMano(c);
    c.tarifa = "Metropolitana";
    bytes += RegistroAMano(c);
    EscribirRegistro(bytes);

    auto v = Abrir();
    RespuestasDialogo respuestas;
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kFestivos);
    emit Control<QCalendarWidget>(v.get(), "FestivosCal")->clicked(QDate(2026, 3, 2));
    respuestas.Responder(QMessageBox::Yes);
    respuestas.Responder(QMessageBox::Ok);
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kRegistro);

    // The calls of unknown tariffs keep what they had; the user is told once
    // how many and which.
    Log guardado(dir);
    guardado.CargarLog();
    ASSERT_EQ(guardado.Count(), 4);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(std::tuple(guardado.importe(i), guardado.Tipo(i), guardado.Bono(i)),
                  std::tuple("999", 1, -1))
            << i;
    }
    EXPECT_NE(guardado.importe(3), "999");
    ASSERT_EQ(respuestas.Vistas().size(), 2u);
    const QString aviso = respuestas.Vistas()[1].texto + respuestas.Vistas()[1].detalle;
    EXPECT_TRUE(aviso.contains("3 llamadas")) << aviso.toStdString();
    EXPECT_TRUE(aviso.contains("Borrada") && aviso.contains("Renombrada")) << aviso.toStdString();
}

TEST_F(Pestanas, TarifaYDescuentoDeCadaConexion) {
    Settings s = ValoresPorDefecto();
    s.EntradasConexion = {{"Casa", "Provincial", "BonoNet"},
                          {"Trabajo", "Metropolitana", "Ninguno"}};
    EscribirAjustes(s);
    plataforma.sistema->entradas = {"Casa", "Trabajo"};
    plataforma.origen = "Conexiones de NetworkManager y de pppd (/etc/ppp/peers)";
    auto v = Abrir();
    TabConexiones& t = *Control<TabConexiones>(v.get(), "TabConexiones");
    EXPECT_EQ(Control<QLabel>(&t, "lOrigen")->text(),
              "Conexiones de NetworkManager y de pppd (/etc/ppp/peers)");
    EXPECT_EQ(Control<QComboBox>(&t, "cmbTarifa")->currentText(), "Provincial");
    EXPECT_EQ(Control<QComboBox>(&t, "cmbDescuento")->currentText(), "BonoNet");

    Control<QListWidget>(&t, "listaConexiones2")->setCurrentRow(1);
    const int infovia = Control<QComboBox>(&t, "cmbTarifa")->findText("Infovia");
    Control<QComboBox>(&t, "cmbTarifa")->setCurrentIndex(infovia);
    emit Control<QComboBox>(&t, "cmbTarifa")->activated(infovia);
    Control<QComboBox>(&t, "cmbDescuento")->setCurrentIndex(1);
    emit Control<QComboBox>(&t, "cmbDescuento")->activated(1);
    EXPECT_EQ(v->Datos().Ajustes.EntradasConexion[1],
              (EntradaConexion{"Trabajo", "Infovia", "BonoNet"}));
    EXPECT_EQ(v->Datos().Ajustes.EntradasConexion[0].Tarifa, "Provincial");
    EXPECT_FALSE(v->Datos().RecalculoPendiente);
}

TEST_F(Pestanas, LasOpcionesSeGuardanAlPulsarlas) {
    Settings s = ValoresPorDefecto();
    s.ImporteAviso = "1500";
    s.TiempoAviso.Valor("0:75:00");
    s.Impuestos = 15.6F;
    EscribirAjustes(s);
    auto v = Abrir();
    TabOpciones& t = *Control<TabOpciones>(v.get(), "TabOpciones");
    EXPECT_EQ(Control<QLineEdit>(&t, "txtImporte")->text(), "1.500,00");
    EXPECT_EQ(Control<EditorTiempo>(&t, "tiempo1")->text(), "01:15:00");
    EXPECT_EQ(Control<QSpinBox>(&t, "txtImpuestos")->value(), 16);
    // Showing the settings changes none of them.
    EXPECT_FLOAT_EQ(v->Datos().Ajustes.Impuestos, 15.6F);

    QSignalSpy armados(&t, &TabOpciones::AvisoArmado);
    Control<QCheckBox>(&t, "Check3")->click();
    Control<QCheckBox>(&t, "Check5")->click();
    Control<QCheckBox>(&t, "Check1")->click();
    ASSERT_EQ(armados.count(), 2); // the time and the bundle alerts
    EXPECT_EQ(armados[1][0].toInt(), 2);
    Control<QCheckBox>(&t, "Check11")->click();
    Control<QLineEdit>(&t, "txtImporte")->clear();
    QTest::keyClicks(Control<QLineEdit>(&t, "txtImporte"), "2.500,5");
    EXPECT_EQ(v->Datos().Ajustes.ImporteAviso, "2500.5");
    // The alert time is never left holding something that is no time.
    EditorTiempo* tiempo1 = Control<EditorTiempo>(&t, "tiempo1");
    tiempo1->clear();
    QTest::keyClicks(tiempo1, "000110");
    QTest::keyClick(tiempo1, Qt::Key_Return);
    EXPECT_EQ(tiempo1->text(), "00:01:10");
    EXPECT_EQ(v->Datos().Ajustes.TiempoAviso.Valor(), "00:01:10");
    tiempo1->clear();
    QTest::keyClicks(tiempo1, "9:75");
    QFocusEvent fuera(QEvent::FocusOut);
    QApplication::sendEvent(tiempo1, &fuera);
    EXPECT_EQ(tiempo1->text(), "00:01:10");
    EXPECT_EQ(v->Datos().Ajustes.TiempoAviso.Valor(), "00:01:10");
    Control<EditorTiempo>(&t, "tiempo2")->clear();
    QTest::keyClicks(Control<EditorTiempo>(&t, "tiempo2"), "05:30:00");
    EXPECT_EQ(v->Datos().Ajustes.BonoAviso.Valor(), "05:30:00");

    // What the window holds reaches the file at the end, and comes back
    // except "Ventanas Conexion invisibles".
    ASSERT_TRUE(v->Terminar());
    auto otra = Abrir();
    EXPECT_TRUE(Control<QCheckBox>(otra.get(), "Check3")->isChecked());
    EXPECT_FALSE(Control<QCheckBox>(otra.get(), "Check11")->isChecked());
    EXPECT_EQ(Control<QLineEdit>(otra.get(), "txtImporte")->text(), "2.500,50");
}

TEST_F(Pestanas, LosBonosDeLaPestanaBonoNet) {
    auto v = Abrir();
    TabBono& t = *Control<TabBono>(v.get(), "TabBono");
    std::vector<std::pair<BonoGuardado, bool>> pedidos;
    std::optional<BonoGuardado> respuesta;
    t.PedirBono = [&](const BonoGuardado& inicial, bool nuevo) {
        pedidos.push_back({inicial, nuevo});
        return respuesta;
    };

    // Take-up: the dialog starts on today; a cancel adds nothing.
    Control<QPushButton>(&t, "cmdAlta")->click();
    EXPECT_EQ(pedidos.at(0).first.Alta, F(2026, 3, 20));
    respuesta = BonoGuardado{3, F(2026, 3, 2), FechaVariante::Vacia(), "50:00:00"};
    Control<QPushButton>(&t, "cmdAlta")->click();
    respuesta = BonoGuardado{0, F(2026, 3, 5), FechaVariante::Vacia(), "07:30:00"};
    Control<QPushButton>(&t, "cmdAlta")->click();
    ASSERT_EQ(Control<QTableWidget>(&t, "gBono")->rowCount(), 2);
    EXPECT_EQ(Control<QLabel>(&t, "lTipo0")->text(), "1 bono(s), quedan 07:30:00");

    // The summary shows the group chosen on tabBono.
    Control<QTabWidget>(v.get(), "SSTab1")->setCurrentIndex(fMain::kResumen);
    EXPECT_EQ(Control<QLabel>(v.get(), "lBonoQueda")->text(), "07:30:00");
    Control<QTabWidget>(&t, "tabBono")->setCurrentIndex(1);
    EXPECT_EQ(Control<QLabel>(v.get(), "lBonoQueda")->text(), "50:00:00");

    // Change the second bundle: it is given up.
    Control<QTableWidget>(&t, "gBono")->selectRow(1);
    respuesta = BonoGuardado{0, F(2026, 3, 5), FechaVariante::De(F(2026, 3, 18)), "07:00:00"};
    Control<QPushButton>(&t, "cmdModificar")->click();
    EXPECT_EQ(pedidos.back(),
              std::pair(BonoGuardado{0, F(2026, 3, 5), FechaVariante::Vacia(), "07:30:00"}, false));
    EXPECT_EQ(Control<QTableWidget>(&t, "gBono")->item(1, 2)->text(), "18/03/2026");

    // Removing the first keeps the second as it was.
    RespuestasDialogo respuestas;
    Control<QTableWidget>(&t, "gBono")->selectRow(0);
    respuestas.Responder(QMessageBox::Yes);
    Control<QPushButton>(&t, "cmdEliminar")->click();
    ASSERT_EQ(v->Datos().Bono.Count(), 1);
    EXPECT_EQ(v->Datos().Bono.tiempo(0), "07:00:00");
    respuestas.Responder(QMessageBox::No);
    Control<QPushButton>(&t, "cmdLimpiar")->click();
    EXPECT_EQ(v->Datos().Bono.Count(), 1);
    respuestas.Responder(QMessageBox::Yes);
    Control<QPushButton>(&t, "cmdLimpiar")->click();
    EXPECT_EQ(v->Datos().Bono.Count(), 0);

    // The interval choice reaches the ledger and the billing period.
    Control<QComboBox>(&t, "cmbFac")->setCurrentIndex(2);
    emit Control<QComboBox>(&t, "cmbFac")->activated(2);
    EXPECT_EQ(v->Datos().Bono.perFactura(), 2);
    EXPECT_TRUE(v->Datos().RecalculoPendiente);
}
