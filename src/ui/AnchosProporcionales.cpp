#include "AnchosProporcionales.h"

#include <QAbstractItemModel>
#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyle>
#include <QTableView>
#include <algorithm>
#include <numeric>

namespace vorimesk {
namespace {

// Average character width of the 8-point font the widths were designed for.
constexpr double kCaracterDiseño = 5.5;
constexpr double kTwipsPorPixel = 15.0;

} // namespace

AnchosProporcionales::AnchosProporcionales(QTableView* tabla, std::vector<int> twips, bool llenar,
                                           std::vector<QString> muestras)
    : QObject(tabla), tabla_(tabla), twips_(std::move(twips)), llenar_(llenar),
      muestras_(std::move(muestras)) {
    tabla_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    vista_ = tabla_->viewport();
    vista_->installEventFilter(this);
    Aplicar();
}

int AnchosProporcionales::Pixeles(const QTableView* tabla, int twips) {
    const double escala = tabla->fontMetrics().averageCharWidth() / kCaracterDiseño;
    return static_cast<int>(twips / kTwipsPorPixel * escala + 0.5);
}

int AnchosProporcionales::Minimo(int columna) const {
    const QFontMetrics cabecera(tabla_->horizontalHeader()->font());
    const QString titulo = tabla_->model()
                               ? tabla_->model()->headerData(columna, Qt::Horizontal).toString()
                               : QString();
    const int margen =
        2 * tabla_->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, tabla_) + 6;
    int ancho = cabecera.horizontalAdvance(titulo) + margen;
    if (columna < static_cast<int>(muestras_.size())) {
        ancho = std::max(ancho, tabla_->fontMetrics().horizontalAdvance(muestras_[columna]) + 12);
    }
    return ancho;
}

void AnchosProporcionales::Aplicar() {
    const std::size_t n = twips_.size();
    std::vector<int> minimos(n);
    for (std::size_t c = 0; c < n; ++c) {
        minimos[c] = Minimo(static_cast<int>(c));
    }
    std::vector<int> anchos(n);
    if (!llenar_) {
        for (std::size_t c = 0; c < n; ++c) {
            anchos[c] = std::max(minimos[c], Pixeles(tabla_, twips_[c]));
        }
    } else {
        // Share the visible width in the designed proportions; a column
        // whose share is narrower than its text keeps its text's width and
        // the rest is shared again among the others.
        std::vector<bool> fijo(n, false);
        for (bool cambio = true; cambio;) {
            cambio = false;
            int libre = tabla_->viewport()->width();
            int twipsLibres = 0;
            for (std::size_t c = 0; c < n; ++c) {
                if (fijo[c]) {
                    libre -= minimos[c];
                } else {
                    twipsLibres += twips_[c];
                }
            }
            for (std::size_t c = 0; c < n; ++c) {
                if (fijo[c]) {
                    anchos[c] = minimos[c];
                    continue;
                }
                anchos[c] = twipsLibres > 0 ? libre * twips_[c] / twipsLibres : minimos[c];
                if (anchos[c] < minimos[c]) {
                    fijo[c] = true;
                    cambio = true;
                }
            }
        }
    }
    for (std::size_t c = 0; c < n; ++c) {
        tabla_->setColumnWidth(static_cast<int>(c), anchos[c]);
    }
}

int AnchosProporcionales::AnchoTotal() const {
    int total = 0;
    for (std::size_t c = 0; c < twips_.size(); ++c) {
        total += tabla_->columnWidth(static_cast<int>(c));
    }
    return total;
}

bool AnchosProporcionales::eventFilter(QObject* objeto, QEvent* evento) {
    // The viewport is kept from the start: while the grid is being destroyed
    // its viewport still gets events and the grid must not be asked.
    if (evento->type() == QEvent::Resize && objeto == vista_ && llenar_) {
        Aplicar();
    }
    return QObject::eventFilter(objeto, evento);
}

} // namespace vorimesk
