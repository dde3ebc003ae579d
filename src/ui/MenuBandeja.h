#pragma once
// The tray icon's pop-up menu mnuOne. Its items keep their places (0 to 9,
// separators at 2, 5 and 8), each a named action the window connects to;
// "&Conectar con" opens the submenu mnuCon with one item per dial-up entry.

#include <QMenu>
#include <string>
#include <vector>

class QAction;

namespace vorimesk {

class MenuBandeja : public QMenu {
    Q_OBJECT
public:
    static constexpr const char* kIrAMini = "&MiniVentana";
    static constexpr const char* kIrANormal = "&Ventana normal";

    explicit MenuBandeja(QWidget* padre = nullptr);

    QAction* mnuMini() const { return mini_; }
    QAction* mnuSiempreVisible() const { return siempreVisible_; }
    QAction* mnuConectar() const { return conectar_; }
    QAction* mnuDesconectar() const { return desconectar_; }
    QAction* mnuConfigurar() const { return configurar_; }
    QAction* mnuAcercaDe() const { return acercaDe_; }
    QAction* mnuTerminar() const { return terminar_; }
    QMenu* mnuCon() const { return con_; }
    // One item per entry; none shows "No hay conexiones disponibles.", disabled.
    void MostrarEntradas(const std::vector<std::string>& entradas);

signals:
    void ConectarCon(const QString& entrada);

private:
    QAction* Añadir(const char* nombre, const QString& texto);

    QAction* mini_;
    QAction* siempreVisible_;
    QMenu* con_;
    QAction* conectar_;
    QAction* desconectar_;
    QAction* configurar_;
    QAction* acercaDe_;
    QAction* terminar_;
};

} // namespace vorimesk
