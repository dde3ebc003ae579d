#include "ImpresionTexto.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <algorithm>

namespace vorimesk {
namespace {

// Twelve characters to the inch, the pitch of a typewriter's elite type:
// the register's 120 columns take ten inches.
constexpr double kPasoPuntos = 6.0;

QFont FuenteFija() {
    QFont f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    f.setStyleHint(QFont::Monospace);
    f.setFixedPitch(true);
    f.setPointSizeF(10.0);
    return f;
}

// Each word at its own column, so the columns are exact whatever the font's
// own advance.
void DibujarLinea(QPainter& pintor, const QString& linea, double paso, double y) {
    int i = 0;
    while (i < linea.size()) {
        if (linea[i] == ' ') {
            ++i;
            continue;
        }
        const int inicio = i;
        while (i < linea.size() && linea[i] != ' ') {
            ++i;
        }
        pintor.drawText(QPointF(inicio * paso, y), linea.mid(inicio, i - inicio));
    }
}

} // namespace

void PrepararImpresora(QPrinter& impresora) {
    impresora.setPageOrientation(QPageLayout::Landscape);
    impresora.setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    impresora.setDocName("Vorimesk");
}

bool ImprimirLineas(QPrinter& impresora, const std::vector<std::string>& lineas) {
    QPainter pintor;
    if (!pintor.begin(&impresora)) {
        return false;
    }
    const QRectF pagina = impresora.pageLayout().paintRectPixels(impresora.resolution());
    // The pitch, narrower on a page too small for the columns, and a font
    // whose characters are exactly that wide.
    const double paso =
        std::min(kPasoPuntos * impresora.resolution() / 72.0, pagina.width() / kColumnasInforme);
    QFont fuente = FuenteFija();
    const double avance = QFontMetricsF(fuente, &impresora).horizontalAdvance(QChar('M'));
    fuente.setPointSizeF(fuente.pointSizeF() * paso / avance);
    pintor.setFont(fuente);
    const QFontMetricsF medidas(fuente, &impresora);
    // The last two lines of every page are kept for its number.
    const int porPagina = std::max(
        1, static_cast<int>((pagina.height() - medidas.descent()) / medidas.lineSpacing()) - 2);
    const int paginas = std::max(1, (static_cast<int>(lineas.size()) + porPagina - 1) / porPagina);
    const auto numerar = [&](int n) {
        const QString pie = QString("Pagina %1 de %2").arg(n).arg(paginas);
        const double y = medidas.ascent() + (porPagina + 1) * medidas.lineSpacing();
        pintor.drawText(QPointF(pagina.width() - pie.size() * paso, y), pie);
    };
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        const int fila = static_cast<int>(i) % porPagina;
        if (fila == 0 && i > 0) {
            numerar(static_cast<int>(i) / porPagina);
            impresora.newPage();
        }
        QString texto = QString::fromStdString(lineas[i]);
        while (texto.endsWith('\r')) {
            texto.chop(1);
        }
        DibujarLinea(pintor, texto, paso, medidas.ascent() + fila * medidas.lineSpacing());
    }
    numerar(paginas);
    return pintor.end();
}

} // namespace vorimesk
