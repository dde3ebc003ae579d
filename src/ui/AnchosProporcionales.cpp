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
    tabla_->viewport()->installEventFilter(this);
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
    const int total = std::accumulate(twips_.begin(), twips_.end(), 0);
    double porTwip = Pixeles(tabla_, 1000) / 1000.0;
    if (llenar_ && total > 0) {
        porTwip = std::max(porTwip, tabla_->viewport()->width() / static_cast<double>(total));
    }
    int usado = 0;
    for (std::size_t c = 0; c < twips_.size(); ++c) {
        int ancho = std::max(Minimo(static_cast<int>(c)), static_cast<int>(twips_[c] * porTwip));
        // The last column of a filled grid takes what rounding left over.
        if (llenar_ && c + 1 == twips_.size()) {
            ancho = std::max(ancho, tabla_->viewport()->width() - usado);
        }
        tabla_->setColumnWidth(static_cast<int>(c), ancho);
        usado += ancho;
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
    if (objeto == tabla_->viewport() && evento->type() == QEvent::Resize && llenar_) {
        Aplicar();
    }
    return QObject::eventFilter(objeto, evento);
}

} // namespace vorimesk
