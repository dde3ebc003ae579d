#pragma once
// The archive wizard: archive the current calls to a ".CPR" file, restore an
// archive into the register, view an archive without touching the register,
// or delete an archive file, one page at a time under a gradient banner that
// shows the step. The index "Index.dat" is read when the wizard opens and
// written back when it closes, however it closes, so an archive made on the
// way (restoring saves the current calls first by default) keeps its entry
// even when the wizard is then cancelled.

#include "AnfitrionRegistro.h"
#include "core/Reloj.h"
#include "register/Copias.h"
#include "register/PasosArchivo.h"

#include <QDialog>
#include <filesystem>
#include <memory>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;
class QStackedWidget;
class QTableWidget;

namespace vorimesk {

class ListaCarpetas;
class PanelLogo;
class cBono;

class fArchivo : public QDialog {
    Q_OBJECT
public:
    // `carpetaDatos` holds the "Copias" folder; `bono` gives the billing day
    // and interval of "&Hasta el ultimo periodo finalizado.".
    fArchivo(AnfitrionRegistro& anfitrion, Log& registro, const cBono& bono, const Reloj& reloj,
             const std::filesystem::path& carpetaDatos, QWidget* padre = nullptr);
    ~fArchivo() override;

    const PasosArchivo& Pasos() const { return pasos_; }
    const Copias& Archivos() const { return copias_; }

    void Siguiente();
    void Atras();
    void Finalizar();

public slots:
    void done(int resultado) override;

private:
    PanelLogo* picLogo = nullptr;
    QStackedWidget* paginas = nullptr;
    QListWidget* lAccion = nullptr;
    QRadioButton* Option1 = nullptr; // "Borrar datos al archivar"
    QRadioButton* Option2 = nullptr; // "Archivar y conservar datos."
    QRadioButton* Option3 = nullptr; // "Recuperar otros y sustituir los actuales."
    QRadioButton* Option4 = nullptr; // "Guardar datos actuales antes de recuperar otros."
    QRadioButton* Option5 = nullptr; // "&Si"
    QRadioButton* Option6 = nullptr; // "&No"
    QRadioButton* Option7 = nullptr; // "&Hasta el ultimo periodo finalizado."
    QRadioButton* Option8 = nullptr; // "&Todos los datos"
    QLabel* lDesde = nullptr;
    QLabel* lHasta = nullptr;
    QLineEdit* txtNombre = nullptr;
    QLineEdit* txtDescripcion = nullptr;
    QLineEdit* txtDescripcion2 = nullptr;
    ListaCarpetas* Dir1 = nullptr;
    ListaCarpetas* Dir2 = nullptr;
    QListWidget* File1 = nullptr;
    QTableWidget* Grid1 = nullptr;
    QLabel* lPeriodo = nullptr;
    QLabel* lConfirmar = nullptr; // the delete question, naming the archive
    QPushButton* cmdAtras = nullptr;
    QPushButton* cmdSiguiente = nullptr;
    QPushButton* cmdFinalizar = nullptr;
    QPushButton* cmdSalir = nullptr;

    QWidget* PaginaAccion();
    QWidget* PaginaPeriodo();
    QWidget* PaginaNombre();
    QWidget* PaginaConservar();
    QWidget* PaginaModo();
    QWidget* PaginaArchivo();
    QWidget* PaginaVer();
    QWidget* PaginaConfirmar();
    // Does what the wizard was taken through and tells the window.
    void Hacer();
    void Conectar();
    void Refrescar();
    void ElegirRango(bool todos);
    void LlenarArchivos();
    void ArchivoElegido(QListWidgetItem* elemento);
    void HacerTarea(TareaPaso tarea);
    void ListarPrivado();
    std::string ArchivoSeleccionado() const;

    AnfitrionRegistro& anfitrion_;
    Log& registro_;
    const cBono& bono_;
    const Reloj& reloj_;
    std::filesystem::path carpetaCopias_;
    Copias copias_;
    PasosArchivo pasos_;
    RangoFechas rango_;
    bool borrar_ = true;
    std::string nombre_;
    std::string descripcion_;
    std::unique_ptr<Log> privado_;
    bool cerrado_ = false;
};

} // namespace vorimesk
