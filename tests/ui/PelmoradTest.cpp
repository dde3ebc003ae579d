#include "CarpetaTemporal.h"
#include "Controles.h"
#include "RegistroAMano.h"
#include "RespuestasDialogo.h"
#include "TarifaAMano.h"
#include "core/Archivo.h"
#include "register/Log.h"
#include "settings/ArchivoVariables.h"
#include "tariff/LibroJson.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/cLlamada.h"
#include "ui/AvisoCampo.h"
#include "ui/FranjaDia.h"
#include "ui/PanelTarifa.h"
#include "ui/TablaBandas.h"
#include "ui/fPelmorad.h"

using namespace vorimesk;
using namespace vorimesk::prueba;
namespace fs = std::filesystem;

namespace {

class Pelmorad : public CarpetaTemporal {
protected:
    // The text and detail of the last message box.
    QString Mensaje() const {
        const auto& v = respuestas.Vistas();
        return v.empty() ? QString() : v.back().texto + "\n" + v.back().detalle;
    }
    RespuestasDialogo respuestas;
};

// Types into a field as a user would, replacing what it held.
void Teclear(QLineEdit* campo, const QString& texto) {
    campo->selectAll();
    QTest::keyClick(campo, Qt::Key_Delete);
    QTest::keyClicks(campo, texto);
}

// The bands table of a day type, found by its name in the editor.
TablaBandas* Tabla(const QObject* editor, int dia) {
    return Control<TablaBandas>(editor, QString("tablas_%1").arg(dia));
}

void Bandas(TablaBandas* t, int franja, const QString& precio, QTime inicio, QTime fin) {
    Teclear(Control<QLineEdit>(t, QString("txtPrecio_%1").arg(franja)), precio);
    Control<QTimeEdit>(t, QString("tmeInicio_%1").arg(franja))->setTime(inicio);
    Control<QTimeEdit>(t, QString("tmeFin_%1").arg(franja))->setTime(fin);
}

std::string Libro(const fs::path& dir) {
    return LeerArchivo(dir / "Tarifas.Dat");
}

QColor Pixel(QWidget& w, int x, int y) {
    const QImage img = w.grab().toImage();
    const qreal r = img.devicePixelRatio();
    return img.pixelColor(int(x * r), int(y * r));
}

} // namespace

TEST_F(Pelmorad, UnaTarifaNuevaSeGuardaComoEscritaAMano) {
    fPelmorad v(dir); // sin Tarifas.Dat: libro vacio
    EXPECT_FALSE(Control<PanelTarifa>(&v, "panel")->isEnabled());
    EXPECT_TRUE(Control<QListWidget>(&v, "lstProblemas")
                    ->item(0)
                    ->text()
                    .contains("no tiene ninguna tarifa"));

    Control<QPushButton>(&v, "cmdAñadir")->click();
    EXPECT_TRUE(v.isWindowModified());
    PanelTarifa& p = *Control<PanelTarifa>(&v, "panel");
    Teclear(Control<QLineEdit>(&p, "txtNombre"), "MiOperador");
    EXPECT_EQ(Control<QListWidget>(&v, "lstTarifas")->item(0)->text(), "MiOperador");
    Teclear(Control<QLineEdit>(&p, "txtConexion"), "15");
    Control<QSpinBox>(&p, "spnMinutos")->setValue(2);
    Control<QSpinBox>(&p, "spnSegundos")->setValue(30);
    Bandas(Tabla(&p, 0), 0, "3.1", QTime(9, 0), QTime(19, 59, 59));
    Bandas(Tabla(&p, 0), 1, "1.2", QTime(20, 0), QTime(8, 59, 59));
    Bandas(Tabla(&p, 1), 0, "3.1", QTime(9, 0), QTime(13, 59, 59));
    Bandas(Tabla(&p, 1), 1, "1.2", QTime(14, 0), QTime(8, 59, 59));
    Bandas(Tabla(&p, 2), 0, "0", QTime(0, 0), QTime(0, 0));
    Bandas(Tabla(&p, 2), 1, "1.2", QTime(0, 0), QTime(23, 59, 59));
    EXPECT_TRUE(v.Problemas().empty()) << TextoProblemas(v.Problemas());

    // La tira del dia sigue lo escrito.
    EXPECT_EQ(Control<FranjaDia>(&p, "franjas_2")->Tramos(),
              (std::vector<TramoDia>{{0, 86400, Cobertura::Reducida}}));

    ASSERT_TRUE(v.Guardar());
    EXPECT_FALSE(v.isWindowModified());
    cLlamada mano(dir / "mano");
    PonerTarifa(mano, "MiOperador", "15", "02:30:00",
                {{"3.1", "9:00", "19:59:59"}, {"1.2", "20:00", "08:59:59"}},
                {{"3.1", "09:00", "13:59:59"}, {"1.2", "14:00", "08:59:59"}},
                {{"0", "0:00", "0:00"}, {"1.2", "0:00", "23:59:59"}});
    // Byte for byte as written by hand: how it prices is the tariff tests'.
    EXPECT_EQ(Libro(dir), std::string(mano.Tarifa(0).Bytes()));
}

