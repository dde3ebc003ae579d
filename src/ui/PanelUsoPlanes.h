#pragma once
// The summary's data plans: per connection with a plan, a bar of what its
// cycle has used, where it is heading by the cycle's end and its allowance,
// with the daily fair share (what is left over the days left, today
// included). The figures come from the register layer (UsoPlanes); nothing
// shows while the data folder holds no plan file.

#include "register/UsoPlanes.h"

#include <QGroupBox>
#include <vector>

class QVBoxLayout;

namespace vorimesk {

struct DatosSesion;

class PanelUsoPlanes : public QGroupBox {
    Q_OBJECT
public:
    explicit PanelUsoPlanes(QWidget* padre = nullptr);

    // The plans of the session's data folder on its today.
    void Actualizar(const DatosSesion& datos);
    void Mostrar(const std::vector<UsoConexion>& usos);

private:
    QVBoxLayout* filas_ = nullptr;
};

} // namespace vorimesk
