#include "Mensajes.h"

#include <QPushButton>
#include <memory>

namespace vorimesk {
namespace {

// The title is the application's, as on the window's own title bar.
std::unique_ptr<QMessageBox> Caja(QWidget* padre, QMessageBox::Icon icono, const QString& texto,
                                  const QString& detalle) {
    const QString titulo = padre != nullptr ? padre->window()->windowTitle().section(" - ", 0, 0)
                                            : QString("Vorimesk");
    auto caja = std::make_unique<QMessageBox>(icono, titulo, texto, QMessageBox::NoButton, padre);
    caja->setInformativeText(detalle);
    return caja;
}

} // namespace

void Avisar(QWidget* padre, QMessageBox::Icon icono, const QString& texto, const QString& detalle) {
    auto caja = Caja(padre, icono, texto, detalle);
    caja->addButton("Aceptar", QMessageBox::AcceptRole);
    caja->exec();
}

bool Confirmar(QWidget* padre, const QString& texto, const QString& detalle, const QString& si) {
    auto caja = Caja(padre, QMessageBox::Question, texto, detalle);
    QPushButton* aceptar = caja->addButton(si, QMessageBox::AcceptRole);
    caja->setDefaultButton(caja->addButton("Cancelar", QMessageBox::RejectRole));
    caja->exec();
    return caja->clickedButton() == aceptar;
}

AlCerrar PreguntarAlCerrar(QWidget* padre, const QString& texto) {
    auto caja = Caja(padre, QMessageBox::Question, texto, {});
    QPushButton* guardar = caja->addButton("&Guardar", QMessageBox::AcceptRole);
    QPushButton* descartar = caja->addButton("&Descartar", QMessageBox::DestructiveRole);
    caja->setDefaultButton(caja->addButton("Cancelar", QMessageBox::RejectRole));
    caja->exec();
    if (caja->clickedButton() == guardar) {
        return AlCerrar::Guardar;
    }
    return caja->clickedButton() == descartar ? AlCerrar::Descartar : AlCerrar::Cancelar;
}

} // namespace vorimesk