TEST_F(Pelmorad, EditarElLibroDeSerieEsComoHacerloAMano) {
    InstalarLibroPorDefecto(dir);
    fPelmorad v(dir);
    EXPECT_FALSE(Control<QPushButton>(&v, "cmdSubir")->isEnabled());
    Control<QListWidget>(&v, "lstTarifas")->setCurrentRow(2);
    Teclear(Control<QLineEdit>(Tabla(&v, 0), "txtPrecio_1"), "6");
    Control<QPushButton>(&v, "cmdCopiar")->click();
    Control<QPushButton>(&v, "cmdRenombrar")->click();
    EXPECT_TRUE(Control<QLineEdit>(&v, "txtNombre")->hasSelectedText());
    Teclear(Control<QLineEdit>(&v, "txtNombre"), "Provincial Fin");
    Teclear(Control<QLineEdit>(Tabla(&v, 1), "txtPrecio_0"), "12");
    v.Seleccionar(5);
    EXPECT_FALSE(Control<QPushButton>(&v, "cmdBajar")->isEnabled());
    Control<QPushButton>(&v, "cmdEliminar")->click();
    v.Seleccionar(3);
    Control<QPushButton>(&v, "cmdBajar")->click();
    EXPECT_EQ(Control<QListWidget>(&v, "lstTarifas")->currentItem()->text(), "Provincial Fin");
    ASSERT_TRUE(v.Guardar());

    cLlamada mano(dir / "mano");
    RellenarLibroPorDefecto(mano);
    mano.Valor(2, "Semana.Reducida.Importe", "6");
    mano.Copy(4, 2);
    mano.Valor(4, "Nombre", "Provincial Fin");
    mano.Valor(4, "Sabado.Normal.Importe", "12");
    fs::create_directory(dir / "mano");
    mano.Save();
    EXPECT_EQ(Libro(dir), Libro(dir / "mano"));
}

TEST_F(Pelmorad, LosErroresSeMarcanYNoSeGuardan) {
    InstalarLibroPorDefecto(dir);
    const std::string antes = Libro(dir);
    fPelmorad v(dir);
    QLineEdit* precio = Control<QLineEdit>(Tabla(&v, 1), "txtPrecio_0");
    const QColor normal = precio->palette().color(QPalette::Base);
    Teclear(precio, "2,5,0");
    EXPECT_NE(precio->palette().color(QPalette::Base), normal);
    EXPECT_TRUE(precio->toolTip().contains("no es un numero")) << precio->toolTip().toStdString();
    EXPECT_TRUE(Control<AvisoCampo>(&v, "avisoDia_1")
                    ->Resumen()
                    .startsWith("Error: El precio de la franja normal "
                                "de Sabado (2,5,0)"));
    EXPECT_FALSE(Control<QListWidget>(&v, "lstTarifas")->item(0)->icon().isNull());

    respuestas.Pulsar("Aceptar");
    EXPECT_FALSE(v.Guardar());
    EXPECT_TRUE(Mensaje().contains("no se guardan mientras tengan errores"));
    EXPECT_EQ(Libro(dir), antes);

    // Corregido a la espanola, la marca se va; un hueco en las franjas solo
    // avisa y pregunta.
    Teclear(precio, "2,5");
    EXPECT_EQ(precio->palette().color(QPalette::Base), normal);
    Control<QTimeEdit>(Tabla(&v, 0), "tmeInicio_1")->setTime(QTime(19, 0));
    EXPECT_EQ(Control<AvisoCampo>(&v, "avisoDia_0")->Lineas().size(), 1);
    respuestas.Pulsar("Cancelar");
    EXPECT_FALSE(v.Guardar());
    EXPECT_TRUE(Mensaje().contains("no hay franja de 18:00:00 a 18:59:59"));
    EXPECT_EQ(Libro(dir), antes);
    respuestas.Pulsar("&Guardar de todos modos");
    EXPECT_TRUE(v.Guardar());
    cLlamada guardado(dir);
    guardado.Load();
    EXPECT_EQ(guardado.ValorTexto(0, "Semana.Reducida.Inicio"), "19:00:00");
    EXPECT_EQ(guardado.ValorTexto(0, "Sabado.Normal.Importe"), "2.5");

    // Pulsar un problema lleva a su campo.
    v.Seleccionar(3);
    ASSERT_EQ(Control<QListWidget>(&v, "lstProblemas")->count(), 1);
    Control<QListWidget>(&v, "lstProblemas")
        ->itemClicked(Control<QListWidget>(&v, "lstProblemas")->item(0));
    EXPECT_EQ(v.Actual(), 0);
}

