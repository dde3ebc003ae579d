#pragma once
// The options tab: every option of the settings with its control. A click on
// a check box stores its state at once; the three threshold alerts are armed
// again when their box is clicked.

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTimeEdit;

namespace vorimesk {

struct DatosSesion;
class EditorTiempo;
class SonidoAviso;

class TabOpciones : public QWidget {
    Q_OBJECT
public:
    // The web page "Internet" opens.
    static constexpr const char* kPaginaInternet =
        "https://es.wikipedia.org/wiki/Conexi%C3%B3n_por_l%C3%ADnea_conmutada";

    TabOpciones(DatosSesion& datos, SonidoAviso& sonido, QWidget* padre = nullptr);

    // Shows the settings in their controls.
    void Mostrar();

signals:
    // A click on a threshold's box: 0 time, 1 cost, 2 bundle left.
    void AvisoArmado(int umbral);

private:
    QCheckBox* Check7 = nullptr;
    QCheckBox* Check8 = nullptr;
    QCheckBox* Check9 = nullptr;
    QCheckBox* Check10 = nullptr;
    QCheckBox* Check11 = nullptr;
    QCheckBox* Check1 = nullptr;
    QCheckBox* Check2 = nullptr;
    QCheckBox* Check6 = nullptr;
    QCheckBox* Check3 = nullptr;
    QCheckBox* Check4 = nullptr;
    QCheckBox* Check5 = nullptr;
    QTimeEdit* hora3 = nullptr;
    EditorTiempo* tiempo1 = nullptr;
    QLineEdit* txtImporte = nullptr;
    EditorTiempo* tiempo2 = nullptr;
    QLabel* lSonido = nullptr;
    QPushButton* cmdSonido = nullptr;
    QPushButton* cmdProbar = nullptr;
    QCheckBox* chkImpuestos = nullptr;
    QSpinBox* txtImpuestos = nullptr;
    QPushButton* cmdProgramas = nullptr;
    QPushButton* cmdInternet = nullptr;

    QWidget* MarcoGeneral();
    QWidget* MarcoAvisos();
    QWidget* MarcoImpuestos();
    void Enlazar();
    void ElegirSonido();
    void MostrarSonido();
    void AbrirProgramas();
    void AbrirInternet();

    DatosSesion& datos_;
    SonidoAviso& sonido_;
};

} // namespace vorimesk
