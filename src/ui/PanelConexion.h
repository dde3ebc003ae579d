#pragma once
// The top of the main window: the state lamp and, while no call is up, the
// dial-up entries to dial (listaConexiones; a double-click dials). The live
// figures of a running call join it here.

#include <QColor>
#include <QWidget>
#include <string>
#include <vector>

class QLabel;
class QListWidget;

namespace vorimesk {

class PanelConexion : public QWidget {
    Q_OBJECT
public:
    explicit PanelConexion(QWidget* padre = nullptr);

    // The system's entries; none shows "No hay conexiones disponibles.".
    void MostrarEntradas(const std::vector<std::string>& entradas);
    void Estado(const QColor& color, const QString& texto);

    QLabel* shEstado = nullptr;
    QLabel* lMsgEstado = nullptr;
    QListWidget* listaConexiones = nullptr;

signals:
    void Marcar(const QString& entrada);

private:
    bool hayEntradas_ = false;
};

} // namespace vorimesk
