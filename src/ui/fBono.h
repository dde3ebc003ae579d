#pragma once
// Taking up or changing one BonoNet bundle: its kind, the day it was taken
// up, the day it was given up ("&Dar de baja") and the time it has left. The
// dialog only gathers the values; the bono tab applies them to the ledger.

#include "settings/Settings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;

namespace vorimesk {

class EditorTiempo;

class fBono : public QDialog {
    Q_OBJECT
public:
    // `nuevo`: a bundle to take up, its kind chosen here; otherwise the kind
    // of an existing bundle is shown but stays as it is.
    fBono(const BonoGuardado& inicial, bool nuevo, Fecha hoy, QWidget* padre = nullptr);

    BonoGuardado Resultado() const;
    // The reason the values cannot be taken, or empty when they can.
    QString Problema() const;

    void accept() override;

private:
    QComboBox* cmbTipo = nullptr;
    QDateEdit* fecAlta = nullptr;
    QCheckBox* chkBaja = nullptr;
    QDateEdit* fecBaja = nullptr;
    EditorTiempo* txtTiempo = nullptr;
    QPushButton* cmdAceptar = nullptr;
    QPushButton* cmdCancelar = nullptr;

    void CambioTipo(int tipo);
    void CambioBaja(bool baja);
    static std::string Contenido(int tipo);

    BonoGuardado inicial_;
    bool nuevo_;
    Fecha hoy_;
};

} // namespace vorimesk
