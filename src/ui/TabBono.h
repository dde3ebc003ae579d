#pragma once
// The BonoNet tab: the bundles of the ledger (gBono), what each kind has
// left (grouped by day and night on tabBono, whose choice also picks the
// group the bono labels show), the buttons that take up, change and remove
// bundles, and the billing day and interval.

#include "settings/Settings.h"

#include <QWidget>
#include <array>
#include <functional>
#include <optional>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTableWidget;

namespace vorimesk {

struct DatosSesion;

class TabBono : public QWidget {
    Q_OBJECT
public:
    TabBono(DatosSesion& datos, QWidget* padre = nullptr);

    // The ledger in the grid and the kind labels; the billing controls.
    void Mostrar();
    // The group chosen on tabBono: 0 day, 1 night.
    int Grupo() const;
    static QString NombreGrupo(int grupo);

    // Asks the user for a bundle (fBono); tests put their own.
    std::function<std::optional<BonoGuardado>(const BonoGuardado& inicial, bool nuevo)> PedirBono;

    void Alta();
    void Modificar();
    void Eliminar();
    void Limpiar();

signals:
    // The ledger's bundles changed.
    void BonoCambiado();
    // The billing day or interval changed.
    void FacturacionCambiada();
    void GrupoElegido(int grupo);

private:
    QTableWidget* gBono = nullptr;
    QTabWidget* tabBono = nullptr;
    std::array<QLabel*, 4> lTipos{}; // what each kind has left
    QPushButton* cmdAlta = nullptr;
    QPushButton* cmdModificar = nullptr;
    QPushButton* cmdEliminar = nullptr;
    QPushButton* cmdLimpiar = nullptr;
    QSpinBox* tsp1 = nullptr;
    QComboBox* cmbFac = nullptr;

    void CambioDia(int dia);
    void CambioIntervalo(int intervalo);
    void CambioSeleccion();
    int Seleccionado() const;
    QWidget* PaginaGrupo(int grupo);
    bool Confirmar(const QString& texto);

    DatosSesion& datos_;
};

} // namespace vorimesk
