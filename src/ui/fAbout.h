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

    // The desktop's system information tool, empty when none is installed.
    static QString HerramientaInfoSistema();

    QPushButton* cmdCerrar = nullptr;
    QPushButton* cmdInformacion = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* lVersion = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* lMsg = nullptr;

private:
    void AbrirInfoSistema();
    PanelLogo* logo_ = nullptr;
};

} // namespace vorimesk
