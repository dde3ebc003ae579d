#pragma once
// The about box, also shown as the start-up banner while the main window
// loads ("Cargando el programa...", buttons hidden, above every window).

#include <QDialog>

class QLabel;
class QPushButton;

namespace vorimesk {

class PanelLogo;

class fAbout : public QDialog {
    Q_OBJECT
public:
    explicit fAbout(QWidget* padre = nullptr);

    // Banner mode: no buttons, the loading message visible, always on top.
    void ModoBanner(bool banner);

private:
    QPushButton* cmdCerrar = nullptr;
    QPushButton* cmdInformacion = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* lVersion = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* lMsg = nullptr;

    void AbrirInfoSistema();
    // In the middle of the screen, whoever opens it.
    void Centrar();
    PanelLogo* logo_ = nullptr;
};

} // namespace vorimesk
