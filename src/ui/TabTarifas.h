#pragma once
// Tab 2: the tariffs of the book, read-only. For the tariff chosen in
// listTarifas and the day type chosen with "Semana", "Sabado" or "Festivo",
// gTarifas shows the price, start and end of the normal and reduced bands
// and gConexion the connection charge and the time it includes. Tariffs are
// changed in the separate tariff editor ("&Editor"), another program: the
// tab reads the book again as soon as the file changes on disk.

#include <QWidget>
#include <cstdint>
#include <filesystem>

class QButtonGroup;
class QFileSystemWatcher;
class QTimer;
class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vorimesk {

struct DatosSesion;

class TabTarifas : public QWidget {
    Q_OBJECT
public:
    // `carpetaPrograma` is where the tariff editor is looked for.
    TabTarifas(DatosSesion& datos, std::filesystem::path carpetaPrograma, QWidget* padre = nullptr);

    // Reads the book again (the editor may have changed it) and shows it.
    void Refrescar();
    // Shows the values of the chosen tariff and day type.
    void MostrarValores();
    // Starts the editor; false (after telling the user) when it cannot.
    bool AbrirEditor();

signals:
    void EditorAbierto();

private:
    QListWidget* listTarifas = nullptr;
    QRadioButton* optSemana = nullptr;
    QRadioButton* optSabado = nullptr;
    QRadioButton* optFestivo = nullptr;
    QTableWidget* gTarifas = nullptr;
    QTableWidget* gConexion = nullptr;
    QPushButton* cmdEditor = nullptr;
    QLabel* lSinTarifas = nullptr;

    void VigilarLibro();
    int TipoDia() const;
    void PonerCelda(QTableWidget* tabla, int fila, int columna, const QString& texto);

    DatosSesion& datos_;
    std::filesystem::path carpetaPrograma_;
    QButtonGroup* dias_ = nullptr;
    QFileSystemWatcher* vigilante_ = nullptr;
    QTimer* espera_ = nullptr;
    // The reading of the session's book the tab shows.
    std::uint64_t mostrado_ = 0;
};

} // namespace vorimesk
