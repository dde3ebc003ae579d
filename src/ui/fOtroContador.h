#pragma once
// Shown when the window starts on a data folder that another meter already
// watches (usually the user service running `vorimesk-cli vigilar`): it says
// so, shows that meter's live state from the folder's state file, and lets
// the user stop that meter and go on here, or leave.

#include <QDialog>
#include <chrono>
#include <filesystem>

class QLabel;
class QPushButton;
class QTimer;

namespace vorimesk {

class InstanciaUnica;
class Reloj;

class fOtroContador : public QDialog {
    Q_OBJECT
public:
    fOtroContador(std::filesystem::path carpeta, InstanciaUnica& instancia, const Reloj& reloj,
                  QWidget* padre = nullptr);

    // How long the other meter is given to save and stop.
    std::chrono::milliseconds esperaRelevo{std::chrono::seconds(15)};

    // Accepted once this process holds the folder.
    void Relevar();
    void Refrescar();

    QLabel* lEstado = nullptr;
    QPushButton* cmdRelevar = nullptr;
    QPushButton* cmdSalir = nullptr;

private:
    std::filesystem::path carpeta_;
    InstanciaUnica& instancia_;
    const Reloj& reloj_;
    QLabel* lTitular_ = nullptr;
    QTimer* refresco_ = nullptr;
};

// The start-up's question: true when the window may go on (the other meter
// stopped, or left meanwhile), false when the user chose to leave.
bool ResolverOtroContador(const std::filesystem::path& carpeta, InstanciaUnica& instancia,
                          const Reloj& reloj);

} // namespace vorimesk
