#pragma once
// "Programas a cargar al conectar...": edits the list of programs started
// when a connection comes up. The list is written back only when the dialog
// closes, however it closes.

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QFileDialog;
class QListWidget;
class QPushButton;

namespace vorimesk {

class fProgramas : public QDialog {
    Q_OBJECT
public:
    // `programas` (the settings' list) must outlive the dialog.
    fProgramas(std::vector<std::string>& programas, QWidget* padre = nullptr);

    // The open-file dialog: the chosen path, or empty when cancelled.
    std::function<QString()> ElegirArchivo;
    static QString DialogoAbrir(QWidget* padre);
    // That dialog, not yet shown, on the first choice of its filter.
    static std::unique_ptr<QFileDialog> CrearDialogoAbrir(QWidget* padre);

    void done(int resultado) override;

private:
    QListWidget* listPro = nullptr;
    QPushButton* cmdAñadir = nullptr;
    QPushButton* cmdBorrar = nullptr;
    QPushButton* cmdBorrarTodos = nullptr;
    QPushButton* cmdCerrar = nullptr;

    void Añadir();
    void Borrar();

    std::vector<std::string>& programas_;
};

} // namespace vorimesk