TEST_F(Pelmorad, RenombrarOfrecePasarSusLlamadasYEliminarDiceCuantasHay) {
    InstalarLibroPorDefecto(dir);
    CamposAMano provincial;
    provincial.tarifa = "Provincial";
    CamposAMano local;
    local.tarifa = "Local";
    EscribirArchivoSeguro(dir / "RegDat.log",
                          RegistroAMano({}) + RegistroAMano({}) + RegistroAMano(provincial));
    Settings s = ValoresPorDefecto();
    s.EntradasConexion = {{"Casa", "Metropolitana", "Ninguno"}};
    GuardarVariables(dir / "Varibles.Dat", s);
    const std::string ajustes = LeerArchivo(dir / "Varibles.Dat");
    fPelmorad v(dir);
    QLineEdit* nombre = Control<QLineEdit>(&v, "txtNombre");

    // Declined: the book changes, the register does not.
    v.Seleccionar(2);
    Teclear(nombre, "Provincia B");
    respuestas.Pulsar("Cancelar");
    ASSERT_TRUE(v.Guardar());
    EXPECT_TRUE(Mensaje().contains("\"Provincial\" se llama ahora \"Provincia B\" y la usan "
                                   "1 llamada del registro."))
        << Mensaje().toStdString();
    // Accepted: calls and entry follow, nothing else of them changes.
    v.Seleccionar(0);
    Teclear(nombre, "Local");
    respuestas.Pulsar("&Pasarlas a \"Local\"");
    ASSERT_TRUE(v.Guardar());
    EXPECT_TRUE(Mensaje().contains("la usan 2 llamadas del registro y 1 conexion"))
        << Mensaje().toStdString();
    EXPECT_EQ(LeerArchivo(dir / "RegDat.log"),
              RegistroAMano(local) + RegistroAMano(local) + RegistroAMano(provincial));
    s.EntradasConexion[0].Tarifa = "Local";
    EXPECT_EQ(LeerArchivo(dir / "Varibles.Dat"), EscribirTextoVariables(s));
    EXPECT_NE(LeerArchivo(dir / "Varibles.Dat"), ajustes);

    // Deleting one in use says how much uses it first.
    respuestas.Pulsar("Cancelar");
    Control<QPushButton>(&v, "cmdEliminar")->click();
    EXPECT_TRUE(Mensaje().contains("la usan 2 llamadas del registro y 1 conexion"))
        << Mensaje().toStdString();
    EXPECT_EQ(v.Libro().Tarifa(0).Nombre(), "Local");
}

TEST_F(Pelmorad, LosProblemasSeLeenEnterosYLosErroresPrimero) {
    InstalarLibroPorDefecto(dir);
    fPelmorad v(dir);
    v.resize(1000, 700);
    v.show();
    // A warning in the first tariff, an error in the third.
    Control<QTimeEdit>(Tabla(&v, 0), "tmeInicio_1")->setTime(QTime(19, 0));
    v.Seleccionar(2);
    Teclear(Control<QLineEdit>(&v, "txtNombre"), "Un nombre demasiado largo para el archivo");
    QApplication::processEvents();
    QListWidget* lista = Control<QListWidget>(&v, "lstProblemas");
    ASSERT_EQ(lista->count(), 2);
    EXPECT_TRUE(lista->item(0)->text().startsWith("Error")) << lista->item(0)->text().toStdString();
    // The message beside the name wraps whole into the room it is given.
    AvisoCampo* aviso = Control<AvisoCampo>(&v, "avisoNombre");
    const QRect necesario = aviso->fontMetrics().boundingRect(QRect(0, 0, aviso->width(), 10000),
                                                              Qt::TextWordWrap, aviso->Resumen());
    EXPECT_GE(aviso->height(), necesario.height()) << aviso->Resumen().toStdString();
    // The list of tariffs is as wide as their longest name.
    QListWidget* tarifas = Control<QListWidget>(&v, "lstTarifas");
    EXPECT_GE(tarifas->viewport()->width(),
              tarifas->fontMetrics().horizontalAdvance("Interprovincial"));
    if (const QByteArray destino = qgetenv("VORIMESK_CAPTURAS"); !destino.isEmpty()) {
        v.grab().save(QString::fromLocal8Bit(destino) + "/pelmorad-problemas.png");
    }
}

