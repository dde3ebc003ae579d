#pragma once
// Pelmorad, the tariff editor: the list of tariffs of the data folder's
// "Tarifas.Dat" beside the fields of the selected one. Edits stay in memory
// (see LibroEditable) until "Guardar", which refuses while the checks find
// errors; importing and exporting go through the JSON form of the book.

#include "tariff/LibroEditable.h"
#include "tariff/Planes.h"
#include "tariff/ValidacionTarifas.h"

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QAction;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace vorimesk {

class InstanciaUnica;
class PanelTarifa;
class PanelVolumen;
class Sesion;

class fPelmorad : public QMainWindow {
    Q_OBJECT
public:
    // `carpeta` is the data folder; its book is read at once.
    explicit fPelmorad(std::filesystem::path carpeta, QWidget* padre = nullptr);

    const LibroEditable& Libro() const { return libro_; }
    // The data plans as edited ("Planes.json" is written with the book).
    const Planes& PlanesDatos() const { return planes_; }
    const std::vector<Problema>& Problemas() const { return problemas_; }
    int Actual() const { return actual_; }
    void Seleccionar(int indice);

    // Each reports to the user in a message box and returns whether it did
    // what it was asked.
    bool Guardar();
    bool ImportarDesde(const QString& ruta);
    bool ExportarA(const QString& ruta);
    bool RestaurarDeSerie();

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    QListWidget* lstTarifas = nullptr;
    QPushButton* cmdAñadir = nullptr;
    QPushButton* cmdCopiar = nullptr;
    QPushButton* cmdEliminar = nullptr;
    QPushButton* cmdRenombrar = nullptr;
    QPushButton* cmdSubir = nullptr;
    QPushButton* cmdBajar = nullptr;
    QListWidget* lstProblemas = nullptr;
    PanelTarifa* panel = nullptr;
    PanelVolumen* volumen = nullptr;
    QAction* accGuardar = nullptr;
    QAction* accImportar = nullptr;
    QAction* accExportar = nullptr;
    QAction* accRestaurar = nullptr;
    QAction* accSalir = nullptr;

    QWidget* CrearLista();
    QWidget* CrearDerecha();
    void CrearAcciones();
    void Cargar();
    void Sustituir(LibroEditable libro, int seleccion);
    // After the list of tariffs changed: checks again and shows it.
    void Refrescar(int seleccion);
    void Rellenar(int seleccion);
    void AlSeleccionar(int fila);
    void AlCambiar(const QString& clave, const QString& texto);
    void AlCambiarVolumen();
    void CargarPlanes();
    bool GuardarPlanes();
    void Añadir();
    void Copiar();
    void Eliminar();
    void Renombrar();
    void Mover(int paso);
    void Modificado();
    void Revisar();
    void PintarProblemas();
    // The fields of the selected tariff show its problems.
    void MarcarActual();
    void ActualizarBotones();
    void IrAProblema(QListWidgetItem* item);
    void PedirImportar();
    void PedirExportar();
    // The register and settings of the data folder, for the tariffs they
    // use; null, after telling why, when they cannot be read.
    std::unique_ptr<Sesion> AbrirUsos();
    // Asks, for each renamed tariff that calls or entries use, whether to
    // move them to the new name; false when the user would rather not save.
    bool ElegirRenombres(std::vector<std::pair<std::string, std::string>>& mover,
                         std::unique_ptr<Sesion>& usos, std::shared_ptr<InstanciaUnica>& cerrojo);
    void MoverUsos(Sesion& usos, const std::vector<std::pair<std::string, std::string>>& mover);

    std::filesystem::path carpeta_;
    LibroEditable libro_;
    std::vector<Problema> problemas_;
    int actual_ = -1;
    bool leido_ = true;
    Planes planes_;
    bool planesLeidos_ = true; // a plan file that does not read is never written over
    bool planesCambiados_ = false;
};

} // namespace vorimesk
