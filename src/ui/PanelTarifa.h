#pragma once
// The fields of one tariff: its name, the connection charge and included
// time, and per day type the table of its two bands beside the strip of the
// day they make. Problems found by the checks below the UI are shown on the
// fields they concern (coloured, with the message as tooltip) and on a line
// beside each part.

#include "tariff/ValidacionTarifas.h"

#include <QWidget>
#include <array>
#include <string>
#include <vector>

class QLineEdit;
class QSpinBox;

namespace vorimesk {

class AvisoCampo;
class FranjaDia;
class TablaBandas;
class TarifaEditable;

class PanelTarifa : public QWidget {
    Q_OBJECT
public:
    explicit PanelTarifa(QWidget* padre = nullptr);

    // Every field from the tariff, without reporting changes.
    void Mostrar(const TarifaEditable& tarifa);
    // Only the day strips, after an edit.
    void ActualizarFranjas(const TarifaEditable& tarifa);
    // The problems of this tariff (those of others are ignored by the caller).
    void MarcarProblemas(const std::vector<Problema>& problemas);
    // Puts the cursor on the field of a key, or on the first field of a day
    // type.
    void Enfocar(const std::string& clave);
    QWidget* Campo(const std::string& clave) const;

signals:
    void Cambiado(const QString& clave, const QString& texto);

private:
    QLineEdit* txtNombre = nullptr;
    QLineEdit* txtConexion = nullptr;
    QSpinBox* spnMinutos = nullptr;
    QSpinBox* spnSegundos = nullptr;
    std::array<TablaBandas*, 3> tablas{};
    std::array<FranjaDia*, 3> franjas{};
    AvisoCampo* avisoNombre = nullptr;
    AvisoCampo* avisoConexion = nullptr;
    std::array<AvisoCampo*, 3> avisoDia{};

    QWidget* CrearNombre();
    QWidget* CrearConexion();
    QWidget* CrearDia(int tipoDia);
    void EmitirTiempoIncluido();
    AvisoCampo* Seccion(const std::string& clave) const;
};

} // namespace vorimesk
