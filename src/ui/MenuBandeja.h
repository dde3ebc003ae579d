#pragma once
// The tray icon's pop-up menu mnuOne. Its items keep their places (mnu(0)
// to mnu(9), separators included) so the rest of the window refers to them
// by index; "&Conectar con" opens the submenu mnuCon with one item per
// dial-up entry.

#include <QMenu>
#include <array>
#include <string>
#include <vector>

class QAction;

namespace vorimesk {

class MenuBandeja : public QMenu {
    Q_OBJECT
public:
    static constexpr int kMini = 0, kSiempreVisible = 1, kConectar = 3, kDesconectar = 4,
                         kConfigurar = 6, kAcercaDe = 7, kTerminar = 9;
    static constexpr const char* kIrAMini = "&MiniVentana";
    static constexpr const char* kIrANormal = "&Ventana normal";

    explicit MenuBandeja(QWidget* padre = nullptr);

    QAction* mnu(int indice) const { return mnu_[static_cast<std::size_t>(indice)]; }
    // One item per entry; none shows "No hay conexiones disponibles.", disabled.
    void MostrarEntradas(const std::vector<std::string>& entradas);

    QMenu* mnuCon = nullptr;

signals:
    void ConectarCon(const QString& entrada);

private:
    std::array<QAction*, 10> mnu_{};
};

} // namespace vorimesk
