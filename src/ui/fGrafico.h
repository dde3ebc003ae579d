#pragma once
// The graph window: the number of calls, the money spent or the hours
// connected, per year, per month of a chosen year or per day of a chosen
// month, as bars, bars with depth, a line or an area. It reads the register
// and changes nothing; the day sums are built afresh each time the window
// comes to the front.

#include "core/Reloj.h"
#include "register/GraficoRegistro.h"

#include <QDialog>
#include <array>
#include <vector>

class QChartView;
class QComboBox;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace vorimesk {

class Log;

class fGrafico : public QDialog {
    Q_OBJECT
public:
    fGrafico(const Log& registro, const Reloj& reloj, QWidget* padre = nullptr);

    // Sums the register per day again and redraws.
    void Actualizar();
    const std::vector<PuntoGrafico>& Puntos() const { return puntos_; }
    bool GuardarPng(const QString& ruta) const;

protected:
    bool event(QEvent* evento) override;

private:
    std::array<QRadioButton*, 3> Option1{};
    QComboBox* cmbTipoGraf = nullptr;
    QComboBox* cmbTipoDato = nullptr;
    QComboBox* Combo1 = nullptr;
    QSpinBox* UpDown1 = nullptr;
    QChartView* Graph1 = nullptr;
    QPushButton* cmdGuardar = nullptr;

    QWidget* Controles();
    VistaGrafico Vista() const;
    void LlenarCombo();
    void Redibujar();
    void GuardarComo();
    QString Titulo() const;

    const Log& registro_;
    const Reloj& reloj_;
    std::vector<DiaGrafico> dias_;
    std::vector<ElementoCombo> elementos_;
    std::vector<PuntoGrafico> puntos_;
};

} // namespace vorimesk
