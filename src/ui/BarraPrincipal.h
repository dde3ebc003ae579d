#pragma once
// The main window's toolbar Toolbar1. Its buttons keep their places (1 to
// 15; 2, 4, 10 and 13 are separators) so the window refers to them by
// index; button 3 is the check-style "Fijar siempre visible". The buttons
// that start a desktop tool are disabled, with a note why, when the desktop
// has none.

#include <QToolBar>
#include <array>

class QAction;

namespace vorimesk {

class BarraPrincipal : public QToolBar {
    Q_OBJECT
public:
    static constexpr int kSalir = 1, kFijar = 3, kMini = 5, kConfigurar = 6, kImprimir = 7,
                         kArchivar = 8, kGrafico = 9, kCalculadora = 11, kCalendario = 12,
                         kInformacion = 14, kAyuda = 15;

    explicit BarraPrincipal(QWidget* padre = nullptr);

    QAction* Boton(int indice) const { return botones_[static_cast<std::size_t>(indice)]; }

signals:
    // Clicked: the index of the button.
    void Pulsado(int indice);

private:
    void Añadir(int indice, const QIcon& icono, const QString& punta);
    std::array<QAction*, 16> botones_{};
};

} // namespace vorimesk