TEST_F(Pelmorad, ImportarExportarYRestaurar) {
    InstalarLibroPorDefecto(dir);
    const std::string serie = Libro(dir);
    fPelmorad v(dir);
    const QString json = QString::fromStdString((dir / "libro.json").string());
    ASSERT_TRUE(v.ExportarA(json));
    EXPECT_EQ(LeerArchivo(json.toStdString()), ExportarJson(LibroEditable::DeSerie()));

    // Un archivo malo no cambia nada.
    const QString malo = QString::fromStdString((dir / "malo.json").string());
    EscribirArchivoSeguro(malo.toStdString(),
                          "{\"formato\": \"vorimesk-tarifas\", \"version\": 7}");
    respuestas.Pulsar("Aceptar");
    EXPECT_FALSE(v.ImportarDesde(malo));
    EXPECT_TRUE(Mensaje().contains("version 7")) << Mensaje().toStdString();
    EXPECT_FALSE(v.isWindowModified());

    // Uno bueno sustituye las tarifas, que se escriben al guardar.
    Importacion otro = ImportarJson(ExportarJson(LibroEditable::DeSerie()));
    otro.libro.Eliminar(4);
    otro.libro.Tarifa(0).Valor("Conexion.Importe", "9");
    EscribirArchivoSeguro(json.toStdString(), ExportarJson(otro.libro));
    ASSERT_TRUE(v.ImportarDesde(json));
    EXPECT_EQ(Control<QLineEdit>(&v, "txtConexion")->text(), "9");
    EXPECT_EQ(Libro(dir), serie);
    ASSERT_TRUE(v.Guardar());
    EXPECT_EQ(Libro(dir).size(), 4u * 168u);

    // Restaurar pregunta y vuelve al libro de serie.
    respuestas.Pulsar("Cancelar");
    EXPECT_FALSE(v.RestaurarDeSerie());
    respuestas.Pulsar("&Restaurar");
    EXPECT_TRUE(v.RestaurarDeSerie());
    ASSERT_TRUE(v.Guardar());
    EXPECT_EQ(Libro(dir), serie);
}

TEST_F(Pelmorad, CerrarConCambiosPregunta) {
    InstalarLibroPorDefecto(dir);
    const std::string serie = Libro(dir);
    fPelmorad v(dir);
    v.show();
    v.Seleccionar(4);
    Control<QPushButton>(&v, "cmdEliminar")->click();
    respuestas.Pulsar("Cancelar");
    EXPECT_FALSE(v.close());
    EXPECT_TRUE(v.isVisible());
    respuestas.Pulsar("&Descartar");
    EXPECT_TRUE(v.close());
    EXPECT_EQ(Libro(dir), serie);

    fPelmorad w(dir);
    w.show();
    w.Seleccionar(4);
    Control<QPushButton>(&w, "cmdEliminar")->click();
    respuestas.Pulsar("&Guardar");
    EXPECT_TRUE(w.close());
    EXPECT_EQ(Libro(dir).size(), 4u * 168u);
}

TEST_F(Pelmorad, UnLibroIlegibleNoSeSobrescribe) {
    fs::create_directory(dir / "Tarifas.Dat");
    fPelmorad v(dir); // avisa en cuanto arranca el bucle de eventos
    respuestas.Pulsar("Aceptar");
    QTest::qWait(50);
    EXPECT_TRUE(Mensaje().contains("No se pudo leer el libro de tarifas"));
    EXPECT_FALSE(Control<QAction>(&v, "accGuardar")->isEnabled());
    Control<QPushButton>(&v, "cmdAñadir")->click();
    EXPECT_FALSE(v.Guardar());
    EXPECT_TRUE(fs::is_directory(dir / "Tarifas.Dat"));
}

TEST(FranjaDia, PintaCadaHoraDelColorDeSuFranja) {
    FranjaDia f;
    f.resize(480, f.sizeHint().height());
    f.Mostrar(FranjasDia{8 * 3600, 18 * 3600 - 1, 19 * 3600, 8 * 3600 + 1799});
    const int y = f.Barra().center().y();
    const auto en = [&](double hora) { return Pixel(f, f.X(int(hora * 3600)), y); };
    EXPECT_EQ(en(3), FranjaDia::Color(Cobertura::Reducida));
    EXPECT_EQ(en(12), FranjaDia::Color(Cobertura::Normal));
    // Solape y hueco van rayados sobre su color: distintos de los dos de arriba.
    for (double h : {8.2, 18.5}) {
        EXPECT_NE(en(h), FranjaDia::Color(Cobertura::Normal)) << h;
        EXPECT_NE(en(h), FranjaDia::Color(Cobertura::Reducida)) << h;
    }
}
