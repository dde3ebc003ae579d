#include "AvisoError.h"

#include <QMessageBox>

namespace vorimesk {
namespace {
std::function<void(const QString&)>& Desvio() {
    static std::function<void(const QString&)> desvio;
    return desvio;
}
} // namespace

void AvisarError(QWidget* padre, const QString& texto) {
    if (Desvio()) {
        Desvio()(texto);
        return;
    }
    QMessageBox::critical(padre, "Vorimesk", texto);
}

void DesviarAvisos(std::function<void(const QString&)> desvio) {
    Desvio() = std::move(desvio);
}

} // namespace vorimesk
