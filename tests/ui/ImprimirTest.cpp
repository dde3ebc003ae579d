// The printed reports read back from a PDF: every text at its character
// column, the truncations kept, nothing printed when nothing is chosen.

#include "AnfitrionFalso.h"
#include "CarpetaTemporal.h"
#include "Controles.h"
#include "LlamadasSimuladas.h"
#include "tariff/LibroPorDefecto.h"
#include "tariff/LibroTarifas.h"
#include "ui/fImprimir.h"

#include <QPrintDialog>
#include <QPrinterInfo>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <sstream>

using namespace vorimesk;
using namespace vorimesk::prueba;

namespace {

class ImprimirTest : public prueba::CarpetaTemporal {
protected:
    void SetUp() override {
        registro = std::make_unique<Log>(dir);
        prueba::LlenarConLlamadas(*registro, dir, Fecha::Crear(2026, 1, 16), 59);
        libro = std::make_unique<LibroTarifas>(dir);
        anfitrion = std::make_unique<prueba::AnfitrionFalso>(*registro, libro->Actual(), hoy);
        anfitrion->inicio = Fecha::Crear(2026, 2, 16);
        anfitrion->fin = Fecha::Crear(2026, 3, 15, 23, 59, 59);
        anfitrion->RellenaGrid({});
    }
    // The PDF as text with fixed character cells, one string per line.
    std::vector<std::string> Texto(const std::string& pdf) {
        const std::string orden = "pdftotext -layout -fixed 6 '" + pdf + "' -";
        std::FILE* tubo = ::popen(orden.c_str(), "r");
        EXPECT_NE(tubo, nullptr);
        std::string todo;
        char bloque[4096];
        for (std::size_t n; (n = std::fread(bloque, 1, sizeof bloque, tubo)) > 0;) {
            todo.append(bloque, n);
        }
        EXPECT_EQ(::pclose(tubo), 0) << "pdftotext";
        std::vector<std::string> lineas;
        std::istringstream in(todo);
        for (std::string l; std::getline(in, l);) {
            // A new page starts with a form feed; it takes no column.
            l.erase(std::remove(l.begin(), l.end(), '\f'), l.end());
            lineas.push_back(l);
        }
        return lineas;
    }
    static int Buscar(const std::vector<std::string>& lineas, const std::string& texto) {
        for (std::size_t i = 0; i < lineas.size(); ++i) {
            if (lineas[i].find(texto) != std::string::npos) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }

    Fecha hoy = Fecha::Crear(2026, 3, 20);
    std::unique_ptr<Log> registro;
    std::unique_ptr<LibroTarifas> libro;
    std::unique_ptr<prueba::AnfitrionFalso> anfitrion;
};

} // namespace

TEST_F(ImprimirTest, RegistroYTarifasEnSusColumnas) {
    ASSERT_GT(anfitrion->Listadas().size(), 40u); // mas de una pagina
    fImprimir f(*anfitrion, *libro);
    Control<QCheckBox>(&f, "Check1")->setChecked(true);
    Control<QCheckBox>(&f, "Check2")->setChecked(true);
    const std::string pdf = (dir / "informe.pdf").string();
    ASSERT_TRUE(f.ImprimirPdf(QString::fromStdString(pdf)));
    const auto l = Texto(pdf);

    const int titulo = Buscar(l, "Registro de llamadas");
    ASSERT_GE(titulo, 0);
    const std::size_t margen = l[titulo].find("Registro");
    // The header names the range the grid lists, here the whole register.
    EXPECT_EQ(l[titulo + 1].substr(margen), "Todo el registro (16/01/2026 - 20/03/2026)");
    const std::string& cabecera = l[titulo + 2];
    const char* titulos[] = {"Dia",  "Hora", "Duracion", "Coste",      "Tarifa",
                             "Tipo", "Bono", "Conexion", "Kbs Recibi", "Kbs Enviad"};
    for (int c = 0; c < 10; ++c) {
        const std::size_t columna = margen + (c == 0 ? 0 : c * 12 - 1);
        EXPECT_EQ(cabecera.substr(columna, std::strlen(titulos[c])), titulos[c]) << c;
    }
    EXPECT_EQ(cabecera.find("Kbs Recibidos"), std::string::npos);

    // Every call listed, on whatever page, with its cells at their columns.
    for (const auto& fila : anfitrion->FilasVisibles()) {
        const int i = Buscar(l, fila[0] + " " + fila[1]);
        ASSERT_GE(i, 0) << fila[0] << " " << fila[1];
        EXPECT_EQ(l[i].substr(margen + 23, 8), fila[2]);
        EXPECT_EQ(l[i].substr(margen + 35, fila[3].size()), fila[3]);
        // "Metropolitana" reaches the band's column and pushes it one blank;
        // the bono column is back in place.
        EXPECT_EQ(l[i].substr(margen + 71, fila[6].size()), fila[6]);
    }

    // The totals close the register; every page has its number.
    const int totales =
        Buscar(l, "Llamadas: " + std::to_string(anfitrion->Listadas().size()) + " ");
    ASSERT_GT(totales, titulo);
    std::vector<std::string> pies;
    for (const std::string& linea : l) {
        if (const auto p = linea.find("Pagina "); p != std::string::npos) {
            pies.push_back(linea.substr(p));
        }
    }
    ASSERT_GE(pies.size(), 2u);
    for (std::size_t n = 0; n < pies.size(); ++n) {
        EXPECT_EQ(pies[n],
                  "Pagina " + std::to_string(n + 1) + " de " + std::to_string(pies.size()));
    }

    // The tariffs follow, their lines as the register's report tests them.
    const int tarifas = Buscar(l, "Tarifas");
    ASSERT_GT(tarifas, totales);
    EXPECT_EQ(l[tarifas + 1].substr(margen), "Metropolitana");
    EXPECT_EQ(l[tarifas + 4].substr(margen + 39), "Semana tarifa reducida");
}

TEST_F(ImprimirTest, SinCasillasNoImprimeNada) {
    fImprimir f(*anfitrion, *libro);
    Control<QCheckBox>(&f, "Check1")->setChecked(false);
    Control<QCheckBox>(&f, "Check2")->setChecked(false);
    EXPECT_TRUE(f.Lineas().empty());
    EXPECT_FALSE(f.ImprimirPdf(QString::fromStdString((dir / "nada.pdf").string())));
    EXPECT_FALSE(Existe(dir / "nada.pdf"));
    Control<QPushButton>(&f, "cmdImprimir")->click(); // ni dialogo ni impresion
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ImprimirTest, SinImpresoraOfreceElDialogoDeImpresion) {
    if (!QPrinterInfo::defaultPrinter().isNull()) {
        GTEST_SKIP() << "hay una impresora instalada";
    }
    fImprimir f(*anfitrion, *libro);
    bool dialogo = false;
    QTimer::singleShot(0, [&] {
        auto* d = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        dialogo = d != nullptr;
        if (d != nullptr) {
            EXPECT_EQ(d->printer()->outputFormat(), QPrinter::PdfFormat);
            d->reject();
        }
    });
    Control<QPushButton>(&f, "cmdImprimir")->click();
    EXPECT_TRUE(dialogo);
    EXPECT_NE(f.result(), QDialog::Accepted);
}
