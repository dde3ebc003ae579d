#pragma once
// The top of the main window: the state lamp and message, today's date and
// time, the call labels (entry and its tariff) and the live meter (time,
// cost, band, bundle), the connect/disconnect button cmdConexion and the
// dial-up entries to dial (listaConexiones; a double-click dials; greyed out
// during a call). Everything shown comes from the monitor's display.

#include "EtiquetasMedidor.h"

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

namespace vorimesk {

struct PantallaMonitor;

// What to do when the system has no connection to dial: the tooltip of the
// disabled "Conectar" says it in full, the status line in short.
inline const QString kComoAñadirConexion =
    "No hay ninguna conexion que marcar. Para añadir una, cree un par de pppd en "
    "/etc/ppp/peers (por ejemplo con pppconfig) o una conexion de banda ancha movil o de "
    "acceso telefonico en NetworkManager (nm-connection-editor).";
inline const QString kSinConexionesEstado =
    "Sin conexiones: añada un par en /etc/ppp/peers o una de NetworkManager.";

class PanelConexion : public QWidget {
    Q_OBJECT
public:
    explicit PanelConexion(QWidget* padre = nullptr);

    // The system's entries; none shows "No hay conexiones disponibles.".
    void MostrarEntradas(const std::vector<std::string>& entradas);
    void Mostrar(const PantallaMonitor& p);
    // The entry chosen in the list, empty when there is none to dial.
    QString EntradaElegida() const;
    // Selects `entrada` in the list (the tray's "&Conectar con" does).
    void Elegir(const QString& entrada);
    // The frames and labels by which the window can be dragged.
    QList<QWidget*> Asas() const;

signals:
    // A double-click on an entry: dial it.
    void Marcar(const QString& entrada);
    // The user pressed cmdConexion, with the entry chosen in the list (empty
    // when there is none).
    void Pulsado(const QString& entradaElegida);
    // The user released cmdConexion: hang up.
    void Colgar();

private:
    QLabel* shEstado = nullptr;
    QLabel* lMsgEstado = nullptr;
    QLabel* lFecha = nullptr;
    QLabel* lHora = nullptr;
    QLabel* Label25 = nullptr;
    QLabel* lConectado = nullptr;
    QLabel* Label28 = nullptr;
    QLabel* lTarifa2 = nullptr;
    QLabel* lTiempo = nullptr;
    QLabel* lGasto = nullptr;
    QLabel* lTarifa = nullptr;
    QLabel* lBono = nullptr;
    QPushButton* cmdConexion = nullptr;
    QListWidget* listaConexiones = nullptr;

    void AlPulsar(bool pulsado);
    QGroupBox* CrearMedidor();
    QGroupBox* marcoEstado_ = nullptr;
    QGroupBox* marcoMedidor_ = nullptr;
    EtiquetasMedidor medidor_;
    QWidget* marcoLista_ = nullptr;
    QLabel* lEntradas_ = nullptr;
    bool hayEntradas_ = false;
};

} // namespace vorimesk
